// SPDX-License-Identifier: LicenseRef-Proprietary
// A number in a register table to the word that the driver gets. The rule is that of the number's
// text: what Lua prints of it ("%.14g"), read as decimal digits up to the first other character.
// Its results are kept as they fall out of that: 2.9 gives 2, -1 wraps, and 1e15, which prints as
// 1e+15, gives 1. Printing is dear, though, and what most numbers print as is certain beforehand.
#pragma once

#include "binding/radio/numbers.h"

// Finds the word without printing. False for a number that is negative, does not fit, or may print
// with other digits in front of the point than those of its whole part.
constexpr bool findRegisterWord(lua_Number value, std::uint32_t *word)
{
    if (!(value >= 0 && value < 4294967296.0)) {
        return false;
    }
    const auto whole = static_cast<std::uint32_t>(value);
    const lua_Number fraction = value - whole; // exact
    *word = whole;
    // At most ten of the 14 digits stand in front of the point and so at least four behind it: with
    // a fraction up to .9999 nothing is carried over. Numbers below 0.0001 print with an exponent.
    return fraction == 0 || (fraction <= 0.9999 && value >= 0.0001);
}

// The word of any number, which may take printing it. Runs nothing in Lua and allocates nothing.
std::uint32_t findAnyRegisterWord(lua_Number value);

inline std::uint32_t registerWord(lua_Number value)
{
    std::uint32_t word = 0;
    return findRegisterWord(value, &word) ? word : findAnyRegisterWord(value);
}
