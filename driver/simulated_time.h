// SPDX-License-Identifier: LicenseRef-Proprietary
// Simulated time, and what happens on the board while it passes.
#ifndef SOREL_DRIVER_SIMULATED_TIME_H
#define SOREL_DRIVER_SIMULATED_TIME_H

#include "front_end.h"

namespace sorel
{

// What one driver call takes, in nanoseconds, where time does not follow real time.
constexpr int64_t callTime = 100'000;

// Simulated time since radioOpen(), in nanoseconds.
inline int64_t simulatedTime(const FrontEnd &frontEnd)
{
    return frontEnd.now;
}

// Starts the time of a front end that has just been switched on.
void startTime(FrontEnd &frontEnd);

// Lets the time of one call pass.
void passTime(FrontEnd &frontEnd);

// Lets that many nanoseconds pass: signals come and go, synthesisers lock, gain controls act, the
// temperature moves.
void advance(FrontEnd &frontEnd, int64_t duration);

// Waits for that many nanoseconds: in real time where simulated time follows it.
void wait(FrontEnd &frontEnd, int64_t duration);

} // namespace sorel

#endif
