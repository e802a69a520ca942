// SPDX-License-Identifier: LicenseRef-Proprietary
// The hardware platforms that are simulated, and what each of them can do.
#ifndef SOREL_DRIVER_PLATFORMS_H
#define SOREL_DRIVER_PLATFORMS_H

#include "bands.h"

namespace sorel
{

// Synthesisers multiply this reference.
constexpr uint32_t referenceFrequency = 40'000'000; // Hz

// Power at a receive converter that it turns into its largest number.
constexpr double fullScale = 1.0; // mW: 0 dBm

// The chip temperature at which the transmitters are switched off, and the one below which they can
// be switched on again, in degrees Celsius.
constexpr int shutDownDegrees = 110;
constexpr int restartDegrees = 100;

struct Platform {
    RadioPlatformSelectIndex platform;
    const char *name;
    int chips;
    int antennas;          // of each direction
    uint32_t modes;        // bit n: the mode of value n
    uint64_t bands;        // that there are filters for; bit n: the band of value n
    uint32_t interfaces;   // for the samples; bit n: the RadioInterfaceMode of value n
    uint32_t cpriRates;    // bit n: the rate of value n; 0: no CPRI
    FrequencyRange tuning; // of the synthesisers; a band beyond it cannot be used
    uint32_t tuningStep;   // of the synthesisers, in Hz; divides the reference
    int32_t lockTime;      // of the synthesisers, in microseconds
    int dacWidth;          // of the reference oscillator's DAC, in bits
    int32_t dacStep;       // of that DAC on the reference, in 1e-10
    int txConverterWidth;  // in bits
    int rxConverterWidth;  // in bits
    int16_t lowestPower;   // of a transmitter, in 0.1 dBm
    int16_t highestPower;  // of a transmitter, in 0.1 dBm
    int16_t lowestGain;    // of a receiver, in dB
    int16_t highestGain;   // of a receiver, in dB
    double noiseFigure;    // of a receiver at its highest gain, at 25 degrees Celsius, in dB
    double noisePerGain;   // dB that the noise figure rises by per dB below the highest gain
    double noisePerDegree; // dB that it rises by per degree above 25 degrees Celsius
    int64_t heating;       // from chip to air, in K/W (nanodegrees per nanowatt)
    int64_t settling;      // time constant of the heating, in units of 0.1 ms
};

// The row of that platform, which must be a member of its enumeration.
const Platform &platformOf(RadioPlatformSelectIndex platform);

// The mode, band and rate must be members of their enumerations.
bool hasMode(const Platform &platform, RadioMode mode);
bool hasBand(const Platform &platform, RadioBand band);
bool hasCpriRate(const Platform &platform, RadioCpriRate rate);

} // namespace sorel

#endif
