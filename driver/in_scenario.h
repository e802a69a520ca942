// SPDX-License-Identifier: LicenseRef-Proprietary
// Switching a front end on, setting it up and resetting it as its scenario has it: the platform
// that is there, and what the registers hold at first.
#ifndef SOREL_DRIVER_IN_SCENARIO_H
#define SOREL_DRIVER_IN_SCENARIO_H

#include "front_end.h"

namespace sorel
{

// As switchedOn(), setUp() and reset(). Registers that cannot be written before radioInit() get
// their first values with the setting up; RADIO_ENOTSUP for another platform than the scenario's.
FrontEnd switchedOnInScenario(const Platform &platform, const Scenario &scenario);
Outcome setUpInScenario(FrontEnd &frontEnd, const Platform &platform, RadioConf configuration,
                        RadioMode mode, RadioBand band);
Outcome resetInScenario(FrontEnd &frontEnd);

} // namespace sorel

#endif
