// SPDX-License-Identifier: LicenseRef-Proprietary
// Debug messages: one line each, to standard error or the file that was given.
#ifndef SOREL_DRIVER_DEBUG_LOG_H
#define SOREL_DRIVER_DEBUG_LOG_H

#include "outcome.h"

#include <cstdio>
#include <type_traits>

namespace sorel
{

struct FrontEnd;

struct DebugLog {
    RadioDebug level = RADIO_DEBUG_NONE;
    FILE *file = nullptr; // the caller's; null: standard error
};

// One argument of a call, or its result, as the messages show it. Of a pointer they show only
// whether it is null.
struct Argument {
    enum Kind { Integer, Number, Text, Pointer } kind;
    int64_t integer;
    double number;
    const char *text;
};

inline Argument describe(const char *text)
{
    return {Argument::Text, 0, 0, text};
}

inline Argument describe(float number)
{
    return {Argument::Number, 0, static_cast<double>(number), nullptr};
}

template <class Value>
Argument describe(Value value)
{
    if constexpr (std::is_pointer_v<Value>)
        return {Argument::Pointer, value != nullptr, 0, nullptr};
    else
        return {Argument::Integer, static_cast<int64_t>(value), 0, nullptr};
}

// Says what came of a call that changes the radio's state: why it was refused, what to be warned
// of, that it was done, and the state after it, as far as the level asks for them.
void logCommand(const DebugLog &log, const FrontEnd &frontEnd, const char *function,
                const Argument *arguments, int count, const Outcome &outcome);

// Says why a reading failed, or at RADIO_DEBUG_TRACE what it was.
void logReading(const DebugLog &log, const char *function, const Argument *arguments, int count,
                const Outcome &outcome, const Argument &value);

} // namespace sorel

#endif
