// SPDX-License-Identifier: LicenseRef-Proprietary
// The automatic gain control of the receivers.
#include "gain_control.h"

#include "decibel.h"
#include "gain_table.h"
#include "levels.h"
#include "synthesiser.h"

#include <algorithm>

namespace sorel
{

namespace
{

// The control decides once a period. Above the window it takes steps down, more of them where the
// converter is overloaded; below it, it takes steps up, as many as do not lead above the window.
struct GainControl {
    double low; // of the window, at the converter, in dB of full scale
    double high;
    int steps;         // of the gain table, in one decision
    int overloadSteps; // in one decision while the converter is overloaded
    int64_t period;    // in nanoseconds

    // The window as powers: each decision compares with it, and exp() takes longer than the rest.
    double lowPower = ratio(low);
    double highPower = ratio(high);
};

// clang-format off

// By the value of the gain mode. A fast attack needs room for what arrives before it acts, so its
// window lies lower.
const GainControl gainControls[] = {
    {},                             // RADIO_RX_GAIN_MGC, which controls nothing
    {-28, -20, 3, 9, 50'000},       // RADIO_RX_GAIN_AGC_FAST
    {-21, -15, 1, 2, 1'000'000},    // RADIO_RX_GAIN_AGC_SLOW
    {-21, -15, 1, 2, 1'000'000},    // RADIO_RX_GAIN_AGC_SLOW_HYBRID
};

// clang-format on

// Decisions fall on whole periods.
int64_t periodOf(const Receiver &receiver)
{
    return gainControls[receiver.gainMode].period;
}

bool isAtWork(const FrontEnd &frontEnd, const Receiver &receiver)
{
    return receiver.gainMode != RADIO_RX_GAIN_MGC && receiver.state == RADIO_STATE_ENABLE &&
           isRxLocked(frontEnd);
}

// The step that the control would go to at the present level.
int wantedStep(const FrontEnd &frontEnd, int path)
{
    const Receiver &receiver = frontEnd.setup.receivers[path];
    const GainControl &control = gainControls[receiver.gainMode];
    const double level = converterLevel(frontEnd, path);
    if (level > control.highPower)
        return std::max(receiver.step - (level > 1 ? control.overloadSteps : control.steps), 0);
    if (level >= control.lowPower)
        return receiver.step;
    const double room = control.high - dBmOf(level);
    const double gain = gainOf(frontEnd, receiver);
    int step = std::min(receiver.step + control.steps, gainSteps(frontEnd) - 1);
    while (step > receiver.step && gainOfStep(frontEnd, step) - gain > room)
        --step;
    return step;
}

void watch(FrontEnd &frontEnd, int path)
{
    Receiver &receiver = frontEnd.setup.receivers[path];
    receiver.isOverloaded =
        receiver.state == RADIO_STATE_ENABLE && converterLevel(frontEnd, path) > 1;
    if (!isAtWork(frontEnd, receiver))
        return;
    const bool holds = receiver.gainMode == RADIO_RX_GAIN_AGC_SLOW_HYBRID && receiver.isSettled;
    if (holds)
        return;
    receiver.isSettled = wantedStep(frontEnd, path) == receiver.step;
}

} // namespace

void wake(FrontEnd &frontEnd, int path)
{
    frontEnd.setup.receivers[path].isSettled = false;
}

void watchLevels(FrontEnd &frontEnd)
{
    for (int path = 0; path < pathCount(frontEnd); ++path)
        watch(frontEnd, path);
}

int64_t nextDecision(const FrontEnd &frontEnd)
{
    int64_t instant = forever;
    for (int path = 0; path < pathCount(frontEnd); ++path) {
        const Receiver &receiver = frontEnd.setup.receivers[path];
        if (receiver.isSettled || !isAtWork(frontEnd, receiver))
            continue;
        const int64_t period = periodOf(receiver);
        instant = std::min(instant, (frontEnd.now / period + 1) * period);
    }
    return instant;
}

void decide(FrontEnd &frontEnd)
{
    for (int path = 0; path < pathCount(frontEnd); ++path) {
        Receiver &receiver = frontEnd.setup.receivers[path];
        if (receiver.isSettled || !isAtWork(frontEnd, receiver) ||
            frontEnd.now % periodOf(receiver) != 0)
            continue;
        receiver.step = wantedStep(frontEnd, path);
        frontEnd.levels.isKnown = false;
    }
}

} // namespace sorel
