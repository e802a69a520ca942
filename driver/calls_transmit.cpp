// SPDX-License-Identifier: LicenseRef-Proprietary
// The interface's functions for the transmit path.
#include "call.h"
#include "power_table.h"
#include "transmitter.h"
#include "tuning.h"

using namespace sorel;

extern "C" {

RadioReturn radioSetTxFrequency(RadioContext *context, uint32_t frequency)
{
    return command(context, __func__, tuneTransmitters, frequency);
}

RadioReturn radioSetTxChannel(RadioContext *context, uint16_t channel)
{
    return command(context, __func__, tuneTransmittersToChannel, channel);
}

RadioReturn radioSetTxState(RadioContext *context, RadioState state)
{
    return command(context, __func__, switchTransmitters, state);
}

RadioReturn radioSetTxStateOfAntenna(RadioContext *context, RadioTxAntenna antenna,
                                     RadioState state)
{
    return command(context, __func__, switchTransmitter, antenna, state);
}

RadioReturn radioSetTxMaxPower(RadioContext *context, int16_t power)
{
    return command(context, __func__, limitTransmitters, power);
}

RadioReturn radioSetTxMaxPowerOfAntenna(RadioContext *context, RadioTxAntenna antenna,
                                        int16_t power)
{
    return command(context, __func__, limitTransmitter, antenna, power);
}

RadioReturn radioSetTxDcOffset(RadioContext *context, RadioTxAntenna antenna, int16_t inPhase,
                               int16_t quadrature)
{
    return command(context, __func__, setTransmitterOffset, antenna, inPhase, quadrature);
}

RadioReturn radioSetTxPowerRegisters(RadioContext *context, const uint32_t *registers,
                                     uint32_t count)
{
    return command(context, __func__, loadPowerTable, registers, count);
}

} // extern "C"
