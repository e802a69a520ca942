// SPDX-License-Identifier: LicenseRef-Proprietary
// The operating bands and their channel numbers, from the public 3GPP tables.
#ifndef SOREL_DRIVER_BANDS_H
#define SOREL_DRIVER_BANDS_H

#include "modes.h"

namespace sorel
{

enum class Direction { Downlink, Uplink };

// From low to high, both included, in Hz.
struct FrequencyRange {
    uint32_t low;
    uint32_t high;
};

constexpr bool contains(const FrequencyRange &range, uint32_t frequency)
{
    return frequency >= range.low && frequency <= range.high;
}

constexpr uint32_t centreOf(const FrequencyRange &range)
{
    return range.low + (range.high - range.low) / 2;
}

// Whether the public tables define the band for that air interface. Bands 15, 16 and 252 to 255
// have no row for any.
bool isBandOf(AirInterface airInterface, RadioBand band);

// The band's frequencies in one direction. The band must be one of that air interface's.
FrequencyRange bandRange(AirInterface airInterface, RadioBand band, Direction direction);

// Carrier frequency of a channel of the band in Hz, or 0 when it has no such channel. The number is
// the EARFCN for LTE, the UARFCN for UTRA and the ARFCN for GSM; each direction has its own numbers
// in LTE FDD and UTRA FDD (a band 7 uplink goes from 20750 to 21449).
uint32_t channelFrequency(AirInterface airInterface, RadioBand band, Direction direction,
                          uint16_t channel);

} // namespace sorel

#endif
