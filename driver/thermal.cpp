// SPDX-License-Identifier: LicenseRef-Proprietary
// Simulated time, and the temperature of the radio chip that follows the heat in it.
#include "thermal.h"

#include "front_end.h"
#include "transmitter.h"

#include <cmath>

namespace sorel
{

namespace
{

constexpr int64_t ambientNanodegrees = 25'000'000'000;
constexpr int64_t nanodegreesPerMicrowatt = 8'000; // 8 K/W from chip to air

// The time constant in calls: 0.8192 s.
constexpr int64_t callsToSettle = 8192;

// Heat in microwatts.
constexpr int64_t idleChip = 400'000;
constexpr int64_t runningChip = 600'000;
constexpr int64_t runningReceiver = 150'000;
constexpr int64_t runningTransmitter = 400'000;

// An amplifier of 25 % efficiency turns three times its output into heat.
constexpr int64_t heatPerOutput = 3;

int64_t heat(const FrontEnd &frontEnd)
{
    const Setup &setup = frontEnd.setup;
    int64_t microwatts = frontEnd.platform->chips * (setup.mode ? runningChip : idleChip);
    for (int path = 0; path < pathCount(frontEnd); ++path) {
        if (setup.receivers[path].state == RADIO_STATE_ENABLE)
            microwatts += runningReceiver;
        if (setup.transmitters[path].state == RADIO_STATE_ENABLE)
            microwatts += runningTransmitter +
                          heatPerOutput * std::llround(outputMilliwatts(frontEnd, path) * 1e3);
    }
    return microwatts;
}

} // namespace

int64_t settledNanodegrees(const FrontEnd &frontEnd)
{
    return ambientNanodegrees + heat(frontEnd) * nanodegreesPerMicrowatt;
}

void passTime(FrontEnd &frontEnd)
{
    Thermal &thermal = frontEnd.thermal;
    ++thermal.calls;
    thermal.nanodegrees += (settledNanodegrees(frontEnd) - thermal.nanodegrees) / callsToSettle;
}

int32_t temperatureReading(const FrontEnd &frontEnd)
{
    constexpr int64_t nanodegreesPerStep = 1'000'000'000 / 16;
    return static_cast<int32_t>(frontEnd.thermal.nanodegrees / nanodegreesPerStep);
}

} // namespace sorel
