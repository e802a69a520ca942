// SPDX-License-Identifier: LicenseRef-Proprietary
// The scenario's signals as they arrive in the receivers' channel.
#ifndef SOREL_DRIVER_ARRIVALS_H
#define SOREL_DRIVER_ARRIVALS_H

#include "front_end.h"

namespace sorel
{

// Works the front end's arrivals out anew where tuning or time has changed them. The channel is as
// wide as the mode's bandwidth and ideal: of a signal that overlaps it, the part inside counts.
void listen(FrontEnd &frontEnd);

} // namespace sorel

#endif
