// SPDX-License-Identifier: LicenseRef-Proprietary
// The operating bands and their channel numbers, from the public 3GPP tables.
#include "bands.h"

#include <cstddef>

namespace sorel
{

namespace
{

// Channel numbers of one direction, from first to last.
struct Channels {
    uint16_t first;
    uint16_t last;
};

// A paired band, or an unpaired one (33 and up) with the same numbers both ways. Frequencies in
// 100 kHz, which is also the distance of the channels.
struct Band {
    RadioBand band;
    uint16_t downlinkLow;
    uint16_t downlinkHigh;
    Channels downlink; // EARFCN
    uint16_t uplinkLow;
    uint16_t uplinkHigh;
    Channels uplink; // EARFCN
};

// UARFCN of a UTRA FDD band: 5 * (frequency - offset), in MHz.
struct UtraBand {
    RadioBand band;
    int16_t downlinkOffset; // in MHz
    Channels downlink;
    int16_t uplinkOffset; // in MHz
    Channels uplink;
};

// One run of ARFCN of a GSM band. Frequencies and the duplex distance in 100 kHz; the channels are
// 200 kHz apart.
struct GsmBand {
    RadioBand band;
    uint16_t uplinkLow;
    uint16_t uplinkHigh;
    uint16_t duplexDistance;
    Channels channels;
    uint16_t firstUplink;
};

// clang-format off

// 3GPP TS 36.101 tables 5.5-1 and 5.7.3-1. UTRA has the same band edges: TS 25.101 table 5.0.
const Band bands[] = {
    {RADIO_BAND_1,  21100, 21700, {0,     599},   19200, 19800, {18000, 18599}},
    {RADIO_BAND_2,  19300, 19900, {600,   1199},  18500, 19100, {18600, 19199}},
    {RADIO_BAND_3,  18050, 18800, {1200,  1949},  17100, 17850, {19200, 19949}},
    {RADIO_BAND_4,  21100, 21550, {1950,  2399},  17100, 17550, {19950, 20399}},
    {RADIO_BAND_5,  8690,  8940,  {2400,  2649},  8240,  8490,  {20400, 20649}},
    {RADIO_BAND_6,  8750,  8850,  {2650,  2749},  8300,  8400,  {20650, 20749}},
    {RADIO_BAND_7,  26200, 26900, {2750,  3449},  25000, 25700, {20750, 21449}},
    {RADIO_BAND_8,  9250,  9600,  {3450,  3799},  8800,  9150,  {21450, 21799}},
    {RADIO_BAND_9,  18449, 18799, {3800,  4149},  17499, 17849, {21800, 22149}},
    {RADIO_BAND_10, 21100, 21700, {4150,  4749},  17100, 17700, {22150, 22749}},
    {RADIO_BAND_11, 14759, 14959, {4750,  4949},  14279, 14479, {22750, 22949}},
    {RADIO_BAND_12, 7290,  7460,  {5010,  5179},  6990,  7160,  {23010, 23179}},
    {RADIO_BAND_13, 7460,  7560,  {5180,  5279},  7770,  7870,  {23180, 23279}},
    {RADIO_BAND_14, 7580,  7680,  {5280,  5379},  7880,  7980,  {23280, 23379}},
    {RADIO_BAND_17, 7340,  7460,  {5730,  5849},  7040,  7160,  {23730, 23849}},
    {RADIO_BAND_18, 8600,  8750,  {5850,  5999},  8150,  8300,  {23850, 23999}},
    {RADIO_BAND_19, 8750,  8900,  {6000,  6149},  8300,  8450,  {24000, 24149}},
    {RADIO_BAND_20, 7910,  8210,  {6150,  6449},  8320,  8620,  {24150, 24449}},
    {RADIO_BAND_21, 14959, 15109, {6450,  6599},  14479, 14629, {24450, 24599}},
    {RADIO_BAND_22, 35100, 35900, {6600,  7399},  34100, 34900, {24600, 25399}},
    {RADIO_BAND_23, 21800, 22000, {7500,  7699},  20000, 20200, {25500, 25699}},
    {RADIO_BAND_24, 15250, 15590, {7700,  8039},  16265, 16605, {25700, 26039}},
    {RADIO_BAND_25, 19300, 19950, {8040,  8689},  18500, 19150, {26040, 26689}},
    {RADIO_BAND_33, 19000, 19200, {36000, 36199}, 19000, 19200, {36000, 36199}},
    {RADIO_BAND_34, 20100, 20250, {36200, 36349}, 20100, 20250, {36200, 36349}},
    {RADIO_BAND_35, 18500, 19100, {36350, 36949}, 18500, 19100, {36350, 36949}},
    {RADIO_BAND_36, 19300, 19900, {36950, 37549}, 19300, 19900, {36950, 37549}},
    {RADIO_BAND_37, 19100, 19300, {37550, 37749}, 19100, 19300, {37550, 37749}},
    {RADIO_BAND_38, 25700, 26200, {37750, 38249}, 25700, 26200, {37750, 38249}},
    {RADIO_BAND_39, 18800, 19200, {38250, 38649}, 18800, 19200, {38250, 38649}},
    {RADIO_BAND_40, 23000, 24000, {38650, 39649}, 23000, 24000, {38650, 39649}},
    {RADIO_BAND_41, 24960, 26900, {39650, 41589}, 24960, 26900, {39650, 41589}},
    {RADIO_BAND_42, 34000, 36000, {41590, 43589}, 34000, 36000, {41590, 43589}},
    {RADIO_BAND_43, 36000, 38000, {43590, 45589}, 36000, 38000, {43590, 45589}},
};

// 3GPP TS 25.101 tables 5.1 and 5.2.
const UtraBand utraBands[] = {
    {RADIO_BAND_1,  0,    {10562, 10838}, 0,    {9612, 9888}},
    {RADIO_BAND_2,  0,    {9662,  9938},  0,    {9262, 9538}},
    {RADIO_BAND_3,  1575, {1162,  1513},  1525, {937,  1288}},
    {RADIO_BAND_4,  1805, {1537,  1738},  1450, {1312, 1513}},
    {RADIO_BAND_5,  0,    {4357,  4458},  0,    {4132, 4233}},
    {RADIO_BAND_6,  0,    {4387,  4413},  0,    {4162, 4188}},
    {RADIO_BAND_7,  2175, {2237,  2563},  2100, {2012, 2338}},
    {RADIO_BAND_8,  340,  {2937,  3088},  340,  {2712, 2863}},
    {RADIO_BAND_9,  0,    {9237,  9387},  0,    {8762, 8912}},
    {RADIO_BAND_10, 1490, {3112,  3388},  1135, {2887, 3163}},
    {RADIO_BAND_11, 736,  {3712,  3787},  733,  {3487, 3562}},
    {RADIO_BAND_12, -37,  {3842,  3903},  -22,  {3617, 3678}},
    {RADIO_BAND_13, -55,  {4017,  4043},  21,   {3792, 3818}},
    {RADIO_BAND_14, -63,  {4117,  4143},  12,   {3892, 3918}},
    {RADIO_BAND_19, 735,  {712,   763},   770,  {312,  363}},
    {RADIO_BAND_20, -109, {4512,  4638},  -23,  {4287, 4413}},
    {RADIO_BAND_21, 1326, {862,   912},   1358, {462,  512}},
    {RADIO_BAND_22, 2580, {4662,  5038},  2525, {4437, 4813}},
    {RADIO_BAND_25, 910,  {5112,  5413},  875,  {4887, 5188}},
};

// 3GPP TS 45.005 section 2. E-GSM 900 has two runs of channels.
const GsmBand gsmBands[] = {
    {RADIO_BAND_GSM_850,  8240,  8490,  450, {128, 251},  8242},
    {RADIO_BAND_GSM_900,  8900,  9150,  450, {1,   124},  8902},
    {RADIO_BAND_GSM_900E, 8800,  9150,  450, {0,   124},  8900},
    {RADIO_BAND_GSM_900E, 8800,  9150,  450, {975, 1023}, 8802},
    {RADIO_BAND_GSM_1800, 17100, 17850, 950, {512, 885},  17102},
    {RADIO_BAND_GSM_1900, 18500, 19100, 800, {512, 810},  18502},
};

// clang-format on

constexpr uint32_t hundredKilohertz = 100'000;
constexpr uint32_t twoHundredKilohertz = 200'000;
constexpr uint32_t megahertz = 1'000'000;

template <class Row, std::size_t count>
const Row *rowOf(const Row (&rows)[count], RadioBand band)
{
    for (const Row &row : rows)
        if (row.band == band)
            return &row;
    return nullptr;
}

bool holds(const Channels &channels, uint16_t channel)
{
    return channel >= channels.first && channel <= channels.last;
}

bool isUnpaired(RadioBand band)
{
    return band >= RADIO_BAND_33 && band <= RADIO_BAND_43;
}

uint32_t lteFrequency(const Band &band, bool isDownlink, uint16_t channel)
{
    const Channels &channels = isDownlink ? band.downlink : band.uplink;
    if (!holds(channels, channel))
        return 0;
    const uint32_t low = isDownlink ? band.downlinkLow : band.uplinkLow;
    return (low + channel - channels.first) * hundredKilohertz;
}

uint32_t utraFrequency(const UtraBand &band, bool isDownlink, uint16_t channel)
{
    if (!holds(isDownlink ? band.downlink : band.uplink, channel))
        return 0;
    const int64_t offset = isDownlink ? band.downlinkOffset : band.uplinkOffset;
    return static_cast<uint32_t>(offset * megahertz + int64_t{channel} * twoHundredKilohertz);
}

// 3GPP TS 25.105 section 5.4: the UARFCN is 5 * frequency in MHz, within the band.
uint32_t timeDivisionUtraFrequency(const FrequencyRange &range, uint16_t channel)
{
    const uint64_t frequency = uint64_t{channel} * twoHundredKilohertz;
    return frequency >= range.low && frequency <= range.high ? static_cast<uint32_t>(frequency) : 0;
}

uint32_t gsmFrequency(RadioBand band, bool isDownlink, uint16_t channel)
{
    for (const GsmBand &row : gsmBands)
        if (row.band == band && holds(row.channels, channel)) {
            const uint32_t steps = channel - uint32_t{row.channels.first};
            return (row.firstUplink + (isDownlink ? row.duplexDistance : 0U)) * hundredKilohertz +
                   steps * twoHundredKilohertz;
        }
    return 0;
}

} // namespace

bool isBandOf(AirInterface airInterface, RadioBand band)
{
    switch (airInterface) {
    case AirInterface::Gsm:
        return rowOf(gsmBands, band) != nullptr;
    case AirInterface::UtraFdd:
        return rowOf(utraBands, band) != nullptr;
    case AirInterface::LteFdd:
        return !isUnpaired(band) && rowOf(bands, band) != nullptr;
    case AirInterface::UtraTdd:
    case AirInterface::LteTdd:
        return isUnpaired(band) && rowOf(bands, band) != nullptr;
    }
    return false;
}

FrequencyRange bandRange(AirInterface airInterface, RadioBand band, Direction direction)
{
    const bool isDownlink = direction == Direction::Downlink;
    if (airInterface == AirInterface::Gsm) {
        const GsmBand &row = *rowOf(gsmBands, band);
        const uint32_t shift = isDownlink ? row.duplexDistance : 0;
        return {(row.uplinkLow + shift) * hundredKilohertz,
                (row.uplinkHigh + shift) * hundredKilohertz};
    }
    const Band &row = *rowOf(bands, band);
    return {(isDownlink ? row.downlinkLow : row.uplinkLow) * hundredKilohertz,
            (isDownlink ? row.downlinkHigh : row.uplinkHigh) * hundredKilohertz};
}

uint32_t channelFrequency(AirInterface airInterface, RadioBand band, Direction direction,
                          uint16_t channel)
{
    const bool isDownlink = direction == Direction::Downlink;
    switch (airInterface) {
    case AirInterface::Gsm:
        return gsmFrequency(band, isDownlink, channel);
    case AirInterface::UtraFdd:
        return utraFrequency(*rowOf(utraBands, band), isDownlink, channel);
    case AirInterface::UtraTdd:
        return timeDivisionUtraFrequency(bandRange(airInterface, band, direction), channel);
    case AirInterface::LteFdd:
    case AirInterface::LteTdd:
        return lteFrequency(*rowOf(bands, band), isDownlink, channel);
    }
    return 0;
}

} // namespace sorel
