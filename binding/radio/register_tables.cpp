// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/register_tables.h"

#include "binding/radio/wrapper.h"

#include <cstdlib>

namespace
{

// Reads the table at index 1 into registers, honouring its metamethods. False at the first element
// that is no number; those after it are not read. May raise what a metamethod raises.
bool readRegisters(lua_State *L, std::uint32_t *registers, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        lua_pushnumber(L, static_cast<lua_Number>(i + 1));
        lua_gettable(L, 1);
        if (!lua_isnumber(L, -1)) {
            return false;
        }
        // Through the number's text: what does not read as decimal digits there is cut off.
        registers[i] = parseUnsigned32(lua_tostring(L, -1));
        lua_pop(L, 1);
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
    if (!readRegisters(L, registers, count)) {
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
