// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/lua_programs/stock_faults.h"

#include "fuzz/lua_programs/shell.h"

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>

namespace
{

// A string that is given as an argument; a number is none here, and always short.
const char *textArgument(lua_State *L, int index, std::size_t *size)
{
    *size = 0;
    return lua_type(L, index) == LUA_TSTRING ? lua_tolstring(L, index, size) : "";
}

// Matching calls itself for each item of the pattern, without a bound, and tries all ways to match
// what repetitions leave open, which takes time without a bound.
bool isEndlessPattern(lua_State *L)
{
    std::size_t subject = 0;
    std::size_t size = 0;
    textArgument(L, 1, &subject);
    const char *const pattern = textArgument(L, 2, &size);
    int repetitions = 1;
    for (std::size_t i = 0; i < size; ++i) {
        repetitions +=
            pattern[i] == '*' || pattern[i] == '+' || pattern[i] == '-' || pattern[i] == '?';
    }
    constexpr std::size_t mostItems = 1000;
    constexpr double mostSteps = 1e7;
    return size > mostItems || std::pow(static_cast<double>(subject + 1), repetitions) > mostSteps;
}

// The number of values is formed without a look at whether it can be.
bool unpacksTooMany(lua_State *L)
{
    if (!lua_istable(L, 1)) {
        return false;
    }
    const auto first = lua_isnoneornil(L, 2) ? 1 : static_cast<int>(lua_tointeger(L, 2));
    const auto last = lua_isnoneornil(L, 3) ? static_cast<int>(lua_objlen(L, 1))
                                            : static_cast<int>(lua_tointeger(L, 3));
    return std::int64_t{last} - first >= INT_MAX;
}

// Elements are moved one by one down to a position however far below the first.
bool insertsFarBelow(lua_State *L)
{
    return lua_gettop(L) == 3 && static_cast<int>(lua_tointeger(L, 2)) < -1000000;
}

// Repeating nothing takes as long as repeating something.
bool repeatsNothing(lua_State *L)
{
    std::size_t size = 0;
    textArgument(L, 1, &size);
    return size == 0 && lua_tonumber(L, 2) > 1e6;
}

// What the collector was at can have been taken off its list.
bool collectsWhileClosed(lua_State *L)
{
    const char *const option = luaL_optstring(L, 1, "collect");
    return stateCloses() &&
           (std::strcmp(option, "collect") == 0 || std::strcmp(option, "step") == 0);
}

struct Exclusion {
    const char *library; // null: the globals
    const char *name;
    bool (*applies)(lua_State *L);
};

constexpr Exclusion exclusions[] = {
    {"string", "find", isEndlessPattern},
    {"string", "match", isEndlessPattern},
    {"string", "gmatch", isEndlessPattern},
    {"string", "gfind", isEndlessPattern},
    {"string", "gsub", isEndlessPattern},
    {"string", "rep", repeatsNothing},
    {"table", "insert", insertsFarBelow},
    {nullptr, "unpack", unpacksTooMany},
    {nullptr, "collectgarbage", collectsWhileClosed},
};

constexpr std::size_t exclusionCount = sizeof exclusions / sizeof exclusions[0];

// Found before anything asks for it: looking for it drops the error.
const auto libraryError = reinterpret_cast<char *(*)()>(dlsym(RTLD_NEXT, "dlerror"));

lua_CFunction originals[exclusionCount];

template <std::size_t i>
int callUnlessExcluded(lua_State *L)
{
    if (exclusions[i].applies(L)) {
        return luaL_error(L, "excluded: a fault of Lua's own");
    }
    return originals[i](L);
}

template <std::size_t i = 0>
void exclude(lua_State *L)
{
    if constexpr (i < exclusionCount) {
        if (exclusions[i].library != nullptr) {
            lua_getglobal(L, exclusions[i].library);
        } else {
            lua_pushvalue(L, LUA_GLOBALSINDEX);
        }
        lua_getfield(L, -1, exclusions[i].name);
        originals[i] = lua_tocfunction(L, -1);
        lua_pop(L, 1);
        lua_pushcclosure(L, callUnlessExcluded<i>, 0);
        lua_setfield(L, -2, exclusions[i].name);
        lua_pop(L, 1);
        exclude<i + 1>(L);
    }
}

// Hands on what another reader gives, but for what begins as compiled code does.
struct TextReader {
    lua_Reader reader;
    void *data;
    bool begun;

    static const char *read(lua_State *L, void *self, std::size_t *size)
    {
        auto *const source = static_cast<TextReader *>(self);
        const char *const text = source->reader(L, source->data, size);
        if (!source->begun && text != nullptr && *size != 0) {
            source->begun = true;
            if (text[0] == LUA_SIGNATURE[0]) {
                luaL_error(L, "excluded: compiled code");
            }
        }
        return text;
    }
};

} // namespace

void excludeStockFaults(lua_State *L)
{
    exclude(L);
}

// Before the C library's, whose text lasts only until a library is loaded, which a finaliser can do
// before Lua has read it.
extern "C" char *dlerror()
{
    static char text[1000];
    // The sanitizers ask while the program is being loaded.
    const char *const given = libraryError != nullptr ? libraryError() : nullptr;
    if (given == nullptr) {
        return nullptr;
    }
    std::snprintf(text, sizeof text, "%s", given);
    return text;
}

// Before Lua's own. All that loads code comes here, and compiled code is not checked.
extern "C" int lua_load(lua_State *L, lua_Reader reader, void *data, const char *name)
{
    using Load = int (*)(lua_State *, lua_Reader, void *, const char *);
    static const auto load = reinterpret_cast<Load>(dlsym(RTLD_NEXT, "lua_load"));
    if (!programRuns()) {
        return load(L, reader, data, name);
    }
    TextReader text{reader, data, false};
    return load(L, TextReader::read, &text, name);
}
