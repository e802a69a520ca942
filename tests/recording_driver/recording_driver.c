/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The functions of libsorel: each logs its call, then answers what the test wants. */
#include "answers.h"
#include "calls.h"

char *driverNames[] = {"first", "second", NULL};

RadioContext *radioOpen(void)
{
    static int opened;
    RadioContext *const next = opened < CONTEXTS ? &contexts[opened] : NULL;
    RadioContext *const context = answerPointer(__func__, next);
    if (context != NULL && context == next) {
        ++opened;
    }
    logOpen(context);
    return context;
}

RadioReturn radioSelectPlatform(RadioPlatformSelectIndex platform)
{
    logCall(__func__, "i", platform);
    return answerStatus(__func__);
}

RadioReturn radioClose(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerStatus(__func__);
}

RadioReturn radioSelect(RadioContext *context, RadioSelectIndex paths)
{
    logCall(__func__, "ci", context, paths);
    return answerStatus(__func__);
}

RadioReturn radioInit(RadioContext *context, RadioConf configuration, RadioMode mode,
                      RadioBand band)
{
    logCall(__func__, "ciii", context, configuration, mode, band);
    return answerStatus(__func__);
}

RadioReturn radioInitByScript(RadioContext *context, RadioConf configuration, RadioMode mode,
                              RadioBand band, const char *script)
{
    logCall(__func__, "ciiit", context, configuration, mode, band, script);
    return answerStatus(__func__);
}

RadioReturn radioCpriInit(RadioContext *context, RadioCpriRate rate)
{
    logCall(__func__, "ci", context, rate);
    return answerStatus(__func__);
}

RadioReturn radioReset(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerStatus(__func__);
}

RadioReturn radioLoadCalibrationFile(RadioContext *context, const char *path)
{
    logCall(__func__, "ct", context, path);
    return answerStatus(__func__);
}

RadioReturn radioGetIntegerFromCalibration(RadioContext *context, const char *name,
                                           int32_t *const value)
{
    logCall(__func__, "ctp", context, name, (const void *)value);
    return answerIntegerThrough(__func__, value);
}

RadioReturn radioGetStringFromCalibration(RadioContext *context, const char *name,
                                          const char **value)
{
    logCall(__func__, "ctp", context, name, (const void *)value);
    return answerTextThrough(__func__, value);
}

int32_t radioGetPlatformChipCount(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerInteger(__func__);
}

const char *radioGetPlatformName(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerText(__func__);
}

const char *radioVersion(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerText(__func__);
}

char **radioGetDriverNames(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerPointer(__func__, driverNames);
}

RadioReturn radioSetTxFrequency(RadioContext *context, uint32_t frequency)
{
    logCall(__func__, "cu", context, frequency);
    return answerStatus(__func__);
}

RadioReturn radioSetTxChannel(RadioContext *context, uint16_t channel)
{
    logCall(__func__, "ci", context, channel);
    return answerStatus(__func__);
}

RadioReturn radioSetTxState(RadioContext *context, RadioState state)
{
    logCall(__func__, "ci", context, state);
    return answerStatus(__func__);
}

RadioReturn radioSetTxStateOfAntenna(RadioContext *context, RadioTxAntenna antenna,
                                     RadioState state)
{
    logCall(__func__, "cii", context, antenna, state);
    return answerStatus(__func__);
}

RadioReturn radioSetTxMaxPower(RadioContext *context, int16_t power)
{
    logCall(__func__, "ci", context, power);
    return answerStatus(__func__);
}

RadioReturn radioSetTxMaxPowerOfAntenna(RadioContext *context, RadioTxAntenna antenna,
                                        int16_t power)
{
    logCall(__func__, "cii", context, antenna, power);
    return answerStatus(__func__);
}

RadioReturn radioSetTxDcOffset(RadioContext *context, RadioTxAntenna antenna, int16_t inPhase,
                               int16_t quadrature)
{
    logCall(__func__, "ciii", context, antenna, inPhase, quadrature);
    return answerStatus(__func__);
}

