// SPDX-License-Identifier: LicenseRef-Proprietary
// The environment that the simulated board reads: an input is variables, one a line, as
// SOREL_SIM_LOG=file. The board reads them once in a process, so each input has one of its own.
// What names a file to be written is one of the words below, so that no other file is touched.
#include "fuzz/board.h"
#include "fuzz/cells.h"
#include "fuzz/ending.h"
#include "fuzz/target.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <map>
#include <sstream>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

Cells *destinationCells;
enum Destination : std::size_t {
    absent,
    nothing,
    terminal,
    file,
    folder,
    missing,
    full,
    destinations
};
const char *const destinationWords[] = {nullptr, "", "-", "file", "folder", "missing", "full"};

Cells *levelCells;
enum Level : std::size_t { noLevel, emptyLevel, shortName, digit, longName, unknownLevel, levels };

Cells *scenarioCells;
enum Scenario : std::size_t {
    noScenario,
    emptyScenario,
    notThere,
    notRegular,
    good,
    bad,
    scenarios
};

const std::string logVariable = "SOREL_SIM_LOG";
const std::string levelVariable = "SOREL_SIM_LOG_LEVEL";
const std::string traceVariable = "SOREL_SIM_TRACE";
const std::string scenarioVariable = "SOREL_SIM_SCENARIO";

using Variables = std::map<std::string, std::string>;

// A file in memory, emptied for each input.
class MemoryFile
{
public:
    void clear() const
    {
        if (ftruncate(number, 0) != 0) {
            failTarget("there is no file");
        }
    }

