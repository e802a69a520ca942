// SPDX-License-Identifier: LicenseRef-Proprietary
// Loading the gain and power tables.
#ifndef SOREL_DRIVER_REGISTER_TABLE_H
#define SOREL_DRIVER_REGISTER_TABLE_H

#include "front_end.h"

#include <algorithm>

namespace sorel
{

// Replaces what table, one of the front end's, holds by count words.
inline Outcome loadTable(FrontEnd &frontEnd, RegisterTable &table, const uint32_t *words,
                         uint32_t count)
{
    if (count > tableCapacity)
        return refused(RADIO_EINVAL, "more words than the table holds");
    if (!words && count != 0)
        return refused(RADIO_EINVAL, "the words are a null pointer");
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    table = {};
    table.count = count;
    std::copy_n(words, count, table.words);
    return done();
}

} // namespace sorel

#endif
