// SPDX-License-Identifier: LicenseRef-Proprietary
// The scenario of the process: that of the file which SOREL_SIM_SCENARIO names.
#ifndef SOREL_DRIVER_SCENARIO_FILE_H
#define SOREL_DRIVER_SCENARIO_FILE_H

#include "scenario.h"

#include <memory>

namespace sorel
{

// Reads the file again, for a board that is opened while that platform is selected. The faults of a
// file that has changed begin anew. Null, and no scenario from then on, where the file is refused;
// reportScenario() then says why.
std::shared_ptr<const Scenario> loadScenario(const Platform &selected);

// Says on standard error what is wrong with the file last read, once. Apart from reading it, so
// that no line of a trace is broken.
void reportScenario();

// The one last loaded; an empty one where there is none.
const Scenario &presentScenario();

} // namespace sorel

#endif
