// SPDX-License-Identifier: LicenseRef-Proprietary
// The synthesisers: words, lock, and the frequency that comes out.
#include "synthesiser.h"

namespace sorel
{

namespace
{

int64_t lockTime(const FrontEnd &frontEnd)
{
    constexpr int64_t nanosecondsPerMicrosecond = 1'000;
    return frontEnd.scenario->lockTime != 0
               ? frontEnd.scenario->lockTime
               : frontEnd.platform->lockTime * nanosecondsPerMicrosecond;
}

// In time division there is one synthesiser, so what ails either ails both.
bool neverLocks(const FrontEnd &frontEnd, bool ownFault)
{
    const Conditions &conditions = frontEnd.conditions;
    const bool isShared = frontEnd.setup.mode && isTimeDivision(*frontEnd.setup.mode);
    return ownFault || (isShared && (conditions.txNeverLocks || conditions.rxNeverLocks));
}

} // namespace

uint32_t synthesised(const Platform &platform, uint32_t frequency)
{
    const uint64_t step = platform.tuningStep;
    return static_cast<uint32_t>((frequency + step / 2) / step * step);
}

void program(const FrontEnd &frontEnd, Synthesiser &synthesiser, uint32_t frequency)
{
    synthesiser.integerWord = frequency / referenceFrequency;
    if (frequency == synthesiser.frequency)
        return;
    synthesiser.frequency = frequency;
    synthesiser.locksAt = frontEnd.now + lockTime(frontEnd);
}

uint32_t fractionWord(const Platform &platform, const Synthesiser &synthesiser)
{
    return synthesiser.frequency % referenceFrequency / platform.tuningStep;
}

uint32_t frequencyOf(const Platform &platform, uint32_t integerWord, uint32_t fractionWord)
{
    if (integerWord > UINT32_MAX / referenceFrequency ||
        fractionWord >= referenceFrequency / platform.tuningStep)
        return 0;
    const uint64_t frequency =
        uint64_t{integerWord} * referenceFrequency + uint64_t{fractionWord} * platform.tuningStep;
    return frequency <= UINT32_MAX ? static_cast<uint32_t>(frequency) : 0;
}

bool isTxLocked(const FrontEnd &frontEnd)
{
    return frontEnd.now >= frontEnd.setup.txSynthesiser.locksAt &&
           !neverLocks(frontEnd, frontEnd.conditions.txNeverLocks);
}

bool isRxLocked(const FrontEnd &frontEnd)
{
    return frontEnd.now >= frontEnd.setup.rxSynthesiser.locksAt &&
           !neverLocks(frontEnd, frontEnd.conditions.rxNeverLocks);
}

void impose(FrontEnd &frontEnd, const Conditions &conditions)
{
    const int64_t locksAt = frontEnd.now + lockTime(frontEnd);
    if (frontEnd.conditions.txNeverLocks || conditions.txNeverLocks)
        frontEnd.setup.txSynthesiser.locksAt = locksAt;
    if (frontEnd.conditions.rxNeverLocks || conditions.rxNeverLocks)
        frontEnd.setup.rxSynthesiser.locksAt = locksAt;
    // What is stuck is put back after each call, whatever the call has changed.
    if (conditions.stuckCount != 0 || conditions != frontEnd.conditions)
        frontEnd.levels.isKnown = false;
    frontEnd.conditions = conditions;
}

uint32_t actualFrequency(const FrontEnd &frontEnd, const Synthesiser &synthesiser)
{
    constexpr int64_t perUnit = 10'000'000'000; // DAC steps are in 1e-10 of the frequency
    const int64_t middle = int64_t{1} << (frontEnd.platform->dacWidth - 1);
    const int64_t offset = (frontEnd.oscillatorDac - middle) * frontEnd.platform->dacStep;
    const int64_t change = offset * synthesiser.frequency;
    const int64_t rounding = change < 0 ? -perUnit / 2 : perUnit / 2;
    return static_cast<uint32_t>(synthesiser.frequency + (change + rounding) / perUnit);
}

} // namespace sorel
