// SPDX-License-Identifier: LicenseRef-Proprietary
// The automatic gain control of the receivers.
#ifndef SOREL_DRIVER_GAIN_CONTROL_H
#define SOREL_DRIVER_GAIN_CONTROL_H

#include "front_end.h"

namespace sorel
{

// Lets the gain control of one path look at its level again. Of the hybrid mode it is the trigger.
void wake(FrontEnd &frontEnd, int path);

// Sends the controls that the present levels give something to do to work, and those that they do
// not to rest. The hybrid mode stays at rest, once there, until wake().
void watchLevels(FrontEnd &frontEnd);

// The instant of the next decision; forever while all controls rest.
int64_t nextDecision(const FrontEnd &frontEnd);

// Takes the decisions that are due.
void decide(FrontEnd &frontEnd);

} // namespace sorel

#endif
