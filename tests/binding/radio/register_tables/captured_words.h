// SPDX-License-Identifier: LicenseRef-Proprietary
// What the driver's two functions for register tables were called with.
#pragma once

#include <cstdint>
#include <sorel.h>
#include <string>
#include <vector>

struct RegisterCall {
    std::string function;
    const RadioContext *context;
    std::vector<std::uint32_t> words;
};

extern std::vector<RegisterCall> registerCalls;

// What both functions return.
extern RadioReturn registerStatus;
