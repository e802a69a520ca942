// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/register_tables.h"

#include "binding/radio/block_guard.h"
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

// Elements that are read at once: with the table and a guard they fit on the stack that any
// function has.
constexpr int batch = 16;
static_assert(2 + batch < LUA_MINSTACK);

// Reads elements of the table at index 1 from key on, without its metamethods. Returns how many:
// fewer than count where one is no number. The stack stays as it was, with top values.
int readRaw(lua_State *L, int top, int key, int count, std::uint32_t *words)
{
    for (int i = 0; i < count; ++i) {
        lua_rawgeti(L, 1, key + i);
    }
    int read = 0;
    while (read < count && readWord(L, top + 1 + read, &words[read])) {
        ++read;
    }
    lua_settop(L, top);
    return read;
}

// Reads the table at index 1 into registers, honouring its metamethods. False at the first element
// that is no number; those after it are not read. May raise what a metamethod raises.
bool readRegisters(lua_State *L, std::uint32_t *registers, int count)
{
    const int top = lua_gettop(L);
    int read = 0;
    while (read < count) {
        const int wanted = std::min(batch, count - read);
        const int found = readRaw(L, top, read + 1, wanted, registers + read);
        read += found;
        if (found < wanted) {
            // It may be missing, and a metamethod know it. That may change those after it.
            lua_pushnumber(L, read + 1);
            lua_gettable(L, 1);
            if (!readWord(L, -1, &registers[read])) {
                return false;
            }
            lua_settop(L, top);
            ++read;
        }
    }
    return true;
}

// The array of one call.
struct RegisterArray {
    std::uint32_t *words;
    BlockGuard *guard; // null where nothing can raise while the array is filled

    void release()
    {
        if (guard != nullptr) {
            releaseBlock(guard);
        } else {
            std::free(words);
        }
    }
};

// An array for that many words; null words without memory for it.
RegisterArray allocateRegisters(BlockGuard *guard, std::size_t count)
{
    const std::size_t size = count * sizeof(std::uint32_t);
    auto *const words = static_cast<std::uint32_t *>(std::malloc(size));
    if (guard != nullptr) {
        guardBlock(guard, words, words != nullptr ? size : 0);
    }
    return {words, guard};
}

// Pushes a guard for the array of the table at index 1 if it can be needed: only a metamethod of
// the table can raise while the array is filled.
BlockGuard *pushGuardIfNeeded(lua_State *L)
{
    if (!lua_getmetatable(L, 1)) {
        return nullptr;
    }
    lua_settop(L, 1);
    return pushBlockGuard(L);
}

template <FixedString name, auto *function>
int setRegisters(lua_State *L)
{
    RadioContext *const context = appContext;
    checkArgumentCount(L, name.text, 1);
    if (!lua_istable(L, 1)) {
        raiseMessage(L, "Data values must be a table");
    }
    BlockGuard *const guard = pushGuardIfNeeded(L);
    const std::size_t count = lua_objlen(L, 1); // after the guard, which may run finalisers
    RegisterArray registers = allocateRegisters(guard, count);
    if (registers.words == nullptr) {
        raiseMessage(L, "Out of memory");
    }
    if (!readRegisters(L, registers.words, static_cast<int>(count))) {
        registers.release();
        raiseMessage(L, "Expected integer values in data");
    }
    if (context == nullptr) {
        registers.release();
        raiseMessage(L, noRadioContext);
    }
    const RadioReturn status =
        function(context, registers.words, static_cast<std::uint32_t>(count));
    registers.release();
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
