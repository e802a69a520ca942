// SPDX-License-Identifier: LicenseRef-Proprietary
// The gain steps of the receivers: one dB apart, or as radioSetRxGainRegisters() has loaded them.
#ifndef SOREL_DRIVER_GAIN_TABLE_H
#define SOREL_DRIVER_GAIN_TABLE_H

#include "front_end.h"

namespace sorel
{

// Number of the steps; the first is step 0.
int gainSteps(const FrontEnd &frontEnd);

// Gain of a step in dB.
double gainOfStep(const FrontEnd &frontEnd, int step);

// The highest step whose gain is not above that many dB; -1 when there is none.
int stepNotAbove(const FrontEnd &frontEnd, int gain);

// Present gain of a receiver of the front end, in dB.
double gainOf(const FrontEnd &frontEnd, const Receiver &receiver);

// The body of radioSetRxGainRegisters(). Gains in 0.1 dB. The receivers go to the highest steps
// not above the gains that they have been set to by hand or are at under automatic control, or to
// the lowest step.
Outcome loadGainTable(FrontEnd &frontEnd, const uint32_t *words, uint32_t count);

} // namespace sorel

#endif
