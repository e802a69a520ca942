// SPDX-License-Identifier: LicenseRef-Proprietary
// The interface's functions for the receive path and the measurements.
#include "call.h"
#include "gain_table.h"
#include "measurement.h"
#include "receiver.h"
#include "transmitter.h"
#include "tuning.h"

using namespace sorel;

namespace
{

Outcome readTemperature(const FrontEnd &frontEnd, float &degrees)
{
    degrees = static_cast<float>(temperatureReading(frontEnd)) / 16;
    return done();
}

// Measurements come in 1/64 dBm, which a float holds exactly.
Outcome readRtwpOfAntennaIndBm(FrontEnd &frontEnd, RadioRxAntenna antenna, float &power)
{
    int32_t measured = 0;
    const Outcome outcome = measureReceiver(frontEnd, antenna, measured);
    if (!isRefused(outcome))
        power = static_cast<float>(measured) / 64;
    return outcome;
}

Outcome readRtwpIndBm(FrontEnd &frontEnd, float &power)
{
    int32_t measured = 0;
    const Outcome outcome = measureReceivers(frontEnd, measured);
    if (!isRefused(outcome))
        power = static_cast<float>(measured) / 64;
    return outcome;
}

// Rounds 1/64 dBm to 0.1 dBm, halves away from zero.
int32_t tenths(int32_t measured)
{
    const int32_t scaled = measured * 10;
    return (scaled + (scaled < 0 ? -32 : 32)) / 64;
}

Outcome readRtwpOfAntenna(FrontEnd &frontEnd, RadioRxAntenna antenna, int32_t &power)
{
    int32_t measured = 0;
    const Outcome outcome = measureReceiver(frontEnd, antenna, measured);
    if (!isRefused(outcome))
        power = tenths(measured);
    return outcome;
}

Outcome readRtwp(FrontEnd &frontEnd, int32_t &power)
{
    int32_t measured = 0;
    const Outcome outcome = measureReceivers(frontEnd, measured);
    if (!isRefused(outcome))
        power = tenths(measured);
    return outcome;
}

Outcome readGainOfAntenna(const FrontEnd &frontEnd, RadioRxAntenna antenna, int32_t &gain)
{
    const Outcome outcome = requirePath(frontEnd, antenna);
    if (!isRefused(outcome))
        gain = presentGain(frontEnd, antenna);
    return outcome;
}

Outcome readGain(const FrontEnd &frontEnd, int32_t &gain)
{
    const Outcome outcome = requireSelected(frontEnd);
    if (!isRefused(outcome))
        gain = presentGain(frontEnd, selectedPaths(frontEnd).first);
    return outcome;
}

} // namespace

extern "C" {

RadioReturn radioSetRxFrequency(RadioContext *context, uint32_t frequency)
{
    return command(context, __func__, tuneReceivers, frequency);
}

RadioReturn radioSetRxChannel(RadioContext *context, uint16_t channel)
{
    return command(context, __func__, tuneReceiversToChannel, channel);
}

RadioReturn radioSetRxState(RadioContext *context, RadioState state)
{
    return command(context, __func__, switchReceivers, state);
}

RadioReturn radioSetRxStateOfAntenna(RadioContext *context, RadioRxAntenna antenna,
                                     RadioState state)
{
    return command(context, __func__, switchReceiver, antenna, state);
}

RadioReturn radioSetRxGain(RadioContext *context, int16_t gain)
{
    return command(context, __func__, setGain, gain);
}

RadioReturn radioSetRxGainMode(RadioContext *context, RadioRxGainMode mode)
{
    return command(context, __func__, setGainMode, mode);
}

RadioReturn radioSetRxGainRegisters(RadioContext *context, const uint32_t *registers,
                                    uint32_t count)
{
    return command(context, __func__, loadGainTable, registers, count);
}

RadioReturn radioSetLoopback(RadioContext *context, RadioLoopback loopback)
{
    return command(context, __func__, setLoopback, loopback);
}

float radioGetTemperature(RadioContext *context)
{
    return reading<float>(context, __func__, readTemperature);
}

int32_t radioGetRxRtwp(RadioContext *context)
{
    return reading<int32_t>(context, __func__, readRtwp);
}

float radioGetRxRtwpIndBm(RadioContext *context)
{
    return reading<float>(context, __func__, readRtwpIndBm);
}

int32_t radioGetRxRtwpOfAntenna(RadioContext *context, RadioRxAntenna antenna)
{
    return reading<int32_t>(context, __func__, readRtwpOfAntenna, antenna);
}

float radioGetRxRtwpOfAntennaIndBm(RadioContext *context, RadioRxAntenna antenna)
{
    return reading<float>(context, __func__, readRtwpOfAntennaIndBm, antenna);
}

int32_t radioGetRxGainIndB(RadioContext *context)
{
    return reading<int32_t>(context, __func__, readGain);
}

int32_t radioGetRxGainOfAntennaIndB(RadioContext *context, RadioRxAntenna antenna)
{
    return reading<int32_t>(context, __func__, readGainOfAntenna, antenna);
}

} // extern "C"
