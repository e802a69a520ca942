// SPDX-License-Identifier: LicenseRef-Proprietary
// The receivers: switching, gain and gain mode.
#include "receiver.h"

#include "gain_control.h"
#include "gain_table.h"

#include <algorithm>
#include <cmath>

namespace sorel
{

namespace
{

void applyGain(FrontEnd &frontEnd, int path, int16_t gain)
{
    frontEnd.setup.receivers[path].manualGain = gain;
    frontEnd.setup.receivers[path].step = stepNotAbove(frontEnd, gain);
}

void applyGainMode(FrontEnd &frontEnd, int path, RadioRxGainMode mode)
{
    Receiver &receiver = frontEnd.setup.receivers[path];
    receiver.gainMode = mode;
    if (mode == RADIO_RX_GAIN_MGC)
        receiver.step = std::max(stepNotAbove(frontEnd, receiver.manualGain), 0);
    wake(frontEnd, path);
}

void applyState(FrontEnd &frontEnd, int path, RadioState state)
{
    frontEnd.setup.receivers[path].state = state;
    if (state == RADIO_STATE_ENABLE)
        wake(frontEnd, path);
}

Outcome checkGain(const FrontEnd &frontEnd, int16_t gain)
{
    const Platform &platform = *frontEnd.platform;
    if (gain < platform.lowestGain || gain > platform.highestGain)
        return outside("gain", gain, platform.lowestGain, platform.highestGain, "dB");
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    if (stepNotAbove(frontEnd, gain) < 0)
        return refused(RADIO_EINVAL, "the gain is below the lowest of the gain table");
    return done();
}

constexpr Outcome automaticGain = refused(RADIO_EERROR, "the gain mode is not manual");

} // namespace

int presentGain(const FrontEnd &frontEnd, int path)
{
    return static_cast<int>(std::lround(gainOf(frontEnd, frontEnd.setup.receivers[path])));
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
    return forSelectedPaths(frontEnd, [&](int path) { applyGain(frontEnd, path, gain); });
}

Outcome setGainOfReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, int16_t gain)
{
    if (const Outcome outcome = checkGain(frontEnd, gain); isRefused(outcome))
        return outcome;
    if (frontEnd.setup.receivers[antenna].gainMode != RADIO_RX_GAIN_MGC)
        return automaticGain;
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    applyGain(frontEnd, antenna, gain);
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

} // namespace sorel
