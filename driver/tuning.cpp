// SPDX-License-Identifier: LicenseRef-Proprietary
// Tuning both directions, by frequency or by channel number.
#include "tuning.h"

#include "gain_control.h"
#include "synthesiser.h"

namespace sorel
{

namespace
{

enum class End { Transmit, Receive };

void tune(FrontEnd &frontEnd, End end, uint32_t wanted)
{
    Setup &setup = frontEnd.setup;
    const uint32_t frequency = synthesised(*frontEnd.platform, wanted);
    const bool isShared = isTimeDivision(*setup.mode);
    if (end == End::Transmit || isShared)
        program(frontEnd, setup.txSynthesiser, frequency);
    if (end == End::Receive || isShared) {
        program(frontEnd, setup.rxSynthesiser, frequency);
        for (int path = 0; path < pathCount(frontEnd); ++path)
            wake(frontEnd, path);
    }
}

Outcome tuneToFrequency(FrontEnd &frontEnd, End end, uint32_t frequency)
{
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    const Setup &setup = frontEnd.setup;
    const FrequencyRange &range = end == End::Transmit ? setup.txRange : setup.rxRange;
    if (!contains(range, frequency))
        return outside("frequency", frequency, range.low, range.high, "Hz");
    tune(frontEnd, end, frequency);
    return done();
}

Outcome tuneToChannel(FrontEnd &frontEnd, End end, uint16_t channel)
{
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    const Mode &mode = *frontEnd.setup.mode;
    const bool isDownlink = (mode.role == Role::BaseStation) == (end == End::Transmit);
    const uint32_t frequency =
        channelFrequency(mode.airInterface, frontEnd.setup.band,
                         isDownlink ? Direction::Downlink : Direction::Uplink, channel);
    if (frequency == 0)
        return refused(RADIO_EINVAL, "the band has no such channel in that direction");
    tune(frontEnd, end, frequency);
    return done();
}

Outcome tuneByWords(FrontEnd &frontEnd, End end, uint32_t integerWord, uint32_t fractionWord)
{
    return tuneToFrequency(frontEnd, end,
                           frequencyOf(*frontEnd.platform, integerWord, fractionWord));
}

} // namespace

Outcome tuneTransmitters(FrontEnd &frontEnd, uint32_t frequency)
{
    return tuneToFrequency(frontEnd, End::Transmit, frequency);
}

Outcome tuneReceivers(FrontEnd &frontEnd, uint32_t frequency)
{
    return tuneToFrequency(frontEnd, End::Receive, frequency);
}

Outcome tuneTransmittersByWords(FrontEnd &frontEnd, uint32_t integerWord, uint32_t fractionWord)
{
    return tuneByWords(frontEnd, End::Transmit, integerWord, fractionWord);
}

Outcome tuneReceiversByWords(FrontEnd &frontEnd, uint32_t integerWord, uint32_t fractionWord)
{
    return tuneByWords(frontEnd, End::Receive, integerWord, fractionWord);
}

Outcome tuneTransmittersToChannel(FrontEnd &frontEnd, uint16_t channel)
{
    return tuneToChannel(frontEnd, End::Transmit, channel);
}

Outcome tuneReceiversToChannel(FrontEnd &frontEnd, uint16_t channel)
{
    return tuneToChannel(frontEnd, End::Receive, channel);
}

} // namespace sorel
