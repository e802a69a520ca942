// SPDX-License-Identifier: LicenseRef-Proprietary
// Numbers of 32 bits, as initialisation scripts and scenario files write them.
#ifndef SOREL_DRIVER_PARSE_NUMBER_H
#define SOREL_DRIVER_PARSE_NUMBER_H

#include <cstdint>
#include <string_view>

namespace sorel
{

// Decimal, or hexadecimal after 0x; a decimal number may be negative. True if word is a number of
// 32 bits, signed or unsigned, and nothing else.
bool parseNumber(std::string_view word, uint32_t &number);

} // namespace sorel

#endif
