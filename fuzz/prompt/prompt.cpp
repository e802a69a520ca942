// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes at the prompt: an input is what is typed. What the loop runs, prints and leaves on the Lua
// stack, and how it ends, is compared with the model. Lines that begin with an escape are left out:
// malformed bytecode is a fault of stock Lua.
#include "app/context.h"
#include "app/interactive.h"
#include "app/lua_state.h"
#include "app/opening.h"
#include "fuzz/cells.h"
#include "fuzz/ending.h"
#include "fuzz/prompt/blocks.h"
#include "fuzz/prompt/model.h"
#include "fuzz/streams.h"
#include "fuzz/target.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <lua.hpp>

namespace
{

Cells *lineCells;
enum LineOutcome : std::size_t { runsWell, doesNotCompile, fails, isNotRun, lineOutcomes };
Cells *errorCells;
Cells *endCells;
enum End : std::size_t { byWord, byLongLine, byEndOfInput, byEndlessLoop };

// What the loop has done so far.
struct Observed {
    std::vector<std::string> run;
    std::vector<LineOutcome> outcomes;
    std::string out;
    std::string err;
    std::string complaints; // what it has to print of the failures
    int failures = 0;
    int stackBefore = 0;
    bool lackedMemory = false; // the last line
    bool whole = true;
};

Observed observed;
std::string tameLua;

constexpr int instructionsBetweenHooks = 1000;
constexpr int mostHooks = 100;
int hooks = 0;

void check(bool holds, const char *what)
{
    if (!holds) {
        failTarget(what);
    }
}

void countHook(lua_State *, lua_Debug *)
{
    if (++hooks > mostHooks) {
        abandonRun();
    }
}

void takeShellOutput()
{
    const Written written = takeWritten();
    observed.out += written.out;
    observed.err += written.err;
    observed.whole = observed.whole && written.whole;
}

// Notes what a load or call of the loop gave.
void noteFailure(lua_State *L, int status, LineOutcome outcome)
{
    observed.lackedMemory = status == LUA_ERRMEM;
    observed.outcomes.back() = outcome;
    ++observed.failures;
    errorCells->count(0, static_cast<std::size_t>(lua_type(L, -1)));
    // Not on the value itself, which that could change.
    lua_pushvalue(L, -1);
    const char *const text = lua_tostring(L, -1);
    observed.complaints +=
        std::string("failed to process stdin: \"") + (text != nullptr ? text : "(null)") + "\"\n";
    lua_pop(L, 1);
}

} // namespace

// In place of the calls that the loop makes.
extern "C" {

int __real_luaL_loadbuffer(lua_State *L, const char *text, std::size_t size, const char *name);
int __real_lua_pcall(lua_State *L, int arguments, int results, int handler);

int __wrap_luaL_loadbuffer(lua_State *L, const char *text, std::size_t size, const char *name)
{
    if (observed.lackedMemory) {
        // The loop asks whether the stack has room for the error value, which it drops otherwise.
        observed.lackedMemory = false;
        const int status = __real_luaL_loadbuffer(L, text, size, name);
        observed.failures -= status != 0 ? 1 : 0;
        return status;
    }
    if (size > 0 && *text == LUA_SIGNATURE[0]) {
        abandonRun();
    }
    check(std::string(name) == "stdin", "another name of the chunk");
    check(lua_gettop(L) == observed.stackBefore + observed.failures,
          "not one value for each failure on the stack");
    observed.run.emplace_back(text, size);
    observed.outcomes.push_back(runsWell);
    const int status = __real_luaL_loadbuffer(L, text, size, name);
    if (status != 0) {
        noteFailure(L, status, doesNotCompile);
    }
    return status;
}

int __wrap_lua_pcall(lua_State *L, int arguments, int results, int handler)
{
    takeShellOutput();
    const int status = __real_lua_pcall(L, arguments, results, handler);
    takeWritten(); // the script's
    if (status != 0) {
        noteFailure(L, status, fails);
    }
    return status;
}
}

