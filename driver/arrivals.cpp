// SPDX-License-Identifier: LicenseRef-Proprietary
// The scenario's signals as they arrive in the receivers' channel.
#include "arrivals.h"

#include "synthesiser.h"

#include <algorithm>

namespace sorel
{

namespace
{

// The share of a signal's power that falls into a channel. Edges in units of 0.5 Hz.
double shareInside(const Signal &signal, uint32_t frequency, uint32_t bandwidth)
{
    const int64_t centre = int64_t{frequency} * 2;
    const int64_t signalCentre = int64_t{signal.frequency} * 2;
    const int64_t low = std::max(centre - bandwidth, signalCentre - signal.bandwidth);
    const int64_t high = std::min(centre + bandwidth, signalCentre + signal.bandwidth);
    if (high < low)
        return 0;
    if (high - low == int64_t{signal.bandwidth} * 2) // a bare carrier too
        return 1;
    return static_cast<double>(high - low) / (2.0 * signal.bandwidth);
}

// The instant after now at which a signal comes or goes.
int64_t nextChange(const Signal &signal, int64_t now)
{
    if (now < signal.start)
        return signal.start;
    return now < signal.end ? signal.end : forever;
}

} // namespace

void listen(FrontEnd &frontEnd)
{
    Arrivals &arrivals = frontEnd.arrivals;
    const uint32_t frequency = actualFrequency(frontEnd, frontEnd.setup.rxSynthesiser);
    if (arrivals.isKnown && frequency == arrivals.frequency && frontEnd.now < arrivals.until)
        return;
    arrivals = {true, frequency, forever, {0, 0}};
    for (const Signal &signal : frontEnd.scenario->signals) {
        arrivals.until = std::min(arrivals.until, nextChange(signal, frontEnd.now));
        if (frontEnd.now < signal.start || frontEnd.now >= signal.end)
            continue;
        const double share = shareInside(signal, frequency, frontEnd.setup.mode->bandwidth);
        const double power = signal.power * share;
        for (int path = 0; path < 2; ++path)
            if (signal.antennas >> path & 1)
                arrivals.power[path] += power;
    }
}

} // namespace sorel
