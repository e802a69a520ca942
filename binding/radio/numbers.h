// SPDX-License-Identifier: LicenseRef-Proprietary
// Lua numbers to the driver's integers, the same on every machine. A plain C++ conversion of a
// number that the integer type cannot hold is undefined, and differs between a PC and the target.
#pragma once

#include <cstdint>
#include <lua.hpp>

// The least numbers above that an integer type cannot hold.
inline constexpr lua_Number endOfSigned32 = 2147483648.0;
inline constexpr lua_Number endOfUnsigned32 = 4294967296.0;

// Truncates toward zero; saturates at both ends; not-a-number gives 0.
constexpr std::int32_t toSigned32(lua_Number value)
{
    if (value >= endOfSigned32) {
        return INT32_MAX;
    }
    if (value < -endOfSigned32) {
        return INT32_MIN;
    }
    return value == value ? static_cast<std::int32_t>(value) : 0;
}

// The same of a value that must not be positive or not-a-number.
constexpr std::int32_t toNegativeSigned32(lua_Number value)
{
    return value < -endOfSigned32 ? INT32_MIN : static_cast<std::int32_t>(value);
}

// Truncates toward zero; saturates at 4294967295. value must not be negative or not-a-number.
constexpr std::uint32_t toUnsigned32(lua_Number value)
{
    return value >= endOfUnsigned32 ? UINT32_MAX : static_cast<std::uint32_t>(value);
}

// Parses a text as the target's strtoul does in base 10, where unsigned long has 32 bits: blanks
// and a sign in front, digits up to the first other character. A negative number wraps modulo 2^32;
// a magnitude beyond 4294967295 gives 4294967295, whatever the sign; no digits give 0.
std::uint32_t parseUnsigned32(const char *text);
