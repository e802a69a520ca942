// SPDX-License-Identifier: LicenseRef-Proprietary
// What came of a call: the status that the caller gets, and the cause for the debug messages.
#ifndef SOREL_DRIVER_OUTCOME_H
#define SOREL_DRIVER_OUTCOME_H

#include "sorel.h"

namespace sorel
{

struct Outcome {
    RadioReturn status = RADIO_ESUCCESS;
    const char *cause = nullptr; // static text: why it was refused, or what to be warned of
    unsigned line = 0;           // line of the file at fault, 0 where there is none
};

constexpr Outcome done()
{
    return {};
}

constexpr Outcome warned(const char *cause)
{
    return {RADIO_ESUCCESS, cause, 0};
}

constexpr Outcome refused(RadioReturn status, const char *cause, unsigned line = 0)
{
    return {status, cause, line};
}

constexpr bool isRefused(const Outcome &outcome)
{
    return outcome.status != RADIO_ESUCCESS;
}

} // namespace sorel

#endif
