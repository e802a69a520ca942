// SPDX-License-Identifier: LicenseRef-Proprietary
// Debug messages: one line each, to standard error or the file that was given.
#include "debug_log.h"

#include "front_end.h"

namespace sorel
{

namespace
{

constexpr const char *levelNames[] = {"none", "error", "warn", "info", "debug", "trace"};

constexpr const char *statusNames[] = {
    "RADIO_ESUCCESS", "RADIO_EIO", "RADIO_ENOTSUP", "RADIO_EINVAL", "RADIO_EAGAIN", "RADIO_EERROR",
};

// A message is one line of limited length whatever a script hands in.
constexpr int longestText = 200;

FILE *fileOf(const DebugLog &log)
{
    return log.file ? log.file : stderr;
}

void putText(FILE *file, const char *text)
{
    std::fputc('"', file);
    for (int length = 0; text[length] && length < longestText; ++length) {
        const auto character = static_cast<unsigned char>(text[length]);
        std::fputc(character < 0x20 || character == 0x7f ? '?' : character, file);
    }
    std::fputc('"', file);
}

void putArgument(FILE *file, const Argument &argument)
{
    switch (argument.kind) {
    case Argument::Integer:
        std::fprintf(file, "%lld", static_cast<long long>(argument.integer));
        break;
    case Argument::Number:
        std::fprintf(file, "%g", argument.number);
        break;
    case Argument::Text:
        if (argument.text)
            putText(file, argument.text);
        else
            std::fputs("null", file);
        break;
    case Argument::Pointer:
        std::fputs(argument.integer != 0 ? "pointer" : "null", file);
        break;
    }
}

void putCall(FILE *file, RadioDebug level, const char *function, const Argument *arguments,
             int count)
{
    std::fprintf(file, "libsorel: %s: %s(", levelNames[level], function);
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            std::fputs(", ", file);
        putArgument(file, arguments[i]);
    }
    std::fputc(')', file);
}

void putCause(FILE *file, const Outcome &outcome)
{
    std::fprintf(file, ": %s", outcome.cause);
    if (outcome.line != 0)
        std::fprintf(file, " (line %u)", outcome.line);
}

// The level at which a call is worth a message.
RadioDebug levelOf(const Outcome &outcome, RadioDebug uneventful)
{
    if (isRefused(outcome))
        return RADIO_DEBUG_ERROR;
    return outcome.cause ? RADIO_DEBUG_WARN : uneventful;
}

} // namespace

void logCommand(const DebugLog &log, const FrontEnd &frontEnd, const char *function,
                const Argument *arguments, int count, const Outcome &outcome)
{
    const RadioDebug level = levelOf(outcome, RADIO_DEBUG_INFO);
    if (log.level < level)
        return;
    FILE *const file = fileOf(log);
    putCall(file, level, function, arguments, count);
    std::fprintf(file, " = %s", statusNames[outcome.status]);
    if (outcome.cause)
        putCause(file, outcome);
    std::fputc('\n', file);
    if (log.level >= RADIO_DEBUG_DEBUG && !isRefused(outcome))
        std::fprintf(file, "libsorel: debug: %s, transmit %lu Hz, receive %lu Hz, at %llu us\n",
                     frontEnd.platform->name,
                     static_cast<unsigned long>(frontEnd.setup.txSynthesiser.frequency),
                     static_cast<unsigned long>(frontEnd.setup.rxSynthesiser.frequency),
                     static_cast<unsigned long long>(frontEnd.now / 1000));
    std::fflush(file);
}

void logReading(const DebugLog &log, const char *function, const Argument *arguments, int count,
                const Outcome &outcome, const Argument &value)
{
    const RadioDebug level = levelOf(outcome, RADIO_DEBUG_TRACE);
    if (log.level < level)
        return;
    FILE *const file = fileOf(log);
    putCall(file, level, function, arguments, count);
    std::fputs(" = ", file);
    putArgument(file, value);
    if (outcome.cause)
        putCause(file, outcome);
    std::fputc('\n', file);
    std::fflush(file);
}

} // namespace sorel
