// SPDX-License-Identifier: LicenseRef-Proprietary
// Loading the gain and power tables.
#ifndef SOREL_DRIVER_REGISTER_TABLE_H
#define SOREL_DRIVER_REGISTER_TABLE_H

#include "front_end.h"

#include <algorithm>

namespace sorel
{

// Refuses what no table can hold: words that are no signed numbers from low to high, or that fall
// from one to the next.
inline Outcome checkTable(const uint32_t *words, uint32_t count, int32_t low, int32_t high)
{
    if (count > tableCapacity)
        return refused(RADIO_EINVAL, "more words than the table holds");
    if (!words && count != 0)
        return refused(RADIO_EINVAL, "the words are a null pointer");
    int32_t previous = low;
    for (uint32_t i = 0; i < count; ++i) {
        const auto value = static_cast<int32_t>(words[i]);
        if (value < low || value > high)
            return outside("word", value, low, high, "x 0.1 dB");
        if (value < previous)
            return refused(RADIO_EINVAL, "a word is lower than the one before it");
        previous = value;
    }
    return done();
}

// Replaces what the table holds by count words.
inline void storeTable(RegisterTable &table, const uint32_t *words, uint32_t count)
{
    table = {};
    table.count = count;
    std::copy_n(words, count, table.words);
}

// Index of the last word of the table that is not above that value; -1 when there is none.
inline int lastNotAbove(const RegisterTable &table, int32_t value)
{
    const uint32_t *const end = table.words + table.count;
    const uint32_t *const above =
        std::upper_bound(table.words, end, value, [](int32_t limit, uint32_t word) {
            return limit < static_cast<int32_t>(word);
        });
    return static_cast<int>(above - table.words) - 1;
}

} // namespace sorel

#endif
