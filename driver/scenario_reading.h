// SPDX-License-Identifier: LicenseRef-Proprietary
// Reading the text of a scenario file. README.md has its form.
#ifndef SOREL_DRIVER_SCENARIO_READING_H
#define SOREL_DRIVER_SCENARIO_READING_H

#include "scenario.h"

namespace sorel
{

struct Mistake {
    unsigned line; // 0: the file as a whole
    unsigned column;
    std::string text; // with pieces of the file as they are
};

// The mistakes in the text, in their order in it; without any, scenario is what the text says.
// Addresses are those of the platform that it names, or else of selected.
std::vector<Mistake> readScenario(const std::string &text, const Platform &selected,
                                  Scenario &scenario);

} // namespace sorel

#endif
