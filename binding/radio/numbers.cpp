// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/numbers.h"

#include <cstring>

std::uint32_t parseUnsigned32(const char *text)
{
    const char *next = text + std::strspn(text, " \t\n\v\f\r");
    const bool negative = *next == '-';
    if (*next == '-' || *next == '+') {
        ++next;
    }
    std::uint32_t magnitude = 0;
    for (; *next >= '0' && *next <= '9'; ++next) {
        const auto digit = static_cast<std::uint32_t>(*next - '0');
        if (magnitude > UINT32_MAX / 10 || 10 * magnitude > UINT32_MAX - digit) {
            return UINT32_MAX;
        }
        magnitude = 10 * magnitude + digit;
    }
    return negative ? 0U - magnitude : magnitude;
}
