// SPDX-License-Identifier: LicenseRef-Proprietary
// Switching a front end on, setting it up and resetting it as its scenario has it.
#include "in_scenario.h"

#include "registers.h"

namespace sorel
{

namespace
{

// All that can be written at present. What cannot has its time later, or is not on this platform.
void applyInitialRegisters(FrontEnd &frontEnd)
{
    for (const RegisterValue &initial : frontEnd.scenario->registers)
        writeRegister(frontEnd, initial.address, initial.value);
}

// Those that a front end without radioInit() refuses.
void applyRegistersOfSetup(FrontEnd &frontEnd)
{
    FrontEnd before = switchedOn(*frontEnd.platform, *frontEnd.scenario);
    for (const RegisterValue &initial : frontEnd.scenario->registers)
        if (isRefused(writeRegister(before, initial.address, initial.value)))
            writeRegister(frontEnd, initial.address, initial.value);
}

} // namespace

FrontEnd switchedOnInScenario(const Platform &platform, const Scenario &scenario)
{
    FrontEnd frontEnd = switchedOn(platform, scenario);
    applyInitialRegisters(frontEnd);
    return frontEnd;
}

Outcome setUpInScenario(FrontEnd &frontEnd, const Platform &platform, RadioConf configuration,
                        RadioMode mode, RadioBand band)
{
    const Platform *const there = frontEnd.scenario->platform;
    if (there && there != &platform)
        return refused(RADIO_ENOTSUP, "the board that is there is another platform");
    const bool isFresh = frontEnd.platform != &platform;
    const Outcome outcome = setUp(frontEnd, platform, configuration, mode, band);
    if (isRefused(outcome))
        return outcome;
    if (isFresh)
        applyInitialRegisters(frontEnd);
    else if (!frontEnd.scenario->registers.empty())
        applyRegistersOfSetup(frontEnd);
    return outcome;
}

Outcome resetInScenario(FrontEnd &frontEnd)
{
    const Outcome outcome = reset(frontEnd);
    applyInitialRegisters(frontEnd);
    return outcome;
}

} // namespace sorel
