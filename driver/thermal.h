// SPDX-License-Identifier: LicenseRef-Proprietary
// The temperature of the radio chip: it follows the heat in it.
#ifndef SOREL_DRIVER_THERMAL_H
#define SOREL_DRIVER_THERMAL_H

#include <cstdint>

namespace sorel
{

struct FrontEnd;

// Integers, so that a script reads the same temperatures on every machine.
struct Thermal {
    int64_t nanodegrees; // temperature in 1e-9 degrees Celsius
    int64_t reached;     // simulated time at which it was that
    bool isShutDown;     // whether the heat keeps the transmitters off
};

// The temperature that a front end reaches when it stays as it is.
int64_t settledNanodegrees(const FrontEnd &frontEnd);

// Brings the temperature up to the present, and switches the transmitters off where that is too
// hot.
void warm(FrontEnd &frontEnd);

// What the temperature converter shows, in 1/16 degrees Celsius.
int32_t temperatureReading(const FrontEnd &frontEnd);

} // namespace sorel

#endif
