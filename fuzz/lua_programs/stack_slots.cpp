// SPDX-License-Identifier: LicenseRef-Proprietary
// Every push of the product's looks whether there is room, which Lua itself takes on trust: a
// function has LUA_MINSTACK free places on the stack, and more only where it has asked for them.
// The linker puts these in the place of Lua's own functions.
#include <cstdio>
#include <cstdlib>
#include <lua.hpp>

namespace
{

// How Lua 5.1 begins the records of a value, a call and a state.
struct Value {
    union {
        void *pointer;
        lua_Number number;
    } value;
    int type;
};

struct Call {
    Value *base;
    Value *function;
    Value *top;
};

struct State {
    void *next;
    unsigned char type, marked, status;
    Value *top;
    Value *base;
    void *global;
    Call *call;
};

void checkRoom(lua_State *L, const char *function)
{
    const auto *const state = reinterpret_cast<const State *>(L);
    if (state->top >= state->call->top) {
        std::fprintf(stderr, "lua_programs: no room on the stack for %s\n", function);
        std::abort();
    }
}

} // namespace

#define PUSHING(result, name, parameters, arguments)                                               \
    extern "C" result __real_##name parameters;                                                    \
    extern "C" result __wrap_##name parameters;                                                    \
    extern "C" result __wrap_##name parameters                                                     \
    {                                                                                              \
        checkRoom(L, #name);                                                                       \
        return __real_##name arguments;                                                            \
    }

// clang-format off
PUSHING(void, lua_createtable, (lua_State *L, int array, int fields), (L, array, fields))
PUSHING(void, lua_getfield, (lua_State *L, int index, const char *name), (L, index, name))
PUSHING(int, lua_getmetatable, (lua_State *L, int index), (L, index))
PUSHING(void *, lua_newuserdata, (lua_State *L, std::size_t size), (L, size))
PUSHING(void, lua_pushboolean, (lua_State *L, int value), (L, value))
PUSHING(void, lua_pushcclosure, (lua_State *L, lua_CFunction function, int upvalues), (L, function, upvalues))
PUSHING(void, lua_pushlightuserdata, (lua_State *L, void *pointer), (L, pointer))
PUSHING(void, lua_pushlstring, (lua_State *L, const char *text, std::size_t size), (L, text, size))
PUSHING(void, lua_pushnil, (lua_State *L), (L))
PUSHING(void, lua_pushnumber, (lua_State *L, lua_Number number), (L, number))
PUSHING(void, lua_pushstring, (lua_State *L, const char *text), (L, text))
PUSHING(void, lua_pushvalue, (lua_State *L, int index), (L, index))
PUSHING(void, lua_rawgeti, (lua_State *L, int index, int key), (L, index, key))
// clang-format on
