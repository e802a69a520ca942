// SPDX-License-Identifier: LicenseRef-Proprietary
// Lua programs in a state like the shell's, on the simulated board.
//
// An input that begins with 'S' and a number is the systematic part: every function whose number
// leaves that rest gets every kind of value as its first, second and third argument. Any other is a
// program that its bytes choose. With FUZZ_SHOW in the environment, programs are printed, and calls
// as they are made. With LUA_PROGRAMS_WITHOUT no function gets the kind of value that it names,
// which fails the run.
#include "fuzz/target.h"

#include "fuzz/cells.h"
#include "fuzz/lua_programs/objects.h"
#include "fuzz/lua_programs/program.h"
#include "fuzz/lua_programs/sandbox.h"
#include "fuzz/lua_programs/shell.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <lua.hpp>
#include <memory>
#include <sys/time.h>
#include <unistd.h>

extern "C" const char *__asan_default_options();

namespace
{

constexpr std::size_t sweepInputs = 64;
constexpr int mostSeconds = 20;

Supply supply;
std::unique_ptr<Cells> cells;
std::string values;
std::string functions;
std::size_t kindBegun = 0;
bool showing = false;

constexpr char header[] =
    "local F, T, V, met, at, long = ...\n"
    "local pcall, unpack, wrap, yield = pcall, unpack, coroutine.wrap, coroutine.yield\n"
    "local setmetatable, collectgarbage, radioOpen, radioClose, radioInit =\n"
    "    setmetatable, collectgarbage, radioOpen, radioClose, radioInit\n";

// The function and the kinds that a program is about to call it with.
int noteMet(lua_State *L)
{
    const auto function = static_cast<std::size_t>(lua_tointeger(L, 1) - 1);
    std::string call;
    for (int i = 2; i <= lua_gettop(L); ++i) {
        const auto kind = static_cast<std::size_t>(lua_tointeger(L, i) - 1);
        cells->count(function, kind);
        if (showing) {
            call += (i > 2 ? ", " : "") + supply.kinds[kind];
        }
    }
    if (showing) {
        dprintf(STDERR_FILENO, "%s(%s)\n", supply.functions[function].c_str(), call.c_str());
    }
    return 0;
}

int noteKind(lua_State *L)
{
    kindBegun = static_cast<std::size_t>(lua_tointeger(L, 1));
    return 0;
}

void fail(const char *reason)
{
    dprintf(STDERR_FILENO, "lua_programs: %s\n", reason); // stderr may be the sandbox's
    std::abort();
}

void callOrFail(lua_State *L, int arguments, int results)
{
    if (lua_pcall(L, arguments, results, 0) != 0) {
        const char *const message = lua_tostring(L, -1);
        fail(message != nullptr ? message : "an error without a message");
    }
}

// Pushes what programs get.
void pushSupply(lua_State *L)
{
    pushCompiled(L, functions);
    callOrFail(L, 0, 2);
    pushCompiled(L, values);
    callOrFail(L, pushObjectMakers(L), 2);
    lua_remove(L, -2);
    lua_pushcclosure(L, noteMet, 0);
    lua_pushcclosure(L, noteKind, 0);
    lua_createtable(L, 8000, 0);
    for (int i = 1; i <= 8000; ++i) {
        lua_pushnumber(L, i);
        lua_rawseti(L, -2, i);
    }
}

void callProgram(lua_State *L, void *)
{
    lua_pcall(L, 6, 0, 0);
}

void sayHang(int)
{
    static constexpr char message[] = "lua_programs: a program does not end\n";
    static_cast<void>(!write(STDERR_FILENO, message, sizeof message - 1));
    std::abort();
}

void limitTime(int seconds)
{
    const itimerval limit = {{0, 0}, {seconds, 0}};
    setitimer(ITIMER_VIRTUAL, &limit, nullptr);
}

void closeWhatIsOpen()
{
    closeFiles();
    closeDescriptors();
}

// What is open, by the names that the kernel has for it.
std::string listOpen()
{
    std::string list;
    std::error_code closed; // as the folder itself is, after it is listed
    for (const auto &entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        list += std::filesystem::read_symlink(entry, closed).string() + '\n';
    }
    return list;
}

// Runs a program in a state of its own.
End run(const std::string &program)
{
    const std::string text = header + program;
    const std::string open = listOpen();
    if (showing) {
        std::fprintf(stderr, "%s\n", text.c_str());
    }
    enterSandbox();
    lua_State *const L = startShell();
    if (luaL_loadbuffer(L, text.data(), text.size(), "=program") != 0) {
        fail(lua_tostring(L, -1));
    }
    pushSupply(L);
    limitTime(mostSeconds);
    const End end = runProgram(L, callProgram, nullptr);
    endShell(L, end);
    limitTime(0);
    leaveSandbox();
    closeWhatIsOpen();
    if (const std::string left = listOpen(); left != open) {
        fail(("what is open has changed; before:\n" + open + "after:\n" + left).c_str());
    }
    return end;
}

// A program that ends early is taken up again behind what it ended with.
void sweep(std::size_t function, std::size_t position)
{
    std::size_t kind = 1;
    while (kind <= supply.kinds.size() &&
           run(writeSweep(supply, function, position, kind)) != End::finished) {
        kind = kindBegun + 1;
    }
}

std::vector<std::string> readList(lua_State *L, int index)
{
    std::vector<std::string> list;
    for (int i = 1; i <= static_cast<int>(lua_objlen(L, index)); ++i) {
        lua_rawgeti(L, index, i);
        list.emplace_back(lua_tostring(L, -1));
        lua_pop(L, 1);
    }
    return list;
}

std::size_t findKind(const char *name)
{
    for (std::size_t i = 0; i < supply.kinds.size(); ++i) {
        if (supply.kinds[i] == name) {
            return i + 1;
        }
    }
    fail(name);
    return 0;
}

// By the makers on top of the stack.
void makeEachKind(lua_State *L, void *)
{
    for (std::size_t i = 1; i <= supply.kinds.size(); ++i) {
        if (i != supply.nothing) {
            lua_rawgeti(L, -1, static_cast<int>(i));
            callOrFail(L, 0, 0);
        }
    }
}

void readKinds(lua_State *L)
{
    values = compileFile(L, "values.lua");
    pushCompiled(L, values);
    callOrFail(L, pushObjectMakers(L), 2);
    supply.kinds = readList(L, lua_gettop(L) - 1);
    supply.nothing = findKind("nothing");
    lua_gc(L, LUA_GCSTOP, 0); // finalisers of what they make raise errors
    if (runProgram(L, makeEachKind, nullptr) != End::finished) {
        fail("a kind of value ends the program");
    }
    lua_pop(L, 2);
}

std::string joined(const std::vector<std::string> &expressions)
{
    std::string text = "{";
    for (const std::string &expression : expressions) {
        text += expression + ",\n";
    }
    return text + "}";
}

void readFunctions(lua_State *L)
{
    pushCompiled(L, compileFile(L, "functions.lua"));
    callOrFail(L, 0, 4);
    const int top = lua_gettop(L);
    supply.functions = readList(L, top - 2);
    const std::vector<std::string> tables = readList(L, top - 1);
    supply.tables = tables.size();
    for (int i = 1; i <= static_cast<int>(supply.functions.size()); ++i) {
        lua_rawgeti(L, top, i);
        supply.selfKinds.push_back(lua_isnil(L, -1) ? 0 : findKind(lua_tostring(L, -1)));
        lua_pop(L, 1);
    }
    const std::string fetch = lua_tostring(L, top - 3) + std::string("return ") +
                              joined(supply.functions) + "," + joined(tables);
    functions = compileText(L, fetch, "=functions");
    lua_pop(L, 4);
}

} // namespace

