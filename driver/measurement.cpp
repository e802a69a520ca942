// SPDX-License-Identifier: LicenseRef-Proprietary
// What reaches a receiver, and the total wideband power (RTWP) that it measures.
#include "measurement.h"

#include "decibel.h"
#include "receiver.h"
#include "transmitter.h"

namespace sorel
{

namespace
{

// kT at 290 K in mW/Hz: the Boltzmann constant times 290 K times 1000, -173.98 dBm/Hz.
constexpr double noiseDensity = 1.380649e-23 * 290 * 1000;

// Of RADIO_TX_TO_RX_LOOPBACK, from the transmitter's output to the receiver's input.
constexpr double loopbackLoss = 1e-6; // 60 dB

// Below the highest gain the noise figure rises by this many dB per dB.
constexpr double noiseFigureSlope = 0.25;

double thermalNoise(const FrontEnd &frontEnd)
{
    return noiseDensity * frontEnd.setup.mode->bandwidth;
}

double noiseFactor(const FrontEnd &frontEnd, int path)
{
    const Platform &platform = *frontEnd.platform;
    const int below = platform.highestGain - presentGain(frontEnd, path);
    return ratio(static_cast<double>(platform.noiseFigure) + noiseFigureSlope * below);
}

Outcome show(double milliwatts, int32_t &power)
{
    if (milliwatts <= 0)
        return refused(RADIO_EERROR, "the receiver is switched off");
    power = static_cast<int32_t>(std::lround(dBmOf(milliwatts) * 64));
    return done();
}

double milliwattsIfOn(const FrontEnd &frontEnd, int path)
{
    const bool isOn = frontEnd.setup.receivers[path].state == RADIO_STATE_ENABLE;
    return isOn ? receivedMilliwatts(frontEnd, path) : 0;
}

} // namespace

double inputMilliwatts(const FrontEnd &frontEnd, int path)
{
    const bool hearsItself = frontEnd.setup.loopback == RADIO_TX_TO_RX_LOOPBACK;
    const double signal = hearsItself ? outputMilliwatts(frontEnd, path) * loopbackLoss : 0;
    return thermalNoise(frontEnd) + signal;
}

double receivedMilliwatts(const FrontEnd &frontEnd, int path)
{
    const double added = thermalNoise(frontEnd) * (noiseFactor(frontEnd, path) - 1);
    return inputMilliwatts(frontEnd, path) + added;
}

Outcome measureReceiver(const FrontEnd &frontEnd, RadioRxAntenna antenna, int32_t &power)
{
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    return show(milliwattsIfOn(frontEnd, antenna), power);
}

Outcome measureReceivers(const FrontEnd &frontEnd, int32_t &power)
{
    double sum = 0;
    const Outcome outcome =
        forSelectedPaths(frontEnd, [&](int path) { sum += milliwattsIfOn(frontEnd, path); });
    return isRefused(outcome) ? outcome : show(sum, power);
}

} // namespace sorel
