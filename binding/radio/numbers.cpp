// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/numbers.h"

#include <cstdlib>
#include <cstring>

std::uint32_t parseUnsigned32(const char *text)
{
    // The sign is read here, and strtoull only sees digits: on a PC it would wrap a negative number
    // modulo 2^64, which hides whether its magnitude fits into 32 bits.
    const char *digits = text + std::strspn(text, " \t\n\v\f\r");
    const bool negative = *digits == '-';
    if (*digits == '-' || *digits == '+') {
        ++digits;
    }
    if (*digits < '0' || *digits > '9') {
        return 0;
    }
    const unsigned long long magnitude = std::strtoull(digits, nullptr, 10);
    if (magnitude > UINT32_MAX) {
        return UINT32_MAX;
    }
    const auto value = static_cast<std::uint32_t>(magnitude);
    return negative ? 0U - value : value;
}