// Scripts can lose memory of the driver's: by taking __gc away, say. And what they ask for in vain
// is no mistake.
extern "C" const char *__asan_default_options()
{
    return "detect_leaks=0:allocator_may_return_null=1:max_allocation_size_mb=256";
}

void prepareTarget()
{
    for (const char *const name : {"SOREL_SIM_SCENARIO", "SOREL_SIM_TRACE", "SOREL_SIM_LOG",
                                   "SOREL_SIM_LOG_LEVEL", "LUA_PATH", "LUA_CPATH"}) {
        unsetenv(name);
    }
    showing = std::getenv("FUZZ_SHOW") != nullptr;
    std::signal(SIGVTALRM, sayHang);
    prepareSandbox();
    lua_State *const L = startShell();
    enterSandbox();
    readKinds(L);
    leaveSandbox();
    readFunctions(L);
    endShell(L, End::finished);
    closeWhatIsOpen();
    const char *const withheld = std::getenv("LUA_PROGRAMS_WITHOUT");
    supply.withheld = withheld != nullptr ? findKind(withheld) : 0;
    cells = std::make_unique<Cells>("function", supply.functions, supply.kinds);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 2 && data[0] == 'S') {
        for (std::size_t f = data[1] % sweepInputs; f < supply.functions.size(); f += sweepInputs) {
            for (std::size_t position = 0; position < 3; ++position) {
                sweep(f, position);
            }
        }
    } else {
        run(writeProgram(supply, Choices(data, size)));
    }
    return 0;
}
