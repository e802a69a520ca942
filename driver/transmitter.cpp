// SPDX-License-Identifier: LicenseRef-Proprietary
// The transmitters: switching, power limits, DC offsets; and the loopback.
#include "transmitter.h"

#include "decibel.h"
#include "power_table.h"
#include "synthesiser.h"

namespace sorel
{

namespace
{

Outcome checkPower(const FrontEnd &frontEnd, int16_t power)
{
    const Platform &platform = *frontEnd.platform;
    if (power < platform.lowestPower || power > platform.highestPower)
        return outside("power", power, platform.lowestPower, platform.highestPower, "x 0.1 dBm");
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    if (!allowsPower(frontEnd, power))
        return refused(RADIO_EINVAL, "the power is below the lowest of the power table");
    return done();
}

// Of the transmit converter: offsets go from -range to range - 1.
int offsetRange(const Platform &platform)
{
    return 1 << (platform.txConverterWidth - 1);
}

Outcome checkOffset(const Platform &platform, const char *name, int16_t offset)
{
    const int range = offsetRange(platform);
    return offset >= -range && offset < range ? done()
                                              : outside(name, offset, -range, range - 1, "steps");
}

// What keeps a transmitter from being switched on, before and after whether there is such a path.
Outcome checkHeat(const FrontEnd &frontEnd, RadioState state)
{
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    return state == RADIO_STATE_ENABLE && frontEnd.thermal.isShutDown
               ? refused(RADIO_EERROR, "the transmitters are off until the chip has cooled down")
               : done();
}

Outcome checkLock(const FrontEnd &frontEnd, RadioState state)
{
    return state == RADIO_STATE_ENABLE && !isTxLocked(frontEnd)
               ? refused(RADIO_EAGAIN, "the transmit synthesiser has not locked")
               : done();
}

// The imbalance of one converter of one board, in its steps: up to 1/32 of its range.
int imbalance(const FrontEnd &frontEnd, int path, int component)
{
    const auto most = static_cast<uint64_t>(offsetRange(*frontEnd.platform) / 32);
    const uint64_t drawn = mixed(uint64_t{frontEnd.scenario->serial} * 4 +
                                 static_cast<uint64_t>(path * 2 + component));
    return static_cast<int>(drawn % (2 * most + 1)) - static_cast<int>(most);
}

} // namespace

int32_t carrierLeakage(const FrontEnd &frontEnd, int path)
{
    const Transmitter &transmitter = frontEnd.setup.transmitters[path];
    const double inPhase = imbalance(frontEnd, path, 0) + transmitter.inPhaseOffset;
    const double quadrature = imbalance(frontEnd, path, 1) + transmitter.quadratureOffset;
    constexpr double rest = 0.25; // of a step: what is finer than the converter
    const double range = offsetRange(*frontEnd.platform);
    const double power =
        (inPhase * inPhase + quadrature * quadrature + rest * rest) / (range * range);
    return static_cast<int32_t>(std::lround(dBmOf(power) * 64));
}

Outcome switchTransmitters(FrontEnd &frontEnd, RadioState state)
{
    if (const Outcome outcome = checkHeat(frontEnd, state); isRefused(outcome))
        return outcome;
    if (const Outcome outcome = requireSelected(frontEnd); isRefused(outcome))
        return outcome;
    if (const Outcome outcome = checkLock(frontEnd, state); isRefused(outcome))
        return outcome;
    return forSelectedPaths(frontEnd,
                            [&](int path) { frontEnd.setup.transmitters[path].state = state; });
}

Outcome switchTransmitter(FrontEnd &frontEnd, RadioTxAntenna antenna, RadioState state)
{
    if (const Outcome outcome = checkHeat(frontEnd, state); isRefused(outcome))
        return outcome;
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    if (const Outcome outcome = checkLock(frontEnd, state); isRefused(outcome))
        return outcome;
    frontEnd.setup.transmitters[antenna].state = state;
    return done();
}

Outcome limitTransmitters(FrontEnd &frontEnd, int16_t power)
{
    if (const Outcome outcome = checkPower(frontEnd, power); isRefused(outcome))
        return outcome;
    return forSelectedPaths(frontEnd,
                            [&](int path) { frontEnd.setup.transmitters[path].maxPower = power; });
}

Outcome limitTransmitter(FrontEnd &frontEnd, RadioTxAntenna antenna, int16_t power)
{
    if (const Outcome outcome = checkPower(frontEnd, power); isRefused(outcome))
        return outcome;
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    frontEnd.setup.transmitters[antenna].maxPower = power;
    return done();
}

Outcome setTransmitterOffset(FrontEnd &frontEnd, RadioTxAntenna antenna, int16_t inPhase,
                             int16_t quadrature)
{
    const Platform &platform = *frontEnd.platform;
    if (const Outcome outcome = checkOffset(platform, "in-phase offset", inPhase);
        isRefused(outcome))
        return outcome;
    if (const Outcome outcome = checkOffset(platform, "quadrature offset", quadrature);
        isRefused(outcome))
        return outcome;
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    frontEnd.setup.transmitters[antenna].inPhaseOffset = inPhase;
    frontEnd.setup.transmitters[antenna].quadratureOffset = quadrature;
    return done();
}

Outcome setLoopback(FrontEnd &frontEnd, RadioLoopback loopback)
{
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    frontEnd.setup.loopback = loopback;
    return done();
}

} // namespace sorel
