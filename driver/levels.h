// SPDX-License-Identifier: LicenseRef-Proprietary
// The powers in the front end that follow from its settings, its surroundings and its temperature.
#ifndef SOREL_DRIVER_LEVELS_H
#define SOREL_DRIVER_LEVELS_H

#include "front_end.h"

namespace sorel
{

// Works the front end's levels out anew where something has changed. README.md has the formulas.
void refreshLevels(FrontEnd &frontEnd);

// Power at one path's receive converter, of its full scale: overloaded above 1.
double converterLevel(const FrontEnd &frontEnd, int path);

} // namespace sorel

#endif
