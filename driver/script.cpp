// SPDX-License-Identifier: LicenseRef-Proprietary
// Initialisation scripts: register writes, one a line.
#include "script.h"

#include "files.h"
#include "in_scenario.h"
#include "parse_number.h"
#include "registers.h"
#include "simulated_time.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

namespace sorel
{

namespace
{

// Simulated time that each command takes.
constexpr int64_t commandTime = 10'000;

// Of all delays of a script together.
constexpr int64_t longestDelay = 10'000'000'000;

enum class Command { Write, Check, Delay };

struct Step {
    Command command;
    uint32_t address;
    uint32_t value;
    uint32_t mask;    // of the bits that a check compares
    int64_t duration; // of a delay, in nanoseconds
    unsigned line;
};

struct Script {
    std::vector<Step> steps;
    int64_t delay = 0; // all delays together, in nanoseconds
};

// Takes the first word off text; empty at its end.
std::string_view takeWord(std::string_view &text)
{
    constexpr std::string_view blanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(blanks));
    text.remove_prefix(word.size());
    return word;
}

struct Unit {
    std::string_view name;
    int64_t nanoseconds;
};

constexpr Unit units[] = {{"us", 1'000}, {"ms", 1'000'000}, {"s", 1'000'000'000}};

constexpr const char *notANumber = "not a 32-bit number";

// The arguments of each command: the first that is missing or wrong is the cause, null where all
// are right.
const char *parseWrite(std::string_view &line, Step &step, Script &)
{
    return parseNumber(takeWord(line), step.address) && parseNumber(takeWord(line), step.value)
               ? nullptr
               : notANumber;
}

const char *parseCheck(std::string_view &line, Step &step, Script &script)
{
    if (const char *const cause = parseWrite(line, step, script))
        return cause;
    const std::string_view mask = takeWord(line);
    return mask.empty() || parseNumber(mask, step.mask) ? nullptr : notANumber;
}

const char *parseDelay(std::string_view &line, Step &step, Script &script)
{
    uint32_t count = 0;
    if (!parseNumber(takeWord(line), count))
        return notANumber;
    const std::string_view name = takeWord(line);
    const auto *const unit = std::find_if(std::begin(units), std::end(units),
                                          [&](const Unit &row) { return row.name == name; });
    if (unit == std::end(units))
        return "not a unit of time: us, ms or s";
    step.duration = count * unit->nanoseconds;
    script.delay += step.duration;
    return script.delay <= longestDelay ? nullptr : "the delays are longer than 10 s together";
}

struct CommandWord {
    std::string_view name;
    Command command;
    const char *(*parse)(std::string_view &line, Step &step, Script &script);
};

constexpr CommandWord commandWords[] = {
    {"write", Command::Write, parseWrite},
    {"check", Command::Check, parseCheck},
    {"delay", Command::Delay, parseDelay},
};

// One line without its comment.
Outcome parseLine(std::string_view line, unsigned number, Script &script)
{
    const std::string_view name = takeWord(line);
    if (name.empty())
        return done();
    for (const CommandWord &word : commandWords) {
        if (word.name != name)
            continue;
        Step step = {word.command, 0, 0, UINT32_MAX, 0, number};
        if (const char *const cause = word.parse(line, step, script))
            return refused(RADIO_EINVAL, cause, number);
        if (!takeWord(line).empty())
            return refused(RADIO_EINVAL, "more words than the command takes", number);
        script.steps.push_back(step);
        return done();
    }
    return refused(RADIO_EINVAL, "not a command: write, check or delay", number);
}

Outcome parse(std::string_view text, Script &script)
{
    for (unsigned number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const Outcome outcome = parseLine(line.substr(0, line.find('#')), number, script);
        if (isRefused(outcome))
            return outcome;
    }
    return done();
}

Outcome check(FrontEnd &frontEnd, const Step &step)
{
    uint32_t value = 0;
    if (const Outcome outcome = readRegister(frontEnd, step.address, value); isRefused(outcome))
        return outcome;
    return ((value ^ step.value) & step.mask) == 0
               ? done()
               : refused(RADIO_EERROR, "the register holds another value");
}

Outcome perform(FrontEnd &frontEnd, const Step &step)
{
    frontEnd.levels.isKnown = false;
    advance(frontEnd, commandTime);
    switch (step.command) {
    case Command::Write:
        return writeRegister(frontEnd, step.address, step.value);
    case Command::Check:
        return check(frontEnd, step);
    case Command::Delay:
        wait(frontEnd, step.duration);
        break;
    }
    return done();
}

} // namespace

Outcome setUpByScript(FrontEnd &frontEnd, const Platform &platform, RadioConf configuration,
                      RadioMode mode, RadioBand band, const char *path)
{
    if (!path)
        return refused(RADIO_EINVAL, "the path is a null pointer");
    std::string text;
    if (const Outcome outcome = readFile(path, text); isRefused(outcome))
        return outcome;
    Script script;
    if (const Outcome outcome = parse(text, script); isRefused(outcome))
        return outcome;

    FrontEnd changed = frontEnd;
    const Outcome setup = setUpInScenario(changed, platform, configuration, mode, band);
    if (isRefused(setup))
        return setup;
    for (const Step &step : script.steps) {
        const Outcome outcome = perform(changed, step);
        if (isRefused(outcome))
            return inLine(step.line, outcome);
    }
    frontEnd = changed;
    return setup;
}

} // namespace sorel
