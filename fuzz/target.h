// SPDX-License-Identifier: LicenseRef-Proprietary
// What a fuzz target defines. libFuzzer calls it, or the program that runs files.
#pragma once

#include <cstddef>
#include <cstdint>

// Makes the tables of cells and whatever is made once. Called once, before the first input.
void prepareTarget();

// Runs one input. Returns 0; ends the process by a signal where something is wrong.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
