// SPDX-License-Identifier: LicenseRef-Proprietary
// Measuring the received total wideband power (RTWP) and what the transmitters give.
#ifndef SOREL_DRIVER_MEASUREMENT_H
#define SOREL_DRIVER_MEASUREMENT_H

#include "front_end.h"

namespace sorel
{

// RTWP at the antenna connector in 1/64 dBm, of one receiver, or of those selected ones together
// that are on. Each is another measurement, with its own noise. RADIO_EERROR while the receiver, or
// all of them, are switched off, RADIO_EAGAIN while the synthesiser has not locked.
Outcome measureReceiver(FrontEnd &frontEnd, RadioRxAntenna antenna, int32_t &power);
Outcome measureReceivers(FrontEnd &frontEnd, int32_t &power);

// Output of one transmitter in 1/64 dBm. RADIO_EERROR while there is none.
Outcome measureTransmitter(const FrontEnd &frontEnd, int path, int32_t &power);

} // namespace sorel

#endif
