// SPDX-License-Identifier: LicenseRef-Proprietary
// The simulated time of a board.
#ifndef SOREL_DRIVER_SIMULATED_TIME_H
#define SOREL_DRIVER_SIMULATED_TIME_H

#include "front_end.h"

namespace sorel
{

constexpr int64_t nanosecondsPerCall = 100'000;

// Simulated time since radioOpen(), in nanoseconds.
inline int64_t simulatedTime(const FrontEnd &frontEnd)
{
    return static_cast<int64_t>(frontEnd.thermal.calls) * nanosecondsPerCall;
}

} // namespace sorel

#endif
