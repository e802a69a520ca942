// SPDX-License-Identifier: LicenseRef-Proprietary
// Tuning both directions, by frequency or by channel number.
#ifndef SOREL_DRIVER_TUNING_H
#define SOREL_DRIVER_TUNING_H

#include "front_end.h"

namespace sorel
{

// The frequency is rounded to what the synthesiser can be set to. In time division one synthesiser
// serves both directions: tuning either tunes both.
Outcome tuneTransmitters(FrontEnd &frontEnd, uint32_t frequency);
Outcome tuneReceivers(FrontEnd &frontEnd, uint32_t frequency);

// By the words of a synthesiser. RADIO_EINVAL also for words that make no frequency.
Outcome tuneTransmittersByWords(FrontEnd &frontEnd, uint32_t integerWord, uint32_t fractionWord);
Outcome tuneReceiversByWords(FrontEnd &frontEnd, uint32_t integerWord, uint32_t fractionWord);

// By EARFCN, UARFCN or ARFCN of the direction that the mode transmits or receives in.
Outcome tuneTransmittersToChannel(FrontEnd &frontEnd, uint16_t channel);
Outcome tuneReceiversToChannel(FrontEnd &frontEnd, uint16_t channel);

} // namespace sorel

#endif
