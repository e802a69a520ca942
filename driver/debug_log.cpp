// SPDX-License-Identifier: LicenseRef-Proprietary
// Debug messages: one line each, to standard error or the file that was given.
#include "debug_log.h"

#include "simulated_time.h"
#include "trace/destination.h"

namespace sorel
{

namespace
{

constexpr const char *logVariable = "SOREL_SIM_LOG";
constexpr const char *levelVariable = "SOREL_SIM_LOG_LEVEL";

constexpr std::string_view levelNames[] = {"none", "error", "warn", "info", "debug", "trace"};
constexpr int levelCount = RADIO_DEBUG_TRACE + 1;

// What the environment says.
RadioDebug firstLevel = RADIO_DEBUG_NONE;
FILE *destination = nullptr; // null: standard error

// A level by its short name, its number or its member's name.
bool parseLevel(std::string_view text, RadioDebug &level)
{
    for (int value = 0; value < levelCount; ++value) {
        const char digit = static_cast<char>('0' + value);
        if (text == levelNames[value] || text == std::string_view(&digit, 1)) {
            level = static_cast<RadioDebug>(value);
            return true;
        }
    }
    return valueOf(text, level);
}

void openLog(const char *path)
{
    const int descriptor = openDestination(logVariable, path);
    if (descriptor > fileno(stderr))
        destination = fdopen(descriptor, "a");
}

// As " 5 is outside 0..4 dB".
void putRange(Line &line, const Range &range)
{
    line.put(' ');
    line.putInteger(range.value);
    line.put(" is outside ");
    line.putInteger(range.low);
    line.put("..");
    line.putInteger(range.high);
    if (*range.unit) {
        line.put(' ');
        line.put(range.unit);
    }
}

} // namespace

void startDebugLog()
{
    const char *const path = setting(logVariable);
    const char *const level = setting(levelVariable);
    if (path)
        openLog(path);
    if (path || level)
        firstLevel = RADIO_DEBUG_ERROR;
    if (level && !parseLevel(level, firstLevel))
        complain(levelVariable,
                 {"'", level,
                  "' is no level; none, error, warn, info, debug and trace are. Taking error"});
}

RadioDebug environmentLevel()
{
    return firstLevel;
}

RadioDebug levelOf(const Outcome &outcome, RadioDebug uneventful)
{
    if (isRefused(outcome))
        return RADIO_DEBUG_ERROR;
    return outcome.cause ? RADIO_DEBUG_WARN : uneventful;
}

Message::Message(const DebugLog &log)
    : file(log.file      ? log.file
           : destination ? destination
                         : stderr)
{
}

Message::~Message()
{
    std::fflush(file);
}

void Message::write(std::string_view bytes)
{
    std::fwrite(bytes.data(), 1, bytes.size(), file);
}

void putLevel(Line &line, RadioDebug level)
{
    line.put("libsorel: ");
    line.put(levelNames[level]);
    line.put(": ");
}

void putCause(Line &line, const Outcome &outcome)
{
    if (!outcome.cause)
        return;
    line.put(": ");
    if (outcome.argument != 0) {
        line.put("argument ");
        line.putInteger(outcome.argument);
        line.put(' ');
    }
    line.put(outcome.cause);
    if (!outcome.type.empty()) {
        line.put(' ');
        line.put(outcome.type);
    }
    if (outcome.range.unit)
        putRange(line, outcome.range);
    if (outcome.line != 0) {
        line.put(" (line ");
        line.putInteger(outcome.line);
        line.put(')');
    }
}

void logState(const DebugLog &log, const FrontEnd &frontEnd)
{
    Message message(log);
    Line line(message);
    putLevel(line, RADIO_DEBUG_DEBUG);
    line.put(frontEnd.platform->name);
    line.put(", transmit ");
    line.putInteger(frontEnd.setup.txSynthesiser.frequency);
    line.put(" Hz, receive ");
    line.putInteger(frontEnd.setup.rxSynthesiser.frequency);
    line.put(" Hz, at ");
    line.putSeconds(simulatedTime(frontEnd));
    line.put(" s\n");
}

} // namespace sorel
