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

Outcome selectMember(RadioPlatformSelectIndex platform, const Fault *fault)
{
    if (const Outcome outcome = checkMembers(platform); isRefused(outcome))
        return outcome;
    if (fault)
        return injected(*fault);
    selectPlatform(platformOf(platform));
    return done();
}

Outcome openAnother(RadioContext *&context)
{
    try {
        return openContext(context);
    } catch (...) {
        return refused(RADIO_EERROR, "out of memory");
    }
}

Outcome readSelectedName(const char *&name)
{
    name = selectedPlatform(presentScenario()).name;
    return done();
}

Outcome readVersion(const char *&version)
{
    version = SOREL_SIMULATION_VERSION;
    return done();
}

// Writable, list and names: a caller may take the list for a place to store a pointer in. Nothing
// here reads it back.
char driverName[] = "simulation";
char *driverNames[] = {driverName, nullptr};

Outcome readDriverNames(char **&names)
{
    names = driverNames;
    return done();
}

} // namespace

extern "C" {

RadioReturn radioSelectPlatform(RadioPlatformSelectIndex platform)
{
    const auto select = [&](RadioReturn &status) {
        const Outcome outcome = selectMember(platform, befall("radioSelectPlatform"));
        status = outcome.status;
        return outcome;
    };
    return answer<RadioReturn>(nullptr, __func__, RADIO_DEBUG_INFO, select, platform);
}

RadioContext *radioOpen(void)
{
    if (Trace *const trace = currentTrace())
        trace->setTime(0);
    RadioContext *const context =
        answer<RadioContext *>(nullptr, __func__, RADIO_DEBUG_INFO, openAnother);
    reportScenario();
    return context;
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
        return withoutContext<const char *>(__func__, readSelectedName, context);
    return reading<const char *>(context, __func__, readPlatformName);
}

const char *radioVersion(RadioContext *context)
{
    return withoutContext<const char *>(__func__, readVersion, context);
}

char **radioGetDriverNames(RadioContext *context)
{
    return withoutContext<char **>(__func__, readDriverNames, context);
}

} // extern "C"
