// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/register_tables.h"

#include "binding/radio/register_word.h"
#include "binding/radio/wrapper.h"

#include <algorithm>
#include <cstdlib>

namespace
{

// The word of the value at index: that of a number, or that of a string which Lua takes for one, by
// its text as it stands. False for anything else. Runs nothing in Lua.
bool readWord(lua_State *L, int index, std::uint32_t *word)
{
    if (lua_type(L, index) == LUA_TNUMBER) [[likely]] {
        *word = registerWord(lua_tonumber(L, index));
        return true;
    }
    if (lua_isnumber(L, index)) {
        *word = parseUnsigned32(lua_tostring(L, index));
        return true;
    }
    return false;
}

// Elements that are read at once: with the table they fit on the stack that any function has.
constexpr int batch = 16;
static_assert(batch + 1 < LUA_MINSTACK);

// Reads elements of the table at index 1 from key on, without its metamethods. Returns how many:
// fewer than count where one is no number.
int readRaw(lua_State *L, int key, int count, std::uint32_t *words)
{
    for (int i = 0; i < count; ++i) {
        lua_rawgeti(L, 1, key + i);
    }
    int read = 0;
    while (read < count && readWord(L, 2 + read, &words[read])) {
        ++read;
    }
    lua_settop(L, 1);
    return read;
}

// Reads the table at index 1 into registers, honouring its metamethods. False at the first element
// that is no number; those after it are not read. May raise what a metamethod raises.
bool readRegisters(lua_State *L, std::uint32_t *registers, int count)
{
    int read = 0;
    while (read < count) {
        const int wanted = std::min(batch, count - read);
        const int found = readRaw(L, read + 1, wanted, registers + read);
        read += found;
        if (found < wanted) {
            // It may be missing, and a metamethod know it. That may change those after it.
            lua_pushnumber(L, read + 1);
            lua_gettable(L, 1);
            if (!readWord(L, -1, &registers[read])) {
                return false;
            }
            lua_settop(L, 1);
            ++read;
        }
    }
    return true;
}

// An error that a metamethod raises leaves the array unreleased.
template <FixedString name, auto *function>
int setRegisters(lua_State *L)
{
    RadioContext *const context = appContext;
    checkArgumentCount(L, name.text, 1);
    if (!lua_istable(L, 1)) {
        raiseMessage(L, "Data values must be a table");
    }
    const std::size_t count = lua_objlen(L, 1);
    auto *const registers =
        static_cast<std::uint32_t *>(std::malloc(count * sizeof(std::uint32_t)));
    if (registers == nullptr) {
        raiseMessage(L, "Out of memory");
    }
    if (!readRegisters(L, registers, static_cast<int>(count))) {
        std::free(registers);
        raiseMessage(L, "Expected integer values in data");
    }
    if (context == nullptr) {
        std::free(registers);
        raiseMessage(L, noRadioContext);
    }
    const RadioReturn status = function(context, registers, static_cast<std::uint32_t>(count));
    std::free(registers);
    checkStatus<name>(L, status);
    return 0;
}

} // namespace

int radioSetRxGainRegistersWrapper(lua_State *L)
{
    return setRegisters<"radioSetRxGainRegisters", radioSetRxGainRegisters>(L);
}

int radioSetTxPowerRegistersWrapper(lua_State *L)
{
    return setRegisters<"radioSetTxPowerRegisters", radioSetTxPowerRegisters>(L);
}
