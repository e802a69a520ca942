// SPDX-License-Identifier: LicenseRef-Proprietary
// The frame that every function of the interface with a context runs in: finds the board, lets
// simulated time pass, checks enumerations, runs the body, and says what came of it, in the trace
// and in the debug messages. Nothing thrown leaves it.
#ifndef SOREL_DRIVER_CALL_H
#define SOREL_DRIVER_CALL_H

#include "contexts.h"
#include "diagnostics.h"
#include "enumerations.h"
#include "failing.h"
#include "faults.h"
#include "simulated_time.h"

namespace sorel
{

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

// A call that has begun.
struct Entry {
    Board *board;       // of the context; null where that is not open
    const Fault *fault; // that answers in place of the body; null where none does
};

// Begins a call with a context: it counts for the faults, and its time passes.
inline Entry enter(const RadioContext *context, const char *function)
{
    Board *const board = boardOf(context);
    if (!board)
        return {nullptr, nullptr};
    const Fault *const fault = befall(function, &board->frontEnd);
    passTime(board->frontEnd);
    return {board, fault};
}

// Refuses the argument at that position where it names no member of its enumeration.
template <class Value>
constexpr Outcome checkMember([[maybe_unused]] int position, [[maybe_unused]] Value value)
{
    if constexpr (std::is_enum_v<Value>)
        if (!isMember(value))
            return notMember(position, typeName<Value>());
    return done();
}

// Refuses the first such argument.
template <class... Arguments>
constexpr Outcome checkMembers(Arguments... arguments)
{
    Outcome outcome;
    [[maybe_unused]] int position = 0;
    static_cast<void>((isRefused(outcome = checkMember(++position, arguments)) || ...));
    return outcome;
}

// Runs the body with arguments, or refuses them.
template <class Part, class... Parameters, class... Arguments>
Outcome run(const Entry &entry, const RadioContext *context, Outcome (*body)(Part &, Parameters...),
            Arguments &...arguments)
{
    if (!entry.board)
        return refused(RADIO_EINVAL, context ? "the context is not open" : "the context is null");
    if (const Outcome outcome = checkMembers(arguments...); isRefused(outcome))
        return outcome;
    if (entry.fault)
        return injected(*entry.fault, arguments...);
    std::remove_const_t<Part> *part;
    pick(*entry.board, part);
    try {
        const Outcome outcome = body(*part, arguments...);
        endure(entry.board->frontEnd);
        return outcome;
    } catch (...) {
        return refused(RADIO_EERROR, "out of memory");
    }
}

// Says in the debug messages what came of a call, on a board or without one.
template <class Value, class... Arguments>
void logAnswer(const Board *board, const char *function, RadioDebug uneventful,
               const Outcome &outcome, Value value, Arguments... arguments)
{
    const DebugLog log = board ? board->log : DebugLog{};
    const RadioDebug level = levelOf(outcome, uneventful);
    if (log.level < level) [[likely]]
        return;
    logCall(log, level, function, outcome, value, arguments...);
    if (board && log.level >= RADIO_DEBUG_DEBUG && level == RADIO_DEBUG_INFO)
        logState(log, board->frontEnd);
}

// Any function of the interface: what its body, handed the failing value to replace, makes of that.
// The debug messages, at the level uneventful where there is nothing to complain of, come when the
// line of the trace is whole.
template <class Value, class Body, class... Arguments>
Value answer(const Board *board, const char *function, RadioDebug uneventful, Body body,
             Arguments... arguments)
{
    Outcome outcome;
    const auto call = [&] {
        Value value = failing<Value>();
        outcome = body(value);
        return value;
    };
    Trace *const trace = currentTrace();
    if (trace && board)
        trace->setTime(simulatedTime(board->frontEnd));
    const Value value = trace ? trace->record(function, call, arguments...) : call();
    logAnswer(board, function, uneventful, outcome, value, arguments...);
    return value;
}

// A function that returns a text or a list, and takes any context.
template <class Value, class Body>
Value withoutContext(const char *function, Body body, RadioContext *context)
{
    const auto runBody = [&](Value &value) {
        const Fault *const fault = befall(function);
        return fault ? injected(*fault) : body(value);
    };
    return answer<Value>(boardOf(context), function, RADIO_DEBUG_TRACE, runBody, context);
}

// A function that returns a status. One whose body leaves its part of the board as it is counts as
// uneventful as a reading.
template <class Part, class... Parameters, class... Arguments>
RadioReturn command(RadioContext *context, const char *function,
                    Outcome (*body)(Part &, Parameters...), Arguments... arguments)
{
    const Entry entry = enter(context, function);
    const auto runBody = [&](RadioReturn &status) {
        const Outcome outcome = run(entry, context, body, arguments...);
        status = outcome.status;
        if (entry.board)
            entry.board->frontEnd.levels.isKnown = false;
        return outcome;
    };
    return answer<RadioReturn>(entry.board, function,
                               std::is_const_v<Part> ? RADIO_DEBUG_TRACE : RADIO_DEBUG_INFO,
                               runBody, context, arguments...);
}

// A function that returns a reading. The body's last parameter takes it.
template <class Value, class Part, class... Parameters, class... Arguments>
Value reading(RadioContext *context, const char *function, Outcome (*body)(Part &, Parameters...),
              Arguments... arguments)
{
    const Entry entry = enter(context, function);
    const auto runBody = [&](Value &value) {
        return run(entry, context, body, arguments..., value);
    };
    return answer<Value>(entry.board, function, RADIO_DEBUG_TRACE, runBody, context, arguments...);
}

} // namespace sorel

#endif
