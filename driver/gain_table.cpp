// SPDX-License-Identifier: LicenseRef-Proprietary
// The gain steps of the receivers: one dB apart, or as radioSetRxGainRegisters() has loaded them.
#include "gain_table.h"

#include "register_table.h"

#include <cmath>

namespace sorel
{

namespace
{

constexpr int tenthsPerDecibel = 10;

// The highest step whose gain is not above that many 0.1 dB; -1 when there is none.
int stepNotAboveTenths(const FrontEnd &frontEnd, int tenths)
{
    const RegisterTable &table = frontEnd.setup.gainTable;
    return table.count != 0 ? lastNotAbove(table, tenths)
                            : tenths / tenthsPerDecibel - frontEnd.platform->lowestGain;
}

// What a receiver has been set to by hand, or is at under automatic control, in 0.1 dB.
int tenthsOf(const FrontEnd &frontEnd, const Receiver &receiver)
{
    if (receiver.gainMode == RADIO_RX_GAIN_MGC)
        return receiver.manualGain * tenthsPerDecibel;
    return static_cast<int>(std::lround(gainOf(frontEnd, receiver) * tenthsPerDecibel));
}

} // namespace

int gainSteps(const FrontEnd &frontEnd)
{
    const RegisterTable &table = frontEnd.setup.gainTable;
    const Platform &platform = *frontEnd.platform;
    return table.count != 0 ? static_cast<int>(table.count)
                            : platform.highestGain - platform.lowestGain + 1;
}

double gainOfStep(const FrontEnd &frontEnd, int step)
{
    const RegisterTable &table = frontEnd.setup.gainTable;
    return table.count != 0 ? static_cast<int32_t>(table.words[step]) / double{tenthsPerDecibel}
                            : frontEnd.platform->lowestGain + step;
}

int stepNotAbove(const FrontEnd &frontEnd, int gain)
{
    return stepNotAboveTenths(frontEnd, gain * tenthsPerDecibel);
}

double gainOf(const FrontEnd &frontEnd, const Receiver &receiver)
{
    return gainOfStep(frontEnd, receiver.step);
}

Outcome loadGainTable(FrontEnd &frontEnd, const uint32_t *words, uint32_t count)
{
    const Platform &platform = *frontEnd.platform;
    if (const Outcome outcome = checkTable(words, count, platform.lowestGain * tenthsPerDecibel,
                                           platform.highestGain * tenthsPerDecibel);
        isRefused(outcome))
        return outcome;
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    int present[2] = {};
    for (int path = 0; path < pathCount(frontEnd); ++path)
        present[path] = tenthsOf(frontEnd, frontEnd.setup.receivers[path]);
    storeTable(frontEnd.setup.gainTable, words, count);
    for (int path = 0; path < pathCount(frontEnd); ++path)
        frontEnd.setup.receivers[path].step =
            std::max(stepNotAboveTenths(frontEnd, present[path]), 0);
    return done();
}

} // namespace sorel
