// SPDX-License-Identifier: LicenseRef-Proprietary
// The transmitters: switching, power limits, DC offsets; and the loopback.
#ifndef SOREL_DRIVER_TRANSMITTER_H
#define SOREL_DRIVER_TRANSMITTER_H

#include "front_end.h"

namespace sorel
{

// The carrier that leaks through one transmitter, in 1/64 dB of its full scale. Each board has its
// own imbalance, which follows from its serial number; the DC offsets that cancel it leave a rest.
int32_t carrierLeakage(const FrontEnd &frontEnd, int path);

// The bodies of the functions of similar names; the arguments are members of their enumerations.
// Switching on is RADIO_EAGAIN while the synthesiser has not locked, and RADIO_EERROR while the
// heat keeps the transmitters off.
Outcome switchTransmitters(FrontEnd &frontEnd, RadioState state);
Outcome switchTransmitter(FrontEnd &frontEnd, RadioTxAntenna antenna, RadioState state);
Outcome limitTransmitters(FrontEnd &frontEnd, int16_t power);
Outcome limitTransmitter(FrontEnd &frontEnd, RadioTxAntenna antenna, int16_t power);
Outcome setTransmitterOffset(FrontEnd &frontEnd, RadioTxAntenna antenna, int16_t inPhase,
                             int16_t quadrature);
Outcome setLoopback(FrontEnd &frontEnd, RadioLoopback loopback);

} // namespace sorel

#endif
