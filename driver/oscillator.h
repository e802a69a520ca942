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
    if (uint32_t{value} >> frontEnd.platform->dacWidth != 0)
        return refused(RADIO_EINVAL, "the value is wider than the DAC");
    frontEnd.oscillatorDac = value;
    return done();
}

} // namespace sorel

#endif
