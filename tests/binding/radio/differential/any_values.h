// SPDX-License-Identifier: LicenseRef-Proprietary
// Lua values of all types, many of them at the edge of what a wrapper takes.
#pragma once

#include "tests/binding/radio/differential/memory_driver.h"

#include <lua.hpp>
#include <random>

class AnyValues
{
public:
    // Keeps what it needs in a table of that state.
    AnyValues(lua_State *state, unsigned seed);

    // Pushes the arguments of a call, mostly as many as there are kinds and mostly of these: n for
    // a number, t for a text, p for a pointer. Gives their number.
    int pushArguments(const char *kinds);

    Answers answers();

    // True once in so many times.
    bool once(int times);

private:
    double number();
    void pushNumberText();
    void pushOther();
    void pushFrom(int list);
    template <class Value, std::size_t size>
    Value oneOf(const Value (&values)[size]);
    std::uint64_t below(std::uint64_t end);

    lua_State *L;
    std::mt19937_64 random;
};
