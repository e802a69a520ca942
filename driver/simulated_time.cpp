// SPDX-License-Identifier: LicenseRef-Proprietary
// Simulated time, and what happens on the board while it passes.
#include "simulated_time.h"

#include "events.h"
#include "gain_control.h"
#include "levels.h"
#include "synthesiser.h"

#include <algorithm>
#include <ctime>

namespace sorel
{

namespace
{

constexpr int64_t nanosecondsPerSecond = 1'000'000'000;

int64_t realTime()
{
    timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

int64_t lockAfter(const Synthesiser &synthesiser, int64_t now)
{
    return synthesiser.locksAt > now ? synthesiser.locksAt : forever;
}

// The next instant at which something happens by itself.
int64_t nextEvent(const FrontEnd &frontEnd)
{
    if (!frontEnd.setup.mode)
        return forever;
    const int64_t lock = std::min(lockAfter(frontEnd.setup.txSynthesiser, frontEnd.now),
                                  lockAfter(frontEnd.setup.rxSynthesiser, frontEnd.now));
    return std::min({frontEnd.arrivals.until, lock, nextDecision(frontEnd)});
}

void noteLostLocks(FrontEnd &frontEnd)
{
    if (frontEnd.setup.mode && !isTxLocked(frontEnd))
        frontEnd.events |= TxUnlocked;
    if (frontEnd.setup.mode && !isRxLocked(frontEnd))
        frontEnd.events |= RxUnlocked;
}

void noteOverloads(FrontEnd &frontEnd)
{
    for (int path = 0; path < pathCount(frontEnd); ++path)
        if (frontEnd.setup.receivers[path].isOverloaded)
            frontEnd.events |= FirstOverload << path;
}

// Brings everything that follows from the state up to date with it.
void settle(FrontEnd &frontEnd)
{
    if (frontEnd.levels.isKnown)
        return;
    refreshLevels(frontEnd);
    watchLevels(frontEnd);
    noteOverloads(frontEnd);
    noteLostLocks(frontEnd);
}

} // namespace

void startTime(FrontEnd &frontEnd)
{
    frontEnd.opened = realTime();
}

void passTime(FrontEnd &frontEnd)
{
    const bool followsRealTime = frontEnd.scenario->clock == Clock::Wall;
    advance(frontEnd, followsRealTime ? realTime() - frontEnd.opened - frontEnd.now : callTime);
}

void advance(FrontEnd &frontEnd, int64_t duration)
{
    const int64_t end = frontEnd.now + duration;
    settle(frontEnd);
    while (frontEnd.now < end) {
        const int64_t event = nextEvent(frontEnd);
        frontEnd.now = std::min(end, std::max(event, frontEnd.now + 1));
        warm(frontEnd);
        if (frontEnd.now >= event) {
            decide(frontEnd);
            frontEnd.levels.isKnown = false;
        }
        settle(frontEnd);
    }
}

void wait(FrontEnd &frontEnd, int64_t duration)
{
    if (frontEnd.scenario->clock == Clock::Wall) {
        timespec rest = {static_cast<time_t>(duration / nanosecondsPerSecond),
                         static_cast<long>(duration % nanosecondsPerSecond)};
        while (nanosleep(&rest, &rest) != 0) {
        }
        passTime(frontEnd);
        return;
    }
    advance(frontEnd, duration);
}

} // namespace sorel
