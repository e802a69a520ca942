// SPDX-License-Identifier: LicenseRef-Proprietary
// All that belongs to the process rather than to a board: the open contexts, and the selected
// platform.
#ifndef SOREL_DRIVER_CONTEXTS_H
#define SOREL_DRIVER_CONTEXTS_H

#include "board.h"

namespace sorel
{

// Contexts that may be open at once.
constexpr int openLimit = 16;

// A context that is closed stays recognisable: its address is not handed out again by the next
// ringSize - openLimit opens.
constexpr int ringSize = 4096;

// Opens a context on a board that has just been switched on: the one of the scenario, or of the
// selected platform where that names none. RADIO_EERROR when the scenario is refused or openLimit
// contexts are open. Throws std::bad_alloc.
Outcome openContext(RadioContext *&context);

// Ends what boardOf() has found.
void closeContext(RadioContext *context);

// The board of an open context; null for any other pointer, whatever it points to.
Board *boardOf(const RadioContext *context);

// RADIO_PLATFORM_DEFAULT until another one is selected; that is the platform that the scenario
// names, if it does.
const Platform &selectedPlatform(const Scenario &scenario);
void selectPlatform(const Platform &platform);

} // namespace sorel

#endif
