// SPDX-License-Identifier: LicenseRef-Proprietary
// All that belongs to the process rather than to a board: the open contexts, and the selected
// platform.
#include "contexts.h"

#include "faults.h"
#include "in_scenario.h"
#include "scenario_file.h"
#include "simulated_time.h"

// A slot of the ring. A pointer to one is what the caller holds.
struct RadioContext {
    sorel::Board *board; // null while the context is not open
};

namespace sorel
{

namespace
{

RadioContext ring[ringSize];
int lastOpened = ringSize - 1;
int openCount = 0;

const Platform *selected = &platformOf(RADIO_PLATFORM_DEFAULT);

} // namespace

Outcome openContext(RadioContext *&context)
{
    const auto scenario = loadScenario(*selected);
    if (const Fault *const fault = befall("radioOpen"))
        return injected(*fault);
    if (!scenario)
        return refused(RADIO_EERROR, "the scenario is refused");
    if (openCount == openLimit)
        return refused(RADIO_EERROR, "as many contexts as can be are open");
    const Platform &platform = scenario->platform ? *scenario->platform : *selected;
    Board *const board = new Board{scenario, switchedOnInScenario(platform, *scenario), {}, {}};
    startTime(board->frontEnd);
    do
        lastOpened = (lastOpened + 1) % ringSize;
    while (ring[lastOpened].board);
    ring[lastOpened].board = board;
    ++openCount;
    context = &ring[lastOpened];
    return done();
}

void closeContext(RadioContext *context)
{
    delete context->board;
    context->board = nullptr;
    --openCount;
}

Board *boardOf(const RadioContext *context)
{
    // As numbers: pointers into different objects do not compare.
    const auto address = reinterpret_cast<uintptr_t>(context);
    const auto first = reinterpret_cast<uintptr_t>(ring);
    const uintptr_t offset = address - first;
    if (offset >= sizeof ring || offset % sizeof ring[0] != 0)
        return nullptr;
    return context->board;
}

const Platform &selectedPlatform(const Scenario &scenario)
{
    const bool isChosen = selected->platform != RADIO_PLATFORM_DEFAULT;
    return isChosen || !scenario.platform ? *selected : *scenario.platform;
}

void selectPlatform(const Platform &platform)
{
    selected = &platform;
}

} // namespace sorel
