// SPDX-License-Identifier: LicenseRef-Proprietary
// The simulated board under files made at random: a file to hand to it, and calls on what comes of
// it.
#pragma once

#include <cstdint>
#include <sorel.h>
#include <string>
#include <string_view>

// The path of a regular file with that content, in memory, until the next call.
const char *inputFile(std::string_view content);

// A number that depends on the input, and on nothing else.
std::uint32_t seedOf(std::string_view input);

// Makes a table of the functions that callFunctions() calls, for a target that is to call them all.
void prepareFunctionCells();

// Calls functions of the driver with arguments at random: count calls, each of any function but
// radioOpen and radioClose, and checks that each answers as it may. Returns what they answered.
std::string callFunctions(RadioContext *context, std::uint32_t seed, int count);
