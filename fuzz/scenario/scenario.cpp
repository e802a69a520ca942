// SPDX-License-Identifier: LicenseRef-Proprietary
// Scenario files, the faults in them included: an input is the file. Either radioOpen refuses it
// and says where and why, or there is a board, which answers calls, and the same again.
#include "fuzz/board.h"
#include "fuzz/cells.h"
#include "fuzz/ending.h"
#include "fuzz/scenario/rules.h"
#include "fuzz/streams.h"
#include "fuzz/target.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace
{

constexpr int callCount = 100;
constexpr std::size_t mostReported = 100;

Cells *keyCells;
constexpr std::size_t inTakenFile = valueKinds;
constexpr std::size_t inRefusedFile = valueKinds + 1;

Cells *ends;
enum End : std::size_t { board, noToml, mistakes, manyMistakes, injectedNull };

void check(bool holds, const char *what)
{
    if (!holds) {
        failTarget(what);
    }
}

struct Opened {
    bool board = false;
    std::string complaints;
    std::string answers;
};

Opened openAndCall(const char *path, std::uint32_t seed)
{
    Opened opened;
    radioSelectPlatform(RADIO_PLATFORM_DEFAULT);
    setenv("SOREL_SIM_SCENARIO", path, 1);
    beginStreams("");
    RadioContext *const context = radioOpen();
    opened.complaints = takeWritten().err;
    if (context != nullptr) {
        opened.board = true;
        radioInit(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7);
        opened.answers = callFunctions(context, seed, callCount);
        radioClose(context);
    }
    endStreams();
    // Counts of calls begin anew with another file.
    unsetenv("SOREL_SIM_SCENARIO");
    radioClose(radioOpen());
    return opened;
}

// One of "PATH:LINE:COLUMN: TEXT" and "PATH: TEXT".
void checkComplaint(const std::string &line, const std::string &path, std::size_t lineCount)
{
    check(line.rfind(path, 0) == 0, "a complaint that does not begin with the file");
    unsigned row = 0;
    unsigned column = 0;
    int length = 0;
    const char *const rest = line.c_str() + path.size();
    if (std::sscanf(rest, ":%u:%u: %n", &row, &column, &length) == 2 && length > 0) {
        check(row >= 1 && row <= lineCount && column >= 1, "a place that is not in the file");
        check(rest[length] != '\0', "a complaint without a text");
    } else {
        check(std::strncmp(rest, ": ", 2) == 0 && rest[2] != '\0', "a complaint of another form");
    }
    check(std::none_of(
              line.begin(), line.end(),
              [](char byte) { return static_cast<unsigned char>(byte) < ' ' || byte == '\x7f'; }),
          "a control character reaches the terminal");
}

std::size_t checkComplaints(const Opened &opened, const std::string &path, const std::string &file)
{
    const auto lineCount = static_cast<std::size_t>(std::count(file.begin(), file.end(), '\n')) + 1;
    std::istringstream lines(opened.complaints);
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        checkComplaint(line, path, lineCount);
    }
    check(count <= mostReported + 1, "more complaints than are promised");
    return count;
}

void checkJudgement(const Opened &opened, const Judgement &judgement, std::size_t complaints,
                    const std::string &file)
{
    if (opened.board) {
        check(complaints == 0, "complaints of a file that is taken");
        check(judgement.isToml && !judgement.mustBeRefused, "a file that has to be refused");
        ends->count(0, board);
        return;
    }
    if (complaints == 0) { // a fault
        check(judgement.isToml && !judgement.mustBeRefused, "no complaint");
        check(file.find("null") != std::string::npos || file.find('\\') != std::string::npos,
              "no board without a reason");
        ends->count(0, injectedNull);
        return;
    }
    check(!judgement.mustBeTaken, "a file that must not be refused");
    check(judgement.isToml || complaints == 1, "more than one complaint of what is not TOML");
    ends->count(0, !judgement.isToml           ? noToml
                   : complaints > mostReported ? manyMistakes
                                               : mistakes);
}

} // namespace

void prepareTarget()
{
    unsetenv("SOREL_SIM_TRACE");
    unsetenv("SOREL_SIM_LOG");
    unsetenv("SOREL_SIM_LOG_LEVEL");
    keyCells = new Cells(
        "key", keyRows(),
        {"integer", "float", "text", "boolean", "date", "list", "table", "taken", "refused"});
    keyCells->leaveOut(unknownKeyRow(), inTakenFile);
    ends =
        new Cells("end", {"of a file"}, {"board", "no TOML", "mistakes", "over 100", "no board"});
    prepareFunctionCells();
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string file(data, data + size);
    const Judgement judgement = judge(file);
    const std::string path = inputFile(file);
    const Opened opened = openAndCall(path.c_str(), seedOf(file));
    checkJudgement(opened, judgement, checkComplaints(opened, path, file), file);
    if (opened.board && !judgement.followsRealTime) {
        check(openAndCall(path.c_str(), seedOf(file)).answers == opened.answers,
              "another run answers otherwise");
    }
    for (const KeyMet &key : judgement.keys) {
        keyCells->count(key.row, key.kind);
        keyCells->count(key.row, opened.board ? inTakenFile : inRefusedFile);
    }
    return 0;
}
