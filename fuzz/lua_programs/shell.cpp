// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/lua_programs/shell.h"

#include "app/context.h"
#include "app/libraries.h"
#include "app/lua_state.h"
#include "app/opening.h"
#include "fuzz/lua_programs/stock_faults.h"

#include <algorithm>
#include <clocale>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace
{

constexpr std::size_t mostMemory = std::size_t{32} << 20;
constexpr int instructionsPerCall = 1000;
constexpr int mostHookCalls = 300;

// Written behind each block: Lua's own code is compiled without a sanitizer, and may be made to
// write there by a function that pushes more than there is room for.
constexpr unsigned char seal[8] = {0xa5, 0x5a, 0xc3, 0x3c, 0x96, 0x69, 0xf0, 0x0f};

std::size_t usedMemory = 0;
std::size_t memoryLimit = mostMemory;
int hookCalls = 0;

bool running = false;
bool closing = false;
std::jmp_buf unwindTo;

[[noreturn]] void giveUp(const char *reason, const char *detail)
{
    dprintf(STDERR_FILENO, "lua_programs: %s: %s\n", reason, detail);
    std::abort();
}

void checkSeal(const void *block, std::size_t size)
{
    if (std::memcmp(static_cast<const char *>(block) + size, seal, sizeof seal) != 0) {
        giveUp("memory of Lua", "written beyond its end");
    }
}

void *allocate(void *, void *block, std::size_t oldSize, std::size_t newSize)
{
    if (block != nullptr) {
        checkSeal(block, oldSize);
    }
    if (newSize == 0) {
        usedMemory -= block != nullptr ? oldSize : 0;
        std::free(block);
        return nullptr;
    }
    const std::size_t others = usedMemory - (block != nullptr ? oldSize : 0);
    if (newSize > oldSize && (newSize > memoryLimit || others > memoryLimit - newSize)) {
        return nullptr;
    }
    auto *const moved = static_cast<char *>(std::realloc(block, newSize + sizeof seal));
    if (moved == nullptr) {
        giveUp("memory", "none left");
    }
    std::memcpy(moved + newSize, seal, sizeof seal);
    usedMemory = others + newSize;
    return moved;
}

// A program cannot catch this, as it could an error.
void countInstructions(lua_State *, lua_Debug *)
{
    if (running && ++hookCalls > mostHookCalls) {
        endProgram(End::budget);
    }
}

int panic(lua_State *L)
{
    const char *const message = lua_tostring(L, -1);
    giveUp("an error that nothing catches", message != nullptr ? message : "no text");
}

// The debug library can do anything to the process, and whoever uses it answers for that.
void takeDebugLibraryAway(lua_State *L)
{
    lua_pushnil(L);
    lua_setglobal(L, "debug");
    lua_getfield(L, LUA_REGISTRYINDEX, "_LOADED");
    lua_pushnil(L);
    lua_setfield(L, -2, "debug");
    lua_pop(L, 1);
}

int append(lua_State *, const void *bytes, std::size_t size, void *text)
{
    static_cast<std::string *>(text)->append(static_cast<const char *>(bytes), size);
    return 0;
}

std::string dumpLoaded(lua_State *L, int loadStatus)
{
    if (loadStatus != 0) {
        giveUp("cannot compile", lua_tostring(L, -1));
    }
    std::string code;
    lua_dump(L, append, &code);
    lua_pop(L, 1);
    return code;
}

void keepLibraries(lua_State *L, void *)
{
    keepLoadedLibraries(L);
}

void closeState(lua_State *L, void *)
{
    lua_close(L);
}

// Nothing collects garbage meanwhile: see fuzz/stock_lua_faults/collected_while_closed.lua. Lua
// does so by itself once a finaliser has made its memory twice as large.
void beginClosing()
{
    closing = true;
    memoryLimit = std::min(mostMemory, 2 * usedMemory - 1);
}

} // namespace

lua_State *startShell()
{
    appRadioOpen();
    closing = false;
    usedMemory = 0;
    memoryLimit = mostMemory;
    lua_State *const L = lua_newstate(allocate, nullptr);
    appLuaState = L;
    lua_atpanic(L, panic);
    beginOpening(L);
    luaL_openlibs(L);
    openShellLibraries(L);
    endOpening(L);

    takeDebugLibraryAway(L);
    excludeStockFaults(L);
    lua_sethook(L, countInstructions, LUA_MASKCOUNT, instructionsPerCall);
    return L;
}

void endShell(lua_State *L, End end)
{
    bool whole = end == End::finished;
    appRadioClose();
    if (whole) {
        whole = runProgram(L, keepLibraries, nullptr) == End::finished;
    }
    beginClosing();
    // A finaliser can end the program once more; those after it are still called.
    while (runProgram(L, closeState, nullptr) != End::finished) {
        whole = false;
    }
    appLuaState = nullptr;
    appRadioClose(); // a finaliser may have opened it
    std::setlocale(LC_ALL, "C");
    if (whole && usedMemory != 0) {
        giveUp("memory of Lua", "not all released");
    }
}

End runProgram(lua_State *L, void (*work)(lua_State *L, void *argument), void *argument)
{
    hookCalls = 0;
    running = true;
    const int end = setjmp(unwindTo);
    if (end == 0) {
        work(L, argument);
    }
    running = false;
    return static_cast<End>(end);
}

bool programRuns()
{
    return running;
}

bool stateCloses()
{
    return closing;
}

void endProgram(End end)
{
    std::longjmp(unwindTo, static_cast<int>(end));
}

std::string compileFile(lua_State *L, const char *name)
{
    const std::string path = std::string(LUA_PROGRAMS_DIR) + "/" + name;
    return dumpLoaded(L, luaL_loadfile(L, path.c_str()));
}

std::string compileText(lua_State *L, const std::string &text, const char *name)
{
    return dumpLoaded(L, luaL_loadbuffer(L, text.data(), text.size(), name));
}

void pushCompiled(lua_State *L, const std::string &code)
{
    if (luaL_loadbuffer(L, code.data(), code.size(), "compiled") != 0) {
        giveUp("cannot load", lua_tostring(L, -1));
    }
}
