// SPDX-License-Identifier: LicenseRef-Proprietary
// The powers in the front end that follow from its settings, its surroundings and its temperature.
#include "levels.h"

#include "arrivals.h"
#include "decibel.h"
#include "gain_table.h"
#include "power_table.h"
#include "synthesiser.h"

#include <algorithm>

namespace sorel
{

namespace
{

// kT at 290 K in mW/Hz: the Boltzmann constant times 290 K times 1000, -173.98 dBm/Hz.
constexpr double noiseDensity = 1.380649e-23 * 290 * 1000;

// From the transmitter's output to its own receiver's input.
constexpr double loopbackLoss = 1e-6;       // 60 dB, in RADIO_TX_TO_RX_LOOPBACK
constexpr double duplexerIsolation = 1e-13; // 130 dB, where the directions have bands of their own
constexpr double switchIsolation = 1e-10;   // 100 dB, in time division

// Ratios that have been worked out already, by gain step or by path. They only save time: each is
// used where it is the one that is asked for, whatever the board.
KeptRatio gainRatios[tableCapacity];
KeptRatio noiseRatios[tableCapacity];
KeptRatio outputRatios[2];

// The signal-to-noise ratio of an ideal converter: 6.02 dB per bit and 1.76 dB.
double quantisationNoise(const Platform &platform)
{
    const double steps = static_cast<double>(int64_t{1} << platform.rxConverterWidth);
    return fullScale / (1.5 * steps * steps);
}

double noiseFactor(const FrontEnd &frontEnd, int path)
{
    const Platform &platform = *frontEnd.platform;
    const Receiver &receiver = frontEnd.setup.receivers[path];
    const double below = platform.highestGain - gainOf(frontEnd, receiver);
    const double warmer = temperatureReading(frontEnd) / 16.0 - 25;
    return ratio(noiseRatios[receiver.step], platform.noiseFigure + platform.noisePerGain * below +
                                                 platform.noisePerDegree * std::max(warmer, 0.0));
}

double isolation(const FrontEnd &frontEnd)
{
    switch (frontEnd.setup.loopback) {
    case RADIO_TX_TO_RX_LOOPBACK:
        return loopbackLoss;
    case RADIO_RX_TO_TX_LOOPBACK: // what is transmitted is what was received
        return 0;
    case RADIO_NO_LOOPBACK:
        break;
    }
    return isTimeDivision(*frontEnd.setup.mode) ? switchIsolation : duplexerIsolation;
}

bool isOn(const FrontEnd &frontEnd, int path)
{
    return frontEnd.setup.receivers[path].state == RADIO_STATE_ENABLE && isRxLocked(frontEnd);
}

double transmitted(const FrontEnd &frontEnd, int path)
{
    const Transmitter &transmitter = frontEnd.setup.transmitters[path];
    if (transmitter.state != RADIO_STATE_ENABLE || !isTxLocked(frontEnd))
        return 0;
    const double limit = ratio(outputRatios[path], outputLimit(frontEnd, path));
    if (frontEnd.setup.loopback != RADIO_RX_TO_TX_LOOPBACK)
        return limit;
    const Levels &levels = frontEnd.levels;
    return isOn(frontEnd, path) ? std::min(limit, levels.received[path] * levels.gain[path]) : 0;
}

double received(const FrontEnd &frontEnd, int path)
{
    const Mode &mode = *frontEnd.setup.mode;
    const Levels &levels = frontEnd.levels;
    const double noise = noiseDensity * mode.bandwidth * noiseFactor(frontEnd, path);
    const double inChannel = static_cast<double>(mode.bandwidth) / mode.sampleRate;
    const double quantisation =
        quantisationNoise(*frontEnd.platform) * inChannel / levels.gain[path];
    const double own = levels.output[path] * isolation(frontEnd);
    return noise + frontEnd.arrivals.power[path] + own + quantisation;
}

} // namespace

void refreshLevels(FrontEnd &frontEnd)
{
    Levels &levels = frontEnd.levels;
    if (levels.isKnown)
        return;
    levels = {};
    levels.isKnown = true;
    if (!frontEnd.setup.mode)
        return;
    listen(frontEnd);
    // A repeater transmits what it receives; otherwise a receiver hears what is transmitted.
    const bool isRepeater = frontEnd.setup.loopback == RADIO_RX_TO_TX_LOOPBACK;
    for (int path = 0; path < pathCount(frontEnd); ++path) {
        const Receiver &receiver = frontEnd.setup.receivers[path];
        levels.gain[path] = ratio(gainRatios[receiver.step], gainOf(frontEnd, receiver));
        if (isRepeater)
            levels.received[path] = received(frontEnd, path);
        levels.output[path] = transmitted(frontEnd, path);
        if (!isRepeater)
            levels.received[path] = received(frontEnd, path);
    }
}

double converterLevel(const FrontEnd &frontEnd, int path)
{
    const Levels &levels = frontEnd.levels;
    return levels.received[path] * levels.gain[path] / fullScale;
}

} // namespace sorel