RadioReturn radioSetTxPowerRegisters(RadioContext *context, const uint32_t *registers,
                                     uint32_t count)
{
    logCall(__func__, "cr", context, registers, count);
    return answerStatus(__func__);
}

RadioReturn radioSetRxFrequency(RadioContext *context, uint32_t frequency)
{
    logCall(__func__, "cu", context, frequency);
    return answerStatus(__func__);
}

RadioReturn radioSetRxChannel(RadioContext *context, uint16_t channel)
{
    logCall(__func__, "ci", context, channel);
    return answerStatus(__func__);
}

RadioReturn radioSetRxState(RadioContext *context, RadioState state)
{
    logCall(__func__, "ci", context, state);
    return answerStatus(__func__);
}

RadioReturn radioSetRxStateOfAntenna(RadioContext *context, RadioRxAntenna antenna,
                                     RadioState state)
{
    logCall(__func__, "cii", context, antenna, state);
    return answerStatus(__func__);
}

RadioReturn radioSetRxGain(RadioContext *context, int16_t gain)
{
    logCall(__func__, "ci", context, gain);
    return answerStatus(__func__);
}

RadioReturn radioSetRxGainMode(RadioContext *context, RadioRxGainMode mode)
{
    logCall(__func__, "ci", context, mode);
    return answerStatus(__func__);
}

RadioReturn radioSetRxGainRegisters(RadioContext *context, const uint32_t *registers,
                                    uint32_t count)
{
    logCall(__func__, "cr", context, registers, count);
    return answerStatus(__func__);
}

RadioReturn radioSetLoopback(RadioContext *context, RadioLoopback loopback)
{
    logCall(__func__, "ci", context, loopback);
    return answerStatus(__func__);
}

float radioGetTemperature(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerFloat(__func__);
}

int32_t radioGetRxRtwp(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerInteger(__func__);
}

float radioGetRxRtwpIndBm(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerFloat(__func__);
}

int32_t radioGetRxRtwpOfAntenna(RadioContext *context, RadioRxAntenna antenna)
{
    logCall(__func__, "ci", context, antenna);
    return answerInteger(__func__);
}

float radioGetRxRtwpOfAntennaIndBm(RadioContext *context, RadioRxAntenna antenna)
{
    logCall(__func__, "ci", context, antenna);
    return answerFloat(__func__);
}

int32_t radioGetRxGainIndB(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerInteger(__func__);
}

int32_t radioGetRxGainOfAntennaIndB(RadioContext *context, RadioRxAntenna antenna)
{
    logCall(__func__, "ci", context, antenna);
    return answerInteger(__func__);
}

uint32_t radioSpiRead(RadioContext *context, uint32_t address)
{
    logCall(__func__, "cu", context, address);
    return answerUnsigned(__func__);
}

RadioReturn radioSpiWrite(RadioContext *context, uint32_t address, int32_t value)
{
    logCall(__func__, "cui", context, address, value);
    return answerStatus(__func__);
}

RadioReturn radioSetOscillatorDacValue(RadioContext *context, uint16_t value)
{
    logCall(__func__, "ci", context, value);
    return answerStatus(__func__);
}

uint32_t radioGetOscillatorDacValue(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerUnsigned(__func__);
}

int32_t radioGetOscillatorDacWidth(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerInteger(__func__);
}

int32_t radioGetDebugLevel(RadioContext *context)
{
    logCall(__func__, "c", context);
    return answerInteger(__func__);
}

RadioReturn radioSetDebugLevel(RadioContext *context, RadioDebug level)
{
    logCall(__func__, "ci", context, level);
    return answerStatus(__func__);
}

RadioReturn radioSetDebugFile(RadioContext *context, FILE *file)
{
    logCall(__func__, "cf", context, file);
    return answerStatus(__func__);
}
