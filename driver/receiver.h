// SPDX-License-Identifier: LicenseRef-Proprietary
// The receivers: switching, gain and gain mode.
#ifndef SOREL_DRIVER_RECEIVER_H
#define SOREL_DRIVER_RECEIVER_H

#include "front_end.h"

namespace sorel
{

// Present gain of one receiver of an initialised front end, to the nearest dB.
int presentGain(const FrontEnd &frontEnd, int path);

// The bodies of the functions of similar names; the arguments are members of their enumerations.
Outcome switchReceivers(FrontEnd &frontEnd, RadioState state);
Outcome switchReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, RadioState state);
Outcome setGain(FrontEnd &frontEnd, int16_t gain);
Outcome setGainOfReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, int16_t gain);
Outcome setGainMode(FrontEnd &frontEnd, RadioRxGainMode mode);
Outcome setGainModeOfReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, RadioRxGainMode mode);

} // namespace sorel

#endif
