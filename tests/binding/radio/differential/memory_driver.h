// SPDX-License-Identifier: LicenseRef-Proprietary
// A driver that remembers its last call, bit for bit, and answers what it is told to.
#pragma once

#include <array>
#include <cstdint>
#include <sorel.h>
#include <string>

struct RadioContext {
    char unused;
};

// What functions answer, by the type of their result.
struct Answers {
    RadioReturn status = RADIO_ESUCCESS;
    float reading = 0;
    std::int32_t integer = 0;
    std::uint32_t word = 0;
    const char *text = nullptr;
    char **names = nullptr;
    RadioContext *opened = nullptr;
};

struct DriverCalls {
    int count = 0; // of calls; what follows is of the last one
    const char *function = "";
    std::array<std::uint64_t, 5> arguments = {}; // the context too; of a text, whether there is one
    std::string text;

    bool operator==(const DriverCalls &) const = default;
};

extern Answers answers;
extern DriverCalls driverCalls;
