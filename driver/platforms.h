// SPDX-License-Identifier: LicenseRef-Proprietary
// The hardware platforms that are simulated, and what each of them can do.
#ifndef SOREL_DRIVER_PLATFORMS_H
#define SOREL_DRIVER_PLATFORMS_H

#include "bands.h"

namespace sorel
{

struct Platform {
    RadioPlatformSelectIndex platform;
    const char *name;
    int chips;
    int antennas;          // of each direction
    uint32_t modes;        // bit n: the mode of value n
    uint64_t bands;        // that there are filters for; bit n: the band of value n
    FrequencyRange tuning; // of the synthesisers; a band beyond it cannot be used
    int dacWidth;          // of the reference oscillator's DAC, in bits
    int converterWidth;    // of the transmit converter, in bits
    int16_t lowestPower;   // of a transmitter, in 0.1 dBm
    int16_t highestPower;  // of a transmitter, in 0.1 dBm
    int16_t lowestGain;    // of a receiver, in dB
    int16_t highestGain;   // of a receiver, in dB
    float noiseFigure;     // of a receiver at its highest gain, in dB
    uint32_t cpriRates;    // bit n: the rate of value n; 0: no CPRI
};

// The row of that platform, which must be a member of its enumeration.
const Platform &platformOf(RadioPlatformSelectIndex platform);

// The mode, band and rate must be members of their enumerations.
bool hasMode(const Platform &platform, RadioMode mode);
bool hasBand(const Platform &platform, RadioBand band);
bool hasCpriRate(const Platform &platform, RadioCpriRate rate);

} // namespace sorel

#endif
