// SPDX-License-Identifier: LicenseRef-Proprietary
// The interface's functions for SPI registers, the reference oscillator and the debug messages.
#include "call.h"
#include "oscillator.h"
#include "registers.h"

using namespace sorel;

namespace
{

Outcome writeSigned(FrontEnd &frontEnd, uint32_t address, int32_t value)
{
    return writeRegister(frontEnd, address, static_cast<uint32_t>(value));
}

Outcome readDac(const FrontEnd &frontEnd, uint32_t &value)
{
    value = frontEnd.oscillatorDac;
    return done();
}

Outcome readDacWidth(const FrontEnd &frontEnd, int32_t &width)
{
    width = frontEnd.platform->dacWidth;
    return done();
}

Outcome readLevel(const DebugLog &log, int32_t &level)
{
    level = log.level;
    return done();
}

Outcome setLevel(DebugLog &log, RadioDebug level)
{
    log.level = level;
    return done();
}

Outcome setFile(DebugLog &log, FILE *file)
{
    log.file = file;
    return done();
}

} // namespace

extern "C" {

uint32_t radioSpiRead(RadioContext *context, uint32_t address)
{
    return reading<uint32_t>(context, __func__, readRegister, address);
}

RadioReturn radioSpiWrite(RadioContext *context, uint32_t address, int32_t value)
{
    return command(context, __func__, writeSigned, address, value);
}

RadioReturn radioSetOscillatorDacValue(RadioContext *context, uint16_t value)
{
    return command(context, __func__, setOscillatorDac, value);
}

uint32_t radioGetOscillatorDacValue(RadioContext *context)
{
    return reading<uint32_t>(context, __func__, readDac);
}

int32_t radioGetOscillatorDacWidth(RadioContext *context)
{
    return reading<int32_t>(context, __func__, readDacWidth);
}

int32_t radioGetDebugLevel(RadioContext *context)
{
    return reading<int32_t>(context, __func__, readLevel);
}

RadioReturn radioSetDebugLevel(RadioContext *context, RadioDebug level)
{
    return command(context, __func__, setLevel, level);
}

RadioReturn radioSetDebugFile(RadioContext *context, FILE *file)
{
    return command(context, __func__, setFile, file);
}

} // extern "C"
