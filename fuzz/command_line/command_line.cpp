// SPDX-License-Identifier: LicenseRef-Proprietary
// The command line: an input is the arguments, one a line. They are parsed and what comes of it is
// compared with the model; those that name a harmless file or command start the shell as well.
#include "app/context.h"
#include "app/lua_state.h"
#include "app/options.h"
#include "fuzz/cells.h"
#include "fuzz/command_line/model.h"
#include "fuzz/ending.h"
#include "fuzz/streams.h"
#include "fuzz/target.h"

#include <algorithm>
#include <cstdlib>
#include <errno.h>
#include <lua.hpp>

int shellMain(int argc, char **argv); // main() of the shell

namespace
{

Cells *spellings;
Cells *outcomes;
Cells *starts;

// In the order of Spelling.
const std::vector<std::string> spellingNames = {
    "-b FILE",
    "-bFILE",
    "--batch FILE",
    "--batch=FILE",
    "--bat FILE",
    "--bat=FILE",
    "-c COMMAND",
    "-cCOMMAND",
    "--command COMMAND",
    "--command=COMMAND",
    "--com COMMAND",
    "--com=COMMAND",
    "-i",
    "--interactive",
    "--int",
    "-v",
    "--version",
    "--vers",
    "-?",
    "--help",
    "--he",
    "--usage",
    "--us",
    "-V",
    "--program-name NAME",
    "--HANG=SECONDS",
    "--",
    "an argument without option",
    "-",
    "an unknown -x",
    "an unknown --long",
    "--=VALUE",
    "--interactive=VALUE",
    "-b at the end",
};

// Kinds of value.
enum Kind : std::size_t { noValue, emptyValue, plain, dashed, bytes, longText, kindCount };

Kind kindOf(const std::optional<std::string> &value)
{
    if (!value) {
        return noValue;
    }
    if (value->empty()) {
        return emptyValue;
    }
    if (value->size() > 200) {
        return longText;
    }
    if (value->front() == '-') {
        return dashed;
    }
    const bool printable = std::all_of(value->begin(), value->end(),
                                       [](char byte) { return byte >= ' ' && byte <= '~'; });
    return printable ? plain : bytes;
}

bool canHave(Spelling spelling, Kind kind)
{
    switch (spelling) {
    case joinedBatch:
    case joinedCommand:
        return kind != noValue && kind != emptyValue;
    case positional:
        return kind != noValue;
    case shortBatch:
    case longBatch:
    case equalsBatch:
    case shortenedBatch:
    case shortenedEqualsBatch:
    case shortCommand:
    case longCommand:
    case equalsCommand:
    case shortenedCommand:
    case shortenedEqualsCommand:
    case programName:
    case nameless:
    case valueForNone:
        return kind != noValue;
    case unknownLong:
        return true;
    case hang: // without a value, and with most, it waits
        return kind == emptyValue || kind == plain || kind == dashed || kind == bytes ||
               kind == longText;
    case single:
        return kind == dashed;
    default:
        return kind == noValue;
    }
}

bool canEnd(Spelling spelling, Outcome outcome)
{
    switch (spelling) {
    case positional: // --help after it is still taken
    case single:
        return outcome != accepted;
    case shortHelp:
    case longHelp:
    case shortenedHelp:
    case longUsage:
    case shortenedUsage:
    case shortLibraryVersion:
        return outcome == answered;
    case unknownShort:
    case unknownLong:
    case nameless:
    case valueForNone:
    case missingValue:
        return outcome == rejected;
    case endOfOptions:
        return outcome != answered;
    default:
        return true;
    }
}

std::vector<std::string> split(const std::uint8_t *data, std::size_t size)
{
    std::vector<std::string> arguments;
    const std::string text(data, data + size);
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string argument = text.substr(begin, end - begin);
        arguments.emplace_back(argument.c_str()); // an argument ends at a zero byte
        begin = end + 1;
    }
    return arguments;
}

// An argv that lasts as long as the object.
class Arguments
{
public:
    explicit Arguments(std::vector<std::string> arguments) : texts_(std::move(arguments))
    {
        texts_.insert(texts_.begin(), "sorelapp");
        for (std::string &text : texts_) {
            pointers_.push_back(text.data());
        }
        pointers_.push_back(nullptr);
    }

    int count() const
    {
        return static_cast<int>(texts_.size());
    }

    char **pointers()
    {
        return pointers_.data();
    }

private:
    std::vector<std::string> texts_;
    std::vector<char *> pointers_;
};

// The parser sets these to an argument.
class ProgramName
{
public:
    ~ProgramName()
    {
        program_invocation_name = name_;
        program_invocation_short_name = shortName_;
    }

private:
    char *const name_ = program_invocation_name;
    char *const shortName_ = program_invocation_short_name;
};

void check(bool holds, const char *what)
{
    if (!holds) {
        failTarget(what);
    }
}

bool same(const char *text, const std::optional<std::string> &expected)
{
    return expected ? text != nullptr && *expected == text : text == nullptr;
}

