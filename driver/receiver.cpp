// SPDX-License-Identifier: LicenseRef-Proprietary
// The receivers: switching, gain and its control.
#include "receiver.h"

#include "decibel.h"
#include "measurement.h"
#include "register_table.h"

#include <algorithm>

namespace sorel
{

namespace
{

// How a gain control chooses: the largest whole number of steps above the lowest gain that brings
// the input to the target or below.
struct GainControl {
    double target; // level behind the gain, in dBm
    int step;      // in dB
};

// clang-format off

// By the value of the gain mode. A fast attack needs room for what arrives before it acts, and
// takes coarse steps.
const GainControl gainControls[] = {
    {0.0,   1}, // RADIO_RX_GAIN_MGC, which controls nothing
    {-24.0, 3}, // RADIO_RX_GAIN_AGC_FAST
    {-18.0, 1}, // RADIO_RX_GAIN_AGC_SLOW
    {-18.0, 1}, // RADIO_RX_GAIN_AGC_SLOW_HYBRID
};

// clang-format on

int chosenGain(const FrontEnd &frontEnd, int path, const GainControl &control)
{
    const Platform &platform = *frontEnd.platform;
    const double wanted = control.target - dBmOf(inputMilliwatts(frontEnd, path));
    const double range = platform.highestGain - platform.lowestGain;
    const double above = std::clamp(wanted - platform.lowestGain, 0.0, range);
    return platform.lowestGain + static_cast<int>(above) / control.step * control.step;
}

void applyGainMode(FrontEnd &frontEnd, int path, RadioRxGainMode mode)
{
    frontEnd.setup.receivers[path].gainMode = mode;
    triggerGain(frontEnd, path);
}

void applyState(FrontEnd &frontEnd, int path, RadioState state)
{
    frontEnd.setup.receivers[path].state = state;
    if (state == RADIO_STATE_ENABLE)
        triggerGain(frontEnd, path);
}

Outcome checkGain(const FrontEnd &frontEnd, int16_t gain)
{
    if (gain < frontEnd.platform->lowestGain || gain > frontEnd.platform->highestGain)
        return refused(RADIO_EINVAL, "the gain is outside the platform's range");
    return requireSetup(frontEnd);
}

constexpr Outcome automaticGain = refused(RADIO_EERROR, "the gain mode is not manual");

} // namespace

int presentGain(const FrontEnd &frontEnd, int path)
{
    const Receiver &receiver = frontEnd.setup.receivers[path];
    switch (receiver.gainMode) {
    case RADIO_RX_GAIN_MGC:
        return receiver.manualGain;
    case RADIO_RX_GAIN_AGC_SLOW_HYBRID:
        return receiver.heldGain;
    case RADIO_RX_GAIN_AGC_FAST:
    case RADIO_RX_GAIN_AGC_SLOW:
        break;
    }
    return chosenGain(frontEnd, path, gainControls[receiver.gainMode]);
}

void triggerGain(FrontEnd &frontEnd, int path)
{
    frontEnd.setup.receivers[path].heldGain = static_cast<int16_t>(
        chosenGain(frontEnd, path, gainControls[RADIO_RX_GAIN_AGC_SLOW_HYBRID]));
}

Outcome switchReceivers(FrontEnd &frontEnd, RadioState state)
{
    return forSelectedPaths(frontEnd, [&](int path) { applyState(frontEnd, path, state); });
}

Outcome switchReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, RadioState state)
{
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    applyState(frontEnd, antenna, state);
    return done();
}

Outcome setGain(FrontEnd &frontEnd, int16_t gain)
{
    if (const Outcome outcome = checkGain(frontEnd, gain); isRefused(outcome))
        return outcome;
    const Paths paths = selectedPaths(frontEnd);
    for (int path = paths.first; path < paths.end; ++path)
        if (frontEnd.setup.receivers[path].gainMode != RADIO_RX_GAIN_MGC)
            return automaticGain;
    return forSelectedPaths(frontEnd,
                            [&](int path) { frontEnd.setup.receivers[path].manualGain = gain; });
}

Outcome setGainOfReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, int16_t gain)
{
    if (const Outcome outcome = checkGain(frontEnd, gain); isRefused(outcome))
        return outcome;
    if (frontEnd.setup.receivers[antenna].gainMode != RADIO_RX_GAIN_MGC)
        return automaticGain;
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    frontEnd.setup.receivers[antenna].manualGain = gain;
    return done();
}

Outcome setGainMode(FrontEnd &frontEnd, RadioRxGainMode mode)
{
    return forSelectedPaths(frontEnd, [&](int path) { applyGainMode(frontEnd, path, mode); });
}

Outcome setGainModeOfReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, RadioRxGainMode mode)
{
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    applyGainMode(frontEnd, antenna, mode);
    return done();
}

Outcome loadGainTable(FrontEnd &frontEnd, const uint32_t *words, uint32_t count)
{
    return loadTable(frontEnd, frontEnd.setup.gainTable, words, count);
}

} // namespace sorel
