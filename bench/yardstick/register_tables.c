/* SPDX-License-Identifier: LicenseRef-Proprietary */
#include "bench/yardstick/register_tables.h"

#include <sorel.h>
#include <stdlib.h>

extern RadioContext *appContext;

/* strtoul() as it is where unsigned long has 32 bits. A longer one would wrap a negative number
 * before it could be told whether its magnitude fits; a longer strtol() holds either. */
static uint32_t toUnsigned32(const char *text)
{
    if (sizeof(unsigned long) == sizeof(uint32_t)) {
        return (uint32_t)strtoul(text, NULL, 10);
    }
    const long value = strtol(text, NULL, 10);
    const unsigned long magnitude = value < 0 ? 0UL - (unsigned long)value : (unsigned long)value;
    return magnitude > UINT32_MAX ? UINT32_MAX : (uint32_t)value;
}

static int raise(lua_State *L, const char *message)
{
    lua_pushstring(L, message);
    return lua_error(L);
}

static int setRegisters(lua_State *L, const char *name, const char *failed,
                        RadioReturn (*function)(RadioContext *, const uint32_t *, uint32_t))
{
    RadioContext *const context = appContext;
    if (lua_gettop(L) != 1) {
        lua_pushfstring(L, "Error in %s expected %d..%d args, got %d", name, 1, 1, lua_gettop(L));
        return lua_error(L);
    }
    if (lua_type(L, 1) != LUA_TTABLE) {
        return raise(L, "Data values must be a table");
    }
    const size_t count = lua_objlen(L, 1);
    uint32_t *const registers = malloc(count * sizeof *registers);
    if (registers == NULL) {
        return raise(L, "Out of memory");
    }
    for (size_t i = 0; i < count; ++i) {
        lua_pushnumber(L, (lua_Number)(i + 1));
        lua_gettable(L, 1);
        if (!lua_isnumber(L, -1)) {
            free(registers);
            return raise(L, "Expected integer values in data");
        }
        registers[i] = toUnsigned32(lua_tolstring(L, -1, NULL));
        lua_pop(L, 1);
    }
    if (context == NULL) {
        free(registers);
        return raise(L, "No radio context, call radioOpen() first");
    }
    const RadioReturn status = function(context, registers, (uint32_t)count);
    free(registers);
    return status == RADIO_ESUCCESS ? 0 : raise(L, failed);
}

int yardstickSetRxGainRegisters(lua_State *L)
{
    return setRegisters(L, "radioSetRxGainRegisters",
                        "radioSetRxGainRegisters() did not return success",
                        radioSetRxGainRegisters);
}

int yardstickSetTxPowerRegisters(lua_State *L)
{
    return setRegisters(L, "radioSetTxPowerRegisters",
                        "radioSetTxPowerRegisters() did not return success",
                        radioSetTxPowerRegisters);
}
