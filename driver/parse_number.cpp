// SPDX-License-Identifier: LicenseRef-Proprietary
// Numbers of 32 bits, as initialisation scripts and scenario files write them.
#include "parse_number.h"

#include <charconv>

namespace sorel
{

bool parseNumber(std::string_view word, uint32_t &number)
{
    const bool isHexadecimal = word.starts_with("0x") || word.starts_with("0X");
    if (isHexadecimal) {
        word.remove_prefix(2);
        if (word.starts_with('-'))
            return false;
    }
    int64_t parsed = 0;
    const char *const end = word.data() + word.size();
    const auto result = std::from_chars(word.data(), end, parsed, isHexadecimal ? 16 : 10);
    if (result.ec != std::errc() || result.ptr != end)
        return false;
    if (parsed < INT32_MIN || parsed > UINT32_MAX)
        return false;
    number = static_cast<uint32_t>(parsed);
    return true;
}

} // namespace sorel