void checkParsing(const std::vector<std::string> &texts, const Expected &expected)
{
    Arguments arguments(texts);
    ProgramName name;
    AppArgs args;
    error_t failure = 0;
    beginStreams("");
    Ending ending;
    {
        const Leftovers leftovers;
        ending = runToItsEnd(
            [&] { failure = parseCommandLine(arguments.count(), arguments.pointers(), args); });
    }
    const Written written = endStreams();
    if (expected.outcome == accepted) {
        check(ending.way == Ending::returned && failure == 0, "not accepted");
        check(same(args.batchFile, expected.batchFile), "another batch file");
        check(same(args.command, expected.command), "another command");
        check(args.interactive == expected.interactive, "another mode");
        check(args.version == expected.version,
              "another answer to whether the version is asked for");
        check(written.out.empty() && written.err.empty(), "something is printed");
    } else {
        check(ending.way == Ending::exited, "not at its end");
        check(ending.status == (expected.outcome == answered ? 0 : 64), "another status");
        check(written.out.empty() == (expected.outcome == rejected), "the answer is elsewhere");
        check(written.err.empty() == (expected.outcome == answered), "the complaint is elsewhere");
    }
}

// Files and commands with which the shell is started.
struct Harmless {
    const char *text;
    bool fails;
    const char *printed;
};

const Harmless files[] = {
    {"/dev/null", false, ""},
    {"/dev/null/none", true, ""},
    {"", true, ""},
};

const Harmless commands[] = {
    {"", false, ""},
    {"print(1)", false, "1\n"},
    {"error(1)", true, ""},
    {"=", true, ""},
    {"radioInit(1,7,7) print(radioGetPlatformName())", false, "simulated board\n"},
};

// Rows and columns of the table of starts.
enum Mode : std::size_t { prompt, batch, batchAndPrompt, command, versionOnly, modeCount };
enum End : std::size_t { ends, panics, endCount };

template <std::size_t count>
const Harmless *findHarmless(const Harmless (&list)[count], const std::optional<std::string> &text)
{
    const auto found = std::find_if(std::begin(list), std::end(list), [&](const Harmless &entry) {
        return text && *text == entry.text;
    });
    return found == std::end(list) ? nullptr : found;
}

Mode modeOf(const Expected &expected)
{
    if (expected.version) {
        return versionOnly;
    }
    if (expected.batchFile) {
        return expected.interactive ? batchAndPrompt : batch;
    }
    return expected.command ? command : prompt;
}

void checkStart(const std::vector<std::string> &texts, const Expected &expected)
{
    const Mode mode = modeOf(expected);
    const Harmless *const file = findHarmless(files, expected.batchFile);
    const Harmless *const text = findHarmless(commands, expected.command);
    const bool runs = mode != versionOnly;
    if (runs && ((expected.batchFile && !file) || (expected.command && !text))) {
        return; // who knows what it does
    }
    Arguments arguments(texts);
    ProgramName name;
    int status = -1;
    beginStreams("exit\n");
    const Ending ending =
        runToItsEnd([&] { status = shellMain(arguments.count(), arguments.pointers()); });
    const Written written = endStreams();
    const bool panic = runs && ((file && file->fails) || (text && text->fails));
    if (panic) {
        check(ending.way == Ending::exited && ending.status == 1, "no panic");
        check(written.err.substr(0, 7) == "PANIC: ", "another complaint than the panic's");
        lua_close(appLuaState);
        appRadioClose();
    } else {
        check(ending.way == Ending::returned && status == 0, "another status");
        check(written.err.empty(), "a complaint");
    }
    appLuaState = nullptr;
    if (mode == versionOnly) {
        check(written.out.rfind("libsorel v1.1 (simulated board) Copyright", 0) == 0,
              "another version");
        check(std::count(written.out.begin(), written.out.end(), '\n') == 28, "another block");
    } else {
        std::string printed = text ? text->printed : "";
        if (expected.interactive && !panic) {
            printed += "sorelapp> ";
        }
        check(written.out == printed, "another output");
    }
    starts->count(mode, panic ? panics : ends);
}

} // namespace

void prepareTarget()
{
    unsetenv("POSIXLY_CORRECT");
    unsetenv("ARGP_HELP_FMT");
    unsetenv("SOREL_SIM_SCENARIO");
    spellings =
        new Cells("spelling", spellingNames, {"none", "empty", "plain", "dash", "bytes", "long"});
    outcomes = new Cells("outcome", spellingNames, {"accepted", "rejected", "answered"});
    for (std::size_t row = 0; row < spellingCount; ++row) {
        for (std::size_t kind = 0; kind < kindCount; ++kind) {
            if (!canHave(static_cast<Spelling>(row), static_cast<Kind>(kind))) {
                spellings->leaveOut(row, kind);
            }
        }
        for (std::size_t outcome = 0; outcome < outcomeCount; ++outcome) {
            if (!canEnd(static_cast<Spelling>(row), static_cast<Outcome>(outcome))) {
                outcomes->leaveOut(row, outcome);
            }
        }
    }
    starts = new Cells("start", {"prompt", "batch", "batch, then prompt", "command", "version"},
                       {"ends", "panics"});
    starts->leaveOut(prompt, panics);
    starts->leaveOut(versionOnly, panics);
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::vector<std::string> arguments = split(data, size);
    const Expected expected = expectedOf(arguments);
    if (expected.leftOut) {
        return 0;
    }
    checkParsing(arguments, expected);
    if (expected.outcome == accepted) {
        checkStart(arguments, expected);
    }
    for (const Met &met : expected.met) {
        spellings->count(met.spelling, kindOf(met.value));
        outcomes->count(met.spelling, expected.outcome);
    }
    return 0;
}
