// SPDX-License-Identifier: LicenseRef-Proprietary
// The interface's functions for platform, lifecycle and calibration.
#include "call.h"
#include "in_scenario.h"
#include "link.h"
#include "scenario_file.h"
#include "script.h"

using namespace sorel;

namespace
{

Outcome setUpSelected(FrontEnd &frontEnd, RadioConf configuration, RadioMode mode, RadioBand band)
{
    return setUpInScenario(frontEnd, selectedPlatform(*frontEnd.scenario), configuration, mode,
                           band);
}

Outcome setUpSelectedByScript(FrontEnd &frontEnd, RadioConf configuration, RadioMode mode,
                              RadioBand band, const char *script)
{
    return setUpByScript(frontEnd, selectedPlatform(*frontEnd.scenario), configuration, mode, band,
                         script);
}

Outcome switchOff(FrontEnd &frontEnd)
{
    for (Transmitter &transmitter : frontEnd.setup.transmitters)
        transmitter.state = RADIO_STATE_DISABLE;
    return done();
}

Outcome readChipCount(const FrontEnd &frontEnd, int32_t &count)
{
    count = frontEnd.platform->chips;
    return done();
}

Outcome readPlatformName(const FrontEnd &frontEnd, const char *&name)
{
    name = frontEnd.platform->name;
    return done();
}

// Writable, list and names: a caller may take the list for a place to store a pointer in. Nothing
// here reads it back.
char driverName[] = "simulation";
char *driverNames[] = {driverName, nullptr};

} // namespace

extern "C" {

RadioReturn radioSelectPlatform(RadioPlatformSelectIndex platform)
{
    if (!isMember(platform))
        return RADIO_EINVAL;
    if (const Fault *const fault = befall(__func__))
        return fault->status;
    selectPlatform(platformOf(platform));
    return RADIO_ESUCCESS;
}

RadioContext *radioOpen(void)
{
    try {
        return openContext();
    } catch (...) { // out of memory
        return nullptr;
    }
}

RadioReturn radioClose(RadioContext *context)
{
    const RadioReturn status = command(context, __func__, switchOff);
    if (status == RADIO_ESUCCESS)
        closeContext(context);
    return status;
}

RadioReturn radioSelect(RadioContext *context, RadioSelectIndex paths)
{
    return command(context, __func__, selectPaths, paths);
}

RadioReturn radioInit(RadioContext *context, RadioConf configuration, RadioMode mode,
                      RadioBand band)
{
    return command(context, __func__, setUpSelected, configuration, mode, band);
}

RadioReturn radioInitByScript(RadioContext *context, RadioConf configuration, RadioMode mode,
                              RadioBand band, const char *script)
{
    return command(context, __func__, setUpSelectedByScript, configuration, mode, band, script);
}

RadioReturn radioCpriInit(RadioContext *context, RadioCpriRate rate)
{
    return command(context, __func__, startLink, rate);
}

RadioReturn radioReset(RadioContext *context)
{
    return command(context, __func__, resetInScenario);
}

RadioReturn radioLoadCalibrationFile(RadioContext *context, const char *path)
{
    return command(context, __func__, loadCalibration, path);
}

RadioReturn radioGetIntegerFromCalibration(RadioContext *context, const char *name,
                                           int32_t *const value)
{
    return command(context, __func__, findInteger, name, value);
}

RadioReturn radioGetStringFromCalibration(RadioContext *context, const char *name,
                                          const char **value)
{
    return command(context, __func__, findString, name, value);
}

int32_t radioGetPlatformChipCount(RadioContext *context)
{
    return reading<int32_t>(context, __func__, readChipCount);
}

const char *radioGetPlatformName(RadioContext *context)
{
    if (!context)
        return befall(__func__) ? nullptr : selectedPlatform(presentScenario()).name;
    return reading<const char *>(context, __func__, readPlatformName);
}

const char *radioVersion(RadioContext *)
{
    return befall(__func__) ? nullptr : SOREL_SIMULATION_VERSION;
}

char **radioGetDriverNames(RadioContext *)
{
    return befall(__func__) ? nullptr : driverNames;
}

} // extern "C"
