// SPDX-License-Identifier: LicenseRef-Proprietary
// The DAC that tunes the reference oscillator.
#ifndef SOREL_DRIVER_OSCILLATOR_H
#define SOREL_DRIVER_OSCILLATOR_H

#include "front_end.h"

namespace sorel
{

// RADIO_EINVAL beyond the DAC's width on the front end's platform.
inline Outcome setOscillatorDac(FrontEnd &frontEnd, uint16_t value)
{
    const int highest = (1 << frontEnd.platform->dacWidth) - 1;
    if (value > highest)
        return outside("value", value, 0, highest, "steps");
    frontEnd.oscillatorDac = value;
    return done();
}

} // namespace sorel

#endif
