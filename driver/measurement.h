// SPDX-License-Identifier: LicenseRef-Proprietary
// What reaches a receiver, and the total wideband power (RTWP) that it measures.
#ifndef SOREL_DRIVER_MEASUREMENT_H
#define SOREL_DRIVER_MEASUREMENT_H

#include "front_end.h"

namespace sorel
{

// Power at the antenna connector of one receiver in the mode's bandwidth, in mW: thermal noise, and
// the own transmitter in RADIO_TX_TO_RX_LOOPBACK.
double inputMilliwatts(const FrontEnd &frontEnd, int path);

// Power that one receiver measures, referred to its antenna connector, in mW: the input, and the
// noise that the receiver adds at its present gain.
double receivedMilliwatts(const FrontEnd &frontEnd, int path);

// RTWP in 1/64 dBm, of one receiver, or of those selected ones together that are on. RADIO_EERROR
// while the receiver, or all of them, are switched off.
Outcome measureReceiver(const FrontEnd &frontEnd, RadioRxAntenna antenna, int32_t &power);
Outcome measureReceivers(const FrontEnd &frontEnd, int32_t &power);

} // namespace sorel

#endif
