// SPDX-License-Identifier: LicenseRef-Proprietary
// The air-interface modes: which standard, which side of the link, which bandwidth.
#ifndef SOREL_DRIVER_MODES_H
#define SOREL_DRIVER_MODES_H

#include "sorel.h"

namespace sorel
{

enum class AirInterface { Gsm, UtraFdd, UtraTdd, LteFdd, LteTdd };

// The side of the link that the radio plays: a base station transmits the downlink and receives the
// uplink, a terminal the other way round.
enum class Role { BaseStation, Terminal };

struct Mode {
    RadioMode mode;
    AirInterface airInterface;
    Role role;
    uint32_t bandwidth;  // that noise and signals are measured in: the occupied one, in Hz
    uint32_t sampleRate; // of one antenna on the data interface, in samples per second
    int32_t averaging;   // that a power measurement takes, in nanoseconds
};

// The row of that mode, which must be a member of its enumeration.
const Mode &modeOf(RadioMode mode);

// Whether both directions share one frequency.
bool isTimeDivision(const Mode &mode);

} // namespace sorel

#endif
