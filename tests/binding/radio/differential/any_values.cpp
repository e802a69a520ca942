// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tests/binding/radio/differential/any_values.h"

#include "binding/radio/types.h"
#include "binding/runtime/pointer_objects.h"
#include "tests/binding/radio/differential/edge_values.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace
{

// The lists of the values that are made once; registry keys too.
char others;
char pointers;

char *someNames[] = {nullptr};

// Stores the value on top of the stack at the end of the table below it.
void append(lua_State *L)
{
    lua_rawseti(L, -2, static_cast<int>(lua_objlen(L, -2)) + 1);
}

void appendUserdata(lua_State *L, std::size_t size)
{
    std::memset(lua_newuserdata(L, size), 0, size);
    append(L);
}

int doNothing(lua_State *)
{
    return 0;
}

// Userdata of this binding and of others. Light ones point at something that can be read as one.
void makePointers(lua_State *L)
{
    lua_newtable(L);
    static int target;
    for (const TypePosition type : {intType, textListType, fileType, hooksType, contextType}) {
        SWIG_Lua_PushPointer(L, &target, radioTypes[type], 0);
        append(L);
    }
    for (const std::size_t size : {std::size_t{0}, sizeof(void *), 4 * sizeof(void *)}) {
        appendUserdata(L, size);
    }
    std::memset(lua_newuserdata(L, 4 * sizeof(void *)), 1, 4 * sizeof(void *));
    lua_newtable(L); // a metatable that tells it from what this binding makes
    lua_setmetatable(L, -2);
    append(L);
    static PointerObject light = {radioTypes[fileType], 0, &target};
    lua_pushlightuserdata(L, &light);
    append(L);
    lua_pushlightuserdata(L, nullptr);
    append(L);
}

void makeOthers(lua_State *L)
{
    lua_newtable(L);
    lua_pushboolean(L, 1);
    append(L);
    lua_pushboolean(L, 0);
    append(L);
    lua_newtable(L);
    append(L);
    lua_pushcfunction(L, doNothing);
    append(L);
    luaL_loadstring(L, "return 1");
    append(L);
    lua_newthread(L);
    append(L);
    lua_pushlstring(L, "1\0002", 3);
    append(L);
}

} // namespace

AnyValues::AnyValues(lua_State *state, unsigned seed) : L(state), random(seed)
{
    lua_pushlightuserdata(L, &pointers);
    makePointers(L);
    lua_rawset(L, LUA_REGISTRYINDEX);
    lua_pushlightuserdata(L, &others);
    makeOthers(L);
    lua_rawset(L, LUA_REGISTRYINDEX);
}

std::uint64_t AnyValues::below(std::uint64_t end)
{
    return random() % end; // not quite even, which does not matter here
}

bool AnyValues::once(int times)
{
    return below(static_cast<std::uint64_t>(times)) == 0;
}

template <class Value, std::size_t size>
Value AnyValues::oneOf(const Value (&values)[size])
{
    return values[below(size)];
}

double AnyValues::number()
{
    switch (below(6)) {
    case 0: {
        const double edge = oneOf(edges);
        const double steps[] = {edge,
                                std::nextafter(edge, infinity),
                                std::nextafter(edge, -infinity),
                                edge + 1,
                                edge - 1,
                                edge + 0.5,
                                edge - 0.5};
        return std::copysign(oneOf(steps), once(2) ? 1.0 : -1.0);
    }
    case 1: // any bits
        return std::bit_cast<double>(random());
    case 2: // what is often passed
        return static_cast<double>(below(10));
    case 3: // more than 16 bits, more than 32
        return static_cast<double>(below(1 << 18)) - (1 << 17);
    case 4:
        return static_cast<double>(below(std::uint64_t{1} << 34)) - static_cast<double>(1LL << 33);
    default:
        return std::ldexp(static_cast<double>(below(1 << 20)) - (1 << 19), -10);
    }
}

void AnyValues::pushNumberText()
{
    char text[400];
    constexpr const char *formats[] = {"%.0f", "%.3f", "%.17g", "%a", " %g ", "%e"};
    // The format is one of those above.
    std::snprintf(text, sizeof text, oneOf(formats), number()); // NOLINT(*-nonliteral)
    lua_pushstring(L, text);
}

void AnyValues::pushFrom(int list)
{
    lua_pushlightuserdata(L, list == 0 ? &others : &pointers);
    lua_rawget(L, LUA_REGISTRYINDEX);
    lua_rawgeti(L, -1, static_cast<int>(below(lua_objlen(L, -1))) + 1);
    lua_remove(L, -2);
}

void AnyValues::pushOther()
{
    switch (below(6)) {
    case 0:
        return pushFrom(0);
    case 1:
        return pushFrom(1);
    case 2:
        return lua_pushnil(L);
    case 3:
        return lua_pushnumber(L, number());
    case 4:
        return pushNumberText();
    default:
        return lua_pushstring(L, oneOf(words));
    }
}

int AnyValues::pushArguments(const char *kinds)
{
    const auto right = std::strlen(kinds);
    const auto count = once(10) ? below(7) : right;
    for (std::size_t i = 0; i < count; ++i) {
        const char kind = i < right && !once(6) ? kinds[i] : ' ';
        if (kind == 'n') {
            lua_pushnumber(L, number());
        } else if (kind == 't') {
            lua_pushstring(L, oneOf(words));
        } else if (kind == 'p') {
            pushFrom(1);
        } else {
            pushOther();
        }
    }
    return static_cast<int>(count);
}

Answers AnyValues::answers()
{
    Answers made;
    made.status = static_cast<RadioReturn>(once(4) ? oneOf(statuses) : 0);
    made.reading =
        once(2) ? oneOf(readings) : std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    made.integer = once(2) ? oneOf(integers) : static_cast<std::int32_t>(random());
    made.word = once(2) ? oneOf(integerWords) : static_cast<std::uint32_t>(random());
    made.text = oneOf(texts);
    made.names = once(4) ? nullptr : someNames;
    return made;
}
