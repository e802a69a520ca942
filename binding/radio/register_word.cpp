// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/register_word.h"

#include <cmath>
#include <cstdio>

namespace
{

std::uint32_t registerWordOfText(lua_Number value)
{
    char text[LUAI_MAXNUMBER2STR]; // the room and the format of Lua's own conversion
    std::snprintf(text, sizeof text, LUA_NUMBER_FMT, value);
    return parseUnsigned32(text);
}

} // namespace

std::uint32_t findAnyRegisterWord(lua_Number value)
{
    std::uint32_t word = 0;
    if (findRegisterWord(-value, &word)) {
        return 0U - word;
    }
    // Too large a number in plain digits saturates, whatever its sign. What is larger than this may
    // be rounded to 1e+14.
    const lua_Number magnitude = std::fabs(value);
    if (magnitude >= 4294967296.0 && magnitude <= 99999999999999.0) {
        return UINT32_MAX;
    }
    return registerWordOfText(value);
}
