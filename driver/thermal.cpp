// SPDX-License-Identifier: LicenseRef-Proprietary
// The temperature of the radio chip: it follows the heat in it.
#include "thermal.h"

#include "events.h"
#include "front_end.h"

#include <algorithm>
#include <cmath>

namespace sorel
{

namespace
{

constexpr int64_t nanosecondsPerTick = 100'000;

// Ticks after which even the slowest platform's temperature no longer moves.
constexpr int64_t ticksToStandstill = 1 << 20;

constexpr int64_t nanodegreesPerDegree = 1'000'000'000;
constexpr int64_t nanodegreesPerStep = nanodegreesPerDegree / 16; // of the converter

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
                          heatPerOutput *
                              static_cast<int64_t>(std::lround(frontEnd.levels.output[path] * 1e3));
    }
    return microwatts;
}

// The temperature at which the protection acts next.
int64_t protectionLimit(const Thermal &thermal)
{
    return (thermal.isShutDown ? restartDegrees : shutDownDegrees) * nanodegreesPerDegree;
}

// Steps of a first-order approach to what settles, until the protection has to act. Returns how
// many ticks that took.
int64_t approach(Thermal &thermal, int64_t settled, int64_t settling, int64_t ticks)
{
    const int64_t limit = protectionLimit(thermal);
    const bool isAbove = thermal.nanodegrees >= limit;
    const int64_t most = std::min(ticks, ticksToStandstill);
    for (int64_t tick = 1; tick <= most; ++tick) {
        const int64_t change = (settled - thermal.nanodegrees) / settling;
        if (change == 0)
            return ticks;
        thermal.nanodegrees += change;
        if ((thermal.nanodegrees >= limit) != isAbove)
            return tick;
    }
    return ticks;
}

void protect(FrontEnd &frontEnd)
{
    Thermal &thermal = frontEnd.thermal;
    const bool isHot =
        temperatureReading(frontEnd) * nanodegreesPerStep >= protectionLimit(thermal);
    if (isHot && !thermal.isShutDown) {
        frontEnd.events |= ShutDown;
        for (Transmitter &transmitter : frontEnd.setup.transmitters)
            transmitter.state = RADIO_STATE_DISABLE;
        frontEnd.levels.isKnown = false;
    }
    thermal.isShutDown = isHot;
}

} // namespace

int64_t settledNanodegrees(const FrontEnd &frontEnd)
{
    constexpr int64_t nanodegreesPerMicrodegree = 1'000;
    return frontEnd.scenario->ambientNanodegrees +
           heat(frontEnd) * frontEnd.platform->heating * nanodegreesPerMicrodegree;
}

void warm(FrontEnd &frontEnd)
{
    Thermal &thermal = frontEnd.thermal;
    const int32_t shown = temperatureReading(frontEnd);
    int64_t ticks = (frontEnd.now - thermal.reached) / nanosecondsPerTick;
    thermal.reached += ticks * nanosecondsPerTick;
    while (ticks > 0) {
        const int64_t settled = settledNanodegrees(frontEnd);
        ticks -= approach(thermal, settled, frontEnd.platform->settling, ticks);
        protect(frontEnd);
    }
    // The noise figure follows the temperature that is shown.
    if (temperatureReading(frontEnd) != shown)
        frontEnd.levels.isKnown = false;
}

int32_t temperatureReading(const FrontEnd &frontEnd)
{
    const Conditions &conditions = frontEnd.conditions;
    const int64_t nanodegrees =
        conditions.forcesTemperature ? conditions.nanodegrees : frontEnd.thermal.nanodegrees;
    // Rounds down, below zero too.
    return static_cast<int32_t>((nanodegrees - (nanodegrees < 0 ? nanodegreesPerStep - 1 : 0)) /
                                nanodegreesPerStep);
}

} // namespace sorel
