// SPDX-License-Identifier: LicenseRef-Proprietary
// Measuring the received total wideband power (RTWP) and what the transmitters give.
#include "measurement.h"

#include "decibel.h"
#include "levels.h"
#include "simulated_time.h"
#include "synthesiser.h"

#include <algorithm>

namespace sorel
{

namespace
{

constexpr int unitsPerDecibel = 64;

// Averaging noise of bandwidth B over a time T leaves 10 / ln 10 / sqrt(B * T) dB of standard
// deviation. In 1/65536 of the unit.
int64_t standardDeviation(const Mode &mode)
{
    const double averaged = mode.bandwidth * (mode.averaging * 1e-9);
    const double decibels = 1 / lnPerDecibel / std::sqrt(averaged);
    return std::lround(decibels * unitsPerDecibel * 65536);
}

// Close to a normal distribution of standard deviation 65536: the sum of twelve even ones, each
// from -32768 to 32767.
int64_t normal(Random &random)
{
    constexpr int64_t mean = 12 * 65535 / 2;
    int64_t sum = 0;
    for (int word = 0; word < 3; ++word) {
        const uint64_t bits = next(random);
        for (int shift = 0; shift < 64; shift += 16)
            sum += static_cast<int64_t>(bits >> shift & 0xffff);
    }
    return sum - mean;
}

int32_t noise(FrontEnd &frontEnd)
{
    const int64_t scaled = normal(frontEnd.random) * standardDeviation(*frontEnd.setup.mode);
    constexpr int64_t half = int64_t{1} << 31;
    return static_cast<int32_t>((scaled + half) >> 32);
}

int32_t unitsOf(double milliwatts)
{
    return static_cast<int32_t>(std::lround(dBmOf(milliwatts) * unitsPerDecibel));
}

// The time of the measurement, beyond that of the call which makes it.
void average(FrontEnd &frontEnd)
{
    if (frontEnd.setup.mode->averaging > callTime)
        wait(frontEnd, frontEnd.setup.mode->averaging - callTime);
}

bool isOn(const FrontEnd &frontEnd, int path)
{
    return frontEnd.setup.receivers[path].state == RADIO_STATE_ENABLE;
}

// What the detectors of the paths make of a power that their converters turn into their largest
// number at most. The driver takes the band's correction off.
struct Detected {
    double power = 0;
    double most = 0;
};

void detect(const FrontEnd &frontEnd, int path, Detected &detected)
{
    const Levels &levels = frontEnd.levels;
    const double most = fullScale / levels.gain[path];
    const double correction =
        ratio(frontEnd.corrections[static_cast<std::size_t>(frontEnd.setup.band)].rxGain[path]);
    detected.power += std::min(levels.received[path], most) / correction;
    detected.most += most / correction;
}

Outcome show(FrontEnd &frontEnd, const Detected &detected, int32_t &power)
{
    if (detected.most <= 0)
        return refused(RADIO_EERROR, "the receiver is switched off");
    if (!isRxLocked(frontEnd))
        return refused(RADIO_EAGAIN, "the receive synthesiser has not locked");
    power = std::min(unitsOf(detected.power) + noise(frontEnd), unitsOf(detected.most));
    return done();
}

} // namespace

Outcome measureReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, int32_t &power)
{
    if (const Outcome outcome = requirePath(frontEnd, antenna); isRefused(outcome))
        return outcome;
    average(frontEnd);
    Detected detected;
    if (isOn(frontEnd, antenna))
        detect(frontEnd, antenna, detected);
    return show(frontEnd, detected, power);
}

Outcome measureReceivers(FrontEnd &frontEnd, int32_t &power)
{
    if (const Outcome outcome = requireSelected(frontEnd); isRefused(outcome))
        return outcome;
    average(frontEnd);
    Detected detected;
    const Paths paths = selectedPaths(frontEnd);
    for (int path = paths.first; path < paths.end; ++path)
        if (isOn(frontEnd, path))
            detect(frontEnd, path, detected);
    return show(frontEnd, detected, power);
}

Outcome measureTransmitter(const FrontEnd &frontEnd, int path, int32_t &power)
{
    if (frontEnd.levels.output[path] <= 0)
        return refused(RADIO_EERROR, "the transmitter gives no power");
    power = unitsOf(frontEnd.levels.output[path]);
    return done();
}

} // namespace sorel