namespace
{

void prepareState(lua_State *L)
{
    beginOpening(L);
    luaL_openlibs(L);
    openShellLibraries(L);
    endOpening(L);
    if (__real_luaL_loadbuffer(L, tameLua.data(), tameLua.size(), "tame.lua") != 0 ||
        __real_lua_pcall(L, 0, 0, 0) != 0) {
        failTarget(lua_tostring(L, -1));
    }
}

// The assertion of a line that does not fit.
constexpr char assertion[] = "app/sorelapp:262: cmdGetLine: read - input < inLen";

void checkEnd(const Session &session, const Ending &ending)
{
    if (session.end == SessionEnd::word) {
        check(ending.way == Ending::returned, "the loop is not left at the word");
        endCells->count(0, byWord);
    } else {
        check(ending.way == Ending::asserted && ending.assertion == assertion,
              "another end than the assertion");
        endCells->count(0, session.end == SessionEnd::longLine ? byLongLine : byEndOfInput);
    }
}

void checkLines(const Session &session, bool whole)
{
    std::size_t ran = 0;
    for (const Line &line : session.lines) {
        LineOutcome outcome = isNotRun;
        if (!line.run.empty() || (line.kind != emptyLine && line.kind > quitCallLine)) {
            if (ran == observed.run.size()) {
                check(!whole, "a line is not run");
                return;
            }
            check(observed.run[ran] == line.run, "another text is run");
            outcome = observed.outcomes[ran++];
        }
        lineCells->count(line.kind, outcome);
    }
    check(ran == observed.run.size(), "more is run than is typed");
}

void checkOutput(const Session &session)
{
    std::string prompts;
    for (std::size_t i = 0; i < session.prompts(); ++i) {
        prompts += "sorelapp> ";
    }
    check(observed.out == prompts, "another output than prompts");
    check(observed.err == observed.complaints, "another output than of the failures");
}

} // namespace

void prepareTarget()
{
    unsetenv("SOREL_SIM_SCENARIO");
    unsetenv("SOREL_SIM_TRACE");
    unsetenv("SOREL_SIM_LOG");
    unsetenv("LUA_INIT");
    std::ifstream file(TAME_LUA);
    tameLua.assign(std::istreambuf_iterator<char>(file), {});
    lineCells = new Cells("line",
                          {"empty", "exit", "quit", "exit()", "quit()", "nearly a word", "help",
                           "ended by a zero byte", "198 bytes", "control bytes", "bytes above 127",
                           "other"},
                          {"runs", "does not compile", "fails", "not run"});
    for (std::size_t kind = 0; kind < lineKinds; ++kind) {
        const bool runs = kind >= nearlyExit;
        for (std::size_t outcome = 0; outcome < lineOutcomes; ++outcome) {
            if (runs == (outcome == isNotRun)) {
                lineCells->leaveOut(kind, outcome);
            }
        }
    }
    lineCells->leaveOut(help, doesNotCompile);
    // In the order of Lua's types.
    errorCells = new Cells(
        "error value", {"of a line"},
        {"nil", "boolean", "light", "number", "string", "table", "function", "userdata", "thread"});
    errorCells->leaveOut(0, LUA_TLIGHTUSERDATA); // no script has one
    endCells =
        new Cells("end", {"of the input"}, {"word", "long line", "end of input", "endless loop"});
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char *>(data), size);
    const Session session = sessionOf(input);
    observed = {};
    hooks = 0;
    radioSelectPlatform(RADIO_PLATFORM_DEFAULT);
    beginStreams(input);
    appRadioOpen();
    Blocks blocks;
    lua_State *const L = lua_newstate(allocateBlock, &blocks);
    prepareState(L);
    takeWritten();
    observed.stackBefore = lua_gettop(L);
    lua_sethook(L, countHook, LUA_MASKCOUNT, instructionsBetweenHooks);

    const Ending ending = runToItsEnd([L] { runInteractive(L); });

    takeShellOutput();
    const bool abandoned = ending.way == Ending::abandoned;
    if (abandoned) {
        endCells->count(0, byEndlessLoop);
    } else {
        checkEnd(session, ending);
    }
    checkLines(session, !abandoned);
    if (!abandoned && observed.whole) {
        checkOutput(session);
    }

    hooks = 0;
    runToItsEnd([L] { lua_close(L); });
    appRadioClose();
    endStreams();
    if (ending.way != Ending::returned) {
        releaseShellBlocks();
    }
    forgetShellBlocks();
    return 0;
}
