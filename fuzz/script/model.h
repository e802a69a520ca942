// SPDX-License-Identifier: LicenseRef-Proprietary
// Initialisation scripts, read apart from the driver.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

enum Command : std::size_t { write, check, checkBits, delay, commandCount };

struct Step {
    Command command;
    std::uint32_t address = 0;
    std::uint32_t value = 0;
    std::uint32_t mask = 0xffffffff;
};

// What is wrong with the first line that does not parse.
enum Mistake : std::size_t {
    noCommand,
    missingWord,
    noNumber,
    beyondRange,
    noUnit,
    tooLong,
    tooManyWords,
    mistakeCount
};

struct Script {
    std::vector<Step> steps;
    std::optional<Mistake> mistake;
};

Script readScript(const std::string &text);
