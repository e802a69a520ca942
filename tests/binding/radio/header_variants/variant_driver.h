// SPDX-License-Identifier: LicenseRef-Proprietary
// A driver of whatever types sorel.h declares: what it answers, and what it was called with.
#pragma once

#include <cstdint>

// What every reading of a signed integer answers, converted to its type.
extern std::int64_t reading;

// The value of the last radioSpiWrite(), and how often radioSetDebugLevel() was called.
extern std::int64_t writtenValue;
extern int debugLevelCalls;
