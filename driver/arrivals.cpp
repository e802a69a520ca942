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

bool isThere(const Signal &signal, int64_t now)
{
    return now >= signal.start && now < signal.end;
}

// The next instant after now at which a signal comes or goes.
int64_t nextChange(const std::vector<Signal> &signals, int64_t now)
{
    int64_t next = forever;
    for (const Signal &signal : signals) {
        if (now < signal.start)
            next = std::min(next, signal.start);
        else if (now < signal.end)
            next = std::min(next, signal.end);
    }
    return next;
}

void addTo(Arrivals &arrivals, const Signal &signal, uint32_t bandwidth)
{
    const double power = signal.power * shareInside(signal, arrivals.frequency, bandwidth);
    for (int path = 0; path < 2; ++path)
        if (signal.antennas >> path & 1)
            arrivals.power[path] += power;
}

} // namespace

void listen(FrontEnd &frontEnd)
{
    Arrivals &arrivals = frontEnd.arrivals;
    const std::vector<Signal> &signals = frontEnd.scenario->signals;
    const uint32_t frequency = actualFrequency(frontEnd, frontEnd.setup.rxSynthesiser);
    const bool isOver = !arrivals.isKnown || frontEnd.now >= arrivals.until;
    if (!isOver && frequency == arrivals.frequency)
        return;
    const int64_t until = isOver ? nextChange(signals, frontEnd.now) : arrivals.until;
    arrivals = {true, frequency, until, {0, 0}};
    for (const Signal &signal : signals)
        if (isThere(signal, frontEnd.now))
            addTo(arrivals, signal, frontEnd.setup.mode->bandwidth);
}

} // namespace sorel
