// SPDX-License-Identifier: LicenseRef-Proprietary
// The receivers: switching, gain and its control.
#ifndef SOREL_DRIVER_RECEIVER_H
#define SOREL_DRIVER_RECEIVER_H

#include "front_end.h"

namespace sorel
{

// Gain of one receiver of an initialised front end, in dB: as set in manual mode, and otherwise
// what the control chooses for the present input (held since the last trigger in the hybrid mode).
int presentGain(const FrontEnd &frontEnd, int path);

// A trigger of the hybrid gain control: it chooses its gain anew for the present input.
void triggerGain(FrontEnd &frontEnd, int path);

// The bodies of the functions of similar names; the arguments are members of their enumerations.
Outcome switchReceivers(FrontEnd &frontEnd, RadioState state);
Outcome switchReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, RadioState state);
Outcome setGain(FrontEnd &frontEnd, int16_t gain);
Outcome setGainOfReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, int16_t gain);
Outcome setGainMode(FrontEnd &frontEnd, RadioRxGainMode mode);
Outcome setGainModeOfReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, RadioRxGainMode mode);
Outcome loadGainTable(FrontEnd &frontEnd, const uint32_t *words, uint32_t count);

} // namespace sorel

#endif
