// SPDX-License-Identifier: LicenseRef-Proprietary
// The frame that every function of the interface with a context runs in: finds the board, lets
// simulated time pass, checks enumerations, runs the body, and says what came of it. Nothing thrown
// leaves it.
#ifndef SOREL_DRIVER_CALL_H
#define SOREL_DRIVER_CALL_H

#include "contexts.h"
#include "enumerations.h"
#include "faults.h"
#include "simulated_time.h"

#include <limits>

namespace sorel
{

// What a reading answers when it fails.
template <class Value>
constexpr Value failing();

template <>
constexpr float failing<float>()
{
    return std::numeric_limits<float>::quiet_NaN();
}

template <>
constexpr int32_t failing<int32_t>()
{
    return INT32_MIN;
}

template <>
constexpr uint32_t failing<uint32_t>()
{
    return UINT32_MAX;
}

template <>
constexpr const char *failing<const char *>()
{
    return nullptr;
}

// The part of the board that a body works on.
inline void pick(Board &board, Board *&part)
{
    part = &board;
}

inline void pick(Board &board, FrontEnd *&part)
{
    part = &board.frontEnd;
}

inline void pick(Board &board, Calibration *&part)
{
    part = &board.calibration;
}

inline void pick(Board &board, DebugLog *&part)
{
    part = &board.log;
}

template <class Value>
constexpr bool isAcceptable(Value value)
{
    if constexpr (std::is_enum_v<Value>)
        return isMember(value);
    else
        return true;
}

// Runs the body with arguments, or refuses them.
template <class Part, class... Parameters, class... Arguments>
Outcome run(Board &board, const char *function, Outcome (*body)(Part &, Parameters...),
            Arguments &...arguments)
{
    const Fault *const fault = befall(function, &board.frontEnd);
    passTime(board.frontEnd);
    if (!(isAcceptable(arguments) && ...))
        return refused(RADIO_EINVAL, "not a member of the enumeration");
    if (fault)
        return injected(*fault, arguments...);
    std::remove_const_t<Part> *part;
    pick(board, part);
    try {
        const Outcome outcome = body(*part, arguments...);
        endure(board.frontEnd);
        return outcome;
    } catch (...) {
        return refused(RADIO_EERROR, "out of memory");
    }
}

// A function that returns a status.
template <class Part, class... Parameters, class... Arguments>
RadioReturn command(RadioContext *context, const char *function,
                    Outcome (*body)(Part &, Parameters...), Arguments... arguments)
{
    Board *const board = boardOf(context);
    if (!board)
        return RADIO_EINVAL;
    const Outcome outcome = run(*board, function, body, arguments...);
    board->frontEnd.levels.isKnown = false;
    if (board->log.level != RADIO_DEBUG_NONE) [[unlikely]] {
        const Argument described[] = {describe(arguments)..., describe(0)};
        logCommand(board->log, board->frontEnd, function, described, sizeof...(arguments), outcome);
    }
    return outcome.status;
}

// A function that returns a reading. The body's last parameter takes it.
template <class Value, class Part, class... Parameters, class... Arguments>
Value reading(RadioContext *context, const char *function, Outcome (*body)(Part &, Parameters...),
              Arguments... arguments)
{
    Board *const board = boardOf(context);
    if (!board)
        return failing<Value>();
    Value value = failing<Value>();
    const Outcome outcome = run(*board, function, body, arguments..., value);
    if (board->log.level != RADIO_DEBUG_NONE) [[unlikely]] {
        const Argument described[] = {describe(arguments)..., describe(0)};
        logReading(board->log, function, described, sizeof...(arguments), outcome, describe(value));
    }
    return value;
}

} // namespace sorel

#endif
