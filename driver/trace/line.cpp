// SPDX-License-Identifier: LicenseRef-Proprietary
// Lines of text on their way out, without memory from the heap and without the locale.
#include "line.h"

#include <cmath>
#include <limits>

namespace sorel
{

void Line::put(char character)
{
    if (used == sizeof buffer)
        writeOut();
    buffer[used++] = character;
}

void Line::put(std::string_view text)
{
    for (const char character : text)
        put(character);
}

void Line::putHexadecimal(uint32_t value)
{
    char digits[8];
    put("0x");
    put({digits, std::to_chars(digits, digits + sizeof digits, value, 16).ptr});
}

void Line::putFraction(double value)
{
    // Whatever the sign of what is not a number: that differs between machines.
    if (std::isnan(value)) {
        put("nan");
        return;
    }
    char digits[std::numeric_limits<double>::max_exponent10 + 8];
    put({digits,
         std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 2).ptr});
}

void Line::putByte(unsigned char byte)
{
    constexpr std::string_view digits = "0123456789abcdef";
    if (byte == '"' || byte == '\\') {
        put('\\');
        put(static_cast<char>(byte));
    } else if (byte == '\n') {
        put("\\n");
    } else if (byte == '\t') {
        put("\\t");
    } else if (byte < 0x20 || byte == 0x7f) {
        put("\\x");
        put(digits[byte / 16]);
        put(digits[byte % 16]);
    } else {
        put(static_cast<char>(byte));
    }
}

void Line::putQuoted(const char *text, std::size_t longest)
{
    put('"');
    std::size_t length = 0;
    for (; length < longest && text[length]; ++length)
        putByte(static_cast<unsigned char>(text[length]));
    put('"');
    if (text[length])
        put("...");
}

void Line::putSeconds(int64_t nanoseconds)
{
    const int64_t microseconds = nanoseconds / 1000;
    putInteger(microseconds / 1'000'000);
    put('.');
    for (int64_t place = 100'000; place > 0; place /= 10)
        put(static_cast<char>('0' + microseconds / place % 10));
}

void Line::writeOut()
{
    output.write({buffer, used});
    used = 0;
}

} // namespace sorel
