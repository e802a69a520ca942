// SPDX-License-Identifier: LicenseRef-Proprietary
// Initialisation scripts: register writes, one a line.
#ifndef SOREL_DRIVER_SCRIPT_H
#define SOREL_DRIVER_SCRIPT_H

#include "front_end.h"

namespace sorel
{

// Sets the front end up, then does what the script says. All or nothing: RADIO_EINVAL, before
// anything else is looked at, for a script that cannot be read or does not parse; otherwise what
// the setting up, the first refused write or the first failed check (RADIO_EERROR) answers.
// README.md has the syntax.
Outcome setUpByScript(FrontEnd &frontEnd, const Platform &platform, RadioConf configuration,
                      RadioMode mode, RadioBand band, const char *path);

} // namespace sorel

#endif
