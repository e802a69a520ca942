// SPDX-License-Identifier: LicenseRef-Proprietary
// Debug messages: one line each, to standard error or the file that was given.
#ifndef SOREL_DRIVER_DEBUG_LOG_H
#define SOREL_DRIVER_DEBUG_LOG_H

#include "outcome.h"
#include "trace/call_text.h"

#include <cstdio>

namespace sorel
{

struct FrontEnd;

// Takes what the environment says of the debug messages. Without it there are none.
void startDebugLog();

// The level that contexts begin with, and that holds for calls without an open one.
RadioDebug environmentLevel();

struct DebugLog {
    RadioDebug level = environmentLevel();
    FILE *file = nullptr; // the caller's; null: what the environment names, else standard error
};

// The level at which a call is worth a message; uneventful where it was done without a warning.
RadioDebug levelOf(const Outcome &outcome, RadioDebug uneventful);

// One message, or part of one.
class Message : public Output
{
public:
    explicit Message(const DebugLog &log);
    Message(const Message &) = delete;
    Message &operator=(const Message &) = delete;
    ~Message();

    void write(std::string_view bytes) override;

private:
    FILE *const file;
};

// A message is one line of limited length whatever a script hands in.
constexpr Style messageStyle = {200, 16};

void putLevel(Line &line, RadioDebug level);
void putCause(Line &line, const Outcome &outcome);

// Says what came of a call.
template <class Result, class... Arguments>
void logCall(const DebugLog &log, RadioDebug level, const char *function, const Outcome &outcome,
             Result result, Arguments... arguments)
{
    const Style style = styleOf(function, messageStyle);
    Message message(log);
    Line line(message);
    putLevel(line, level);
    putCall(line, style, function, arguments...);
    putOutcome(line, style, !isRefused(outcome), arguments...);
    putValue(line, style, result);
    putCause(line, outcome);
    line.put('\n');
}

// Says what a front end is tuned to, and when.
void logState(const DebugLog &log, const FrontEnd &frontEnd);

} // namespace sorel

#endif
