// SPDX-License-Identifier: LicenseRef-Proprietary
// What came of a call: the status that the caller gets, and the cause for the debug messages.
#ifndef SOREL_DRIVER_OUTCOME_H
#define SOREL_DRIVER_OUTCOME_H

#include "sorel.h"

#include <string_view>

namespace sorel
{

// A value and where it should have been.
struct Range {
    int64_t value;
    int64_t low;
    int64_t high;
    const char *unit; // null: the value belongs to no range
};

struct Outcome {
    RadioReturn status = RADIO_ESUCCESS;
    const char *cause = nullptr; // static text: why it was refused, or what to be warned of
    unsigned line = 0;           // line of the file at fault, 0 where there is none
    int argument = 0;            // that the cause speaks of, as scripts count them; 0: of none
    std::string_view type = {};  // that this argument should have been of, behind the cause
    Range range = {};            // behind the cause
};

constexpr Outcome done()
{
    return {};
}

constexpr Outcome warned(const char *cause)
{
    return {RADIO_ESUCCESS, cause};
}

constexpr Outcome refused(RadioReturn status, const char *cause, unsigned line = 0)
{
    return {status, cause, line};
}

// Refuses an argument that names no member of its enumeration.
constexpr Outcome notMember(int argument, std::string_view type)
{
    return {RADIO_EINVAL, "is not a", 0, argument, type};
}

// Refuses a value that is not within low to high, edges included: what names it, unit may be "".
constexpr Outcome outside(const char *what, int64_t value, int64_t low, int64_t high,
                          const char *unit)
{
    return {RADIO_EINVAL, what, 0, 0, {}, {value, low, high, unit}};
}

// What came of that line of a file.
constexpr Outcome inLine(unsigned line, Outcome outcome)
{
    outcome.line = line;
    return outcome;
}

constexpr bool isRefused(const Outcome &outcome)
{
    return outcome.status != RADIO_ESUCCESS;
}

} // namespace sorel

#endif
