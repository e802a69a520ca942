// SPDX-License-Identifier: LicenseRef-Proprietary
// Simulated time, and the temperature of the radio chip that follows the heat in it.
#ifndef SOREL_DRIVER_THERMAL_H
#define SOREL_DRIVER_THERMAL_H

#include <cstdint>

namespace sorel
{

struct FrontEnd;

// Integers, so that a script reads the same temperatures on every machine.
struct Thermal {
    uint64_t calls = 0;      // simulated time since radioOpen(), in calls of 100 us each
    int64_t nanodegrees = 0; // temperature in 1e-9 degrees Celsius
};

// The temperature that a front end reaches when it stays as it is.
int64_t settledNanodegrees(const FrontEnd &frontEnd);

// Lets the simulated time of one call pass.
void passTime(FrontEnd &frontEnd);

// What the temperature converter shows, in 1/16 degrees Celsius.
int32_t temperatureReading(const FrontEnd &frontEnd);

} // namespace sorel

#endif
