// SPDX-License-Identifier: LicenseRef-Proprietary
// The transmitters: switching, limits, offsets, and the power they put out.
#include "transmitter.h"

#include "decibel.h"
#include "measurement.h"
#include "receiver.h"
#include "register_table.h"

#include <algorithm>

namespace sorel
{

namespace
{

bool isPower(const Platform &platform, int16_t power)
{
    return power >= platform.lowestPower && power <= platform.highestPower;
}

bool isOffset(const Platform &platform, int16_t offset)
{
    const int limit = 1 << (platform.converterWidth - 1);
    return offset >= -limit && offset < limit;
}

constexpr Outcome powerOutOfRange =
    refused(RADIO_EINVAL, "the power is outside the platform's range");

} // namespace

double outputMilliwatts(const FrontEnd &frontEnd, int path)
{
    const Transmitter &transmitter = frontEnd.setup.transmitters[path];
    if (transmitter.state != RADIO_STATE_ENABLE)
        return 0;
    const double limit = milliwatts(transmitter.maxPower * 0.1);
    if (frontEnd.setup.loopback != RADIO_RX_TO_TX_LOOPBACK)
        return limit;
    if (frontEnd.setup.receivers[path].state != RADIO_STATE_ENABLE)
        return 0;
    return std::min(limit, receivedMilliwatts(frontEnd, path) * ratio(presentGain(frontEnd, path)));
}

Outcome switchTransmitters(FrontEnd &frontEnd, RadioState state)
{
    return forSelectedPaths(frontEnd,
                            [&](int path) { frontEnd.setup.transmitters[path].state = state; });
}

Outcome switchTransmitter(FrontEnd &frontEnd, RadioTxAntenna antenna, RadioState state)
{
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    frontEnd.setup.transmitters[antenna].state = state;
    return done();
}

Outcome limitTransmitters(FrontEnd &frontEnd, int16_t power)
{
    if (!isPower(*frontEnd.platform, power))
        return powerOutOfRange;
    return forSelectedPaths(frontEnd,
                            [&](int path) { frontEnd.setup.transmitters[path].maxPower = power; });
}

Outcome limitTransmitter(FrontEnd &frontEnd, RadioTxAntenna antenna, int16_t power)
{
    if (!isPower(*frontEnd.platform, power))
        return powerOutOfRange;
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    frontEnd.setup.transmitters[antenna].maxPower = power;
    return done();
}

Outcome setTransmitterOffset(FrontEnd &frontEnd, RadioTxAntenna antenna, int16_t inPhase,
                             int16_t quadrature)
{
    const Platform &platform = *frontEnd.platform;
    if (!isOffset(platform, inPhase) || !isOffset(platform, quadrature))
        return refused(RADIO_EINVAL, "the offset is beyond the transmit converter's range");
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    frontEnd.setup.transmitters[antenna].inPhaseOffset = inPhase;
    frontEnd.setup.transmitters[antenna].quadratureOffset = quadrature;
    return done();
}

Outcome loadPowerTable(FrontEnd &frontEnd, const uint32_t *words, uint32_t count)
{
    return loadTable(frontEnd, frontEnd.setup.powerTable, words, count);
}

Outcome setLoopback(FrontEnd &frontEnd, RadioLoopback loopback)
{
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    frontEnd.setup.loopback = loopback;
    return done();
}

} // namespace sorel
