// SPDX-License-Identifier: LicenseRef-Proprietary
// The transmitters: switching, limits, offsets, and the power they put out.
#ifndef SOREL_DRIVER_TRANSMITTER_H
#define SOREL_DRIVER_TRANSMITTER_H

#include "front_end.h"

namespace sorel
{

// The output of one transmitter in mW, 0 while it is switched off. It transmits at its limit, with
// what the baseband hands it; in RADIO_RX_TO_TX_LOOPBACK what its receiver hands it, up to the
// limit.
double outputMilliwatts(const FrontEnd &frontEnd, int path);

// The bodies of the functions of similar names; the arguments are members of their enumerations.
Outcome switchTransmitters(FrontEnd &frontEnd, RadioState state);
Outcome switchTransmitter(FrontEnd &frontEnd, RadioTxAntenna antenna, RadioState state);
Outcome limitTransmitters(FrontEnd &frontEnd, int16_t power);
Outcome limitTransmitter(FrontEnd &frontEnd, RadioTxAntenna antenna, int16_t power);
Outcome setTransmitterOffset(FrontEnd &frontEnd, RadioTxAntenna antenna, int16_t inPhase,
                             int16_t quadrature);
Outcome loadPowerTable(FrontEnd &frontEnd, const uint32_t *words, uint32_t count);
Outcome setLoopback(FrontEnd &frontEnd, RadioLoopback loopback);

} // namespace sorel

#endif