    std::string content() const
    {
        std::string text(static_cast<std::size_t>(lseek(number, 0, SEEK_END)), '\0');
        if (pread(number, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) {
            failTarget("the file cannot be read");
        }
        return text;
    }

    const int number = memfd_create("output", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    const std::string path = "/proc/self/fd/" + std::to_string(number);
};

const MemoryFile &errors()
{
    static const MemoryFile output;
    return output;
}

const MemoryFile &logFile()
{
    static const MemoryFile output;
    return output;
}

const MemoryFile &traceFile()
{
    static const MemoryFile output;
    return output;
}

Destination destinationOf(const Variables &variables, const std::string &name)
{
    const auto found = variables.find(name);
    if (found == variables.end()) {
        return absent;
    }
    for (std::size_t i = nothing; i < destinations; ++i) {
        if (found->second == destinationWords[i]) {
            return static_cast<Destination>(i);
        }
    }
    return file;
}

std::string pathOf(Destination destination, const MemoryFile &output)
{
    switch (destination) {
    case terminal:
        return "-";
    case file:
        return output.path;
    case folder:
        return "/";
    case missing:
        return "/nothing/here";
    case full:
        return "/dev/full";
    default:
        return "";
    }
}

Level levelOf(const Variables &variables)
{
    const auto found = variables.find(levelVariable);
    if (found == variables.end()) {
        return noLevel;
    }
    const std::string &text = found->second;
    static const char *const names[] = {"none", "error", "warn", "info", "debug", "trace"};
    static const char *const members[] = {"RADIO_DEBUG_NONE",  "RADIO_DEBUG_ERROR",
                                          "RADIO_DEBUG_WARN",  "RADIO_DEBUG_INFO",
                                          "RADIO_DEBUG_DEBUG", "RADIO_DEBUG_TRACE"};
    if (text.empty()) {
        return emptyLevel;
    }
    if (text.size() == 1 && text[0] >= '0' && text[0] <= '5') {
        return digit;
    }
    if (std::find(std::begin(names), std::end(names), text) != std::end(names)) {
        return shortName;
    }
    return std::find(std::begin(members), std::end(members), text) != std::end(members)
               ? longName
               : unknownLevel;
}

// As in the input, but for a good and a bad file.
std::string scenarioPath(const std::string &text)
{
    if (text == "good") {
        return inputFile("seed = 2\n");
    }
    return text == "bad" ? inputFile("seed = true\n") : text;
}

Scenario scenarioOf(const Variables &variables)
{
    const auto found = variables.find(scenarioVariable);
    if (found == variables.end()) {
        return noScenario;
    }
    const std::string &text = found->second;
    if (text.empty()) {
        return emptyScenario;
    }
    if (text == "good" || text == "bad") {
        return text == "good" ? good : bad;
    }
    return access(text.c_str(), F_OK) == 0 ? notRegular : notThere;
}

// What a process of its own does. Its standard error is ours to read.
[[noreturn]] void runBoard(const Variables &variables)
{
    dup2(errors().number, STDERR_FILENO);
    for (const std::string &name : {logVariable, levelVariable, traceVariable, scenarioVariable}) {
        unsetenv(name.c_str());
    }
    for (const auto &[name, text] : variables) {
        std::string value = text;
        if (name == logVariable || name == traceVariable) {
            value = pathOf(destinationOf(variables, name),
                           name == logVariable ? logFile() : traceFile());
        } else if (name == scenarioVariable) {
            value = scenarioPath(text);
        }
        setenv(name.c_str(), value.c_str(), 1);
    }
    RadioContext *const context = radioOpen();
    radioInit(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7);
    radioSetTxFrequency(context, 1); // refused
    radioClose(context);
    _exit(0);
}

void check(bool holds, const char *what)
{
    if (!holds) {
        failTarget(std::string(what) + "; standard error is:\n" + errors().content());
    }
}

bool contains(const std::string &text, const std::string &part)
{
    return text.find(part) != std::string::npos;
}

void checkComplaints(const std::string &variable, Destination destination,
                     const std::string &written)
{
    const bool cannotOpen = destination == folder || destination == missing;
    check(contains(written, "libsorel: " + variable + ": cannot open '") == cannotOpen,
          "a file that cannot be opened is not told of, or another one is");
}

void checkTrace(Destination destination, const std::string &written)
{
    constexpr char firstCall[] = "[0.000000] radioOpen() = ";
    check(contains(written, firstCall) == (destination == terminal),
          "the trace is on standard error, or is not");
    const std::string kept = traceFile().content();
    check(destination == file ? kept.rfind(firstCall, 0) == 0 : kept.empty(),
          "the trace is in the file, or is not");
    check(contains(written, "libsorel: SOREL_SIM_TRACE: cannot write: ") == (destination == full),
          "a write error is not told of, or one that was not");
}

// Messages of the refused call of radioSetTxFrequency.
void checkLog(const Variables &variables, Destination destination, const std::string &written)
{
    constexpr char message[] = "libsorel: error: radioSetTxFrequency(";
    const Level level = levelOf(variables);
    const bool named = destination > nothing;
    bool says = named || (level != noLevel && level != emptyLevel);
    if (says && level != noLevel && level != unknownLevel) {
        const std::string &text = variables.at(levelVariable);
        says = text != "none" && text != "0" && text != "RADIO_DEBUG_NONE";
    }
    const bool inFile = says && destination == file;
    const bool lost = destination == full;
    check(contains(logFile().content(), message) == inFile, "messages are in the file, or are not");
    check(contains(written, message) == (says && !inFile && !lost),
          "messages are on standard error, or are not");
    check(contains(written, "libsorel: SOREL_SIM_LOG_LEVEL: '") == (level == unknownLevel),
          "an unknown level is not told of, or a known one is");
}

Variables read(const std::string &input)
{
    Variables variables;
    std::istringstream lines(input);
    for (std::string line; std::getline(lines, line);) {
        line = line.c_str(); // up to a zero byte
        const std::size_t equals = line.find('=');
        const std::string name = line.substr(0, equals);
        const bool known = name == logVariable || name == levelVariable || name == traceVariable ||
                           name == scenarioVariable;
        if (known && equals != std::string::npos) {
            variables[name] = line.substr(equals + 1);
        }
    }
    return variables;
}

// Whether a value, which complaints repeat, would be taken for a message or a line of the trace.
bool readsAsMessage(const std::string &value)
{
    return contains(value, "libsorel: ") || contains(value, "] radioOpen(");
}

} // namespace

void prepareTarget()
{
    destinationCells = new Cells("file", {logVariable, traceVariable},
                                 {"absent", "empty", "-", "file", "folder", "missing", "full"});
    levelCells = new Cells("level", {levelVariable},
                           {"absent", "empty", "short", "digit", "constant", "unknown"});
    scenarioCells = new Cells("scenario", {scenarioVariable},
                              {"absent", "empty", "missing", "folder", "good", "bad"});
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Variables variables = read(std::string(data, data + size));
    if (std::any_of(variables.begin(), variables.end(),
                    [](const auto &variable) { return readsAsMessage(variable.second); })) {
        return 0;
    }
    for (const MemoryFile *const output : {&errors(), &logFile(), &traceFile()}) {
        output->clear();
    }
    const Scenario scenario = scenarioOf(variables);
    if (scenario == notRegular && !std::filesystem::is_directory(variables.at(scenarioVariable))) {
        return 0; // who knows what is in it
    }
    const pid_t child = fork();
    if (child == 0) {
        runBoard(variables);
    }
    int status = 0;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR) {
        // libFuzzer looks at the clock now and then, by a signal
    }
    const std::string written = errors().content();
    check(WIFEXITED(status) && WEXITSTATUS(status) == 0, "the board ends the process");
    const Destination log = destinationOf(variables, logVariable);
    const Destination trace = destinationOf(variables, traceVariable);
    checkComplaints(logVariable, log, written);
    checkComplaints(traceVariable, trace, written);
    checkTrace(trace, written);
    // The context is null where the scenario is refused, and the call says so all the same.
    checkLog(variables, log, written);
    const bool refused = scenario == notThere || scenario == notRegular || scenario == bad;
    check(!refused || !written.empty(), "a scenario is refused without a word");
    destinationCells->count(0, log);
    destinationCells->count(1, trace);
    levelCells->count(0, levelOf(variables));
    scenarioCells->count(0, scenario);
    return 0;
}
