// SPDX-License-Identifier: LicenseRef-Proprietary
// The synthesisers: words, lock, and the frequency that comes out.
#ifndef SOREL_DRIVER_SYNTHESISER_H
#define SOREL_DRIVER_SYNTHESISER_H

#include "front_end.h"

namespace sorel
{

// The nearest frequency that the platform's synthesisers can be set to; halves go up.
uint32_t synthesised(const Platform &platform, uint32_t frequency);

// Sets the synthesiser of a front end to a frequency that it can be set to. It has to lock anew
// where that is another one than before.
void program(const FrontEnd &frontEnd, Synthesiser &synthesiser, uint32_t frequency);

// A frequency is integer word * reference + fraction word * tuning step.
uint32_t fractionWord(const Platform &platform, const Synthesiser &synthesiser);

// The frequency of these words, or 0 where they make none of 32 bits.
uint32_t frequencyOf(const Platform &platform, uint32_t integerWord, uint32_t fractionWord);

// Whether they have settled on their frequency.
bool isTxLocked(const FrontEnd &frontEnd);
bool isRxLocked(const FrontEnd &frontEnd);

// Puts the conditions in force. The time to lock begins when nothing keeps a synthesiser from it.
void impose(FrontEnd &frontEnd, const Conditions &conditions);

// The frequency that a synthesiser really gives, in Hz: with what the oscillator's DAC adds.
uint32_t actualFrequency(const FrontEnd &frontEnd, const Synthesiser &synthesiser);

} // namespace sorel

#endif
