// SPDX-License-Identifier: LicenseRef-Proprietary
// The CPRI link: which line rate carries how much.
#ifndef SOREL_DRIVER_LINK_H
#define SOREL_DRIVER_LINK_H

#include "front_end.h"

namespace sorel
{

// Whether a link of that rate carries the samples of that many antennas. A link that is down (rate
// 0) limits nothing: the samples then take another interface.
bool linkCarries(RadioCpriRate rate, const Mode &mode, int antennas);

// RADIO_EERROR when the rate is too low for what radioInit() has set up, RADIO_ENOTSUP when the
// platform has no CPRI, or not at that rate.
Outcome startLink(FrontEnd &frontEnd, RadioCpriRate rate);

} // namespace sorel

#endif
