// SPDX-License-Identifier: LicenseRef-Proprietary
// The hardware platforms that are simulated, and what each of them can do.
#include "platforms.h"

namespace sorel
{

namespace
{

// The bits of these values.
template <class... Values>
constexpr uint64_t bits(Values... values)
{
    return ((uint64_t{1} << values) | ...);
}

// The bits of the values from first to last.
constexpr uint64_t run(int first, int last)
{
    return ((uint64_t{1} << (last - first + 1)) - 1) << first;
}

constexpr uint64_t pairedBands = run(1, 14) | run(17, 25);
constexpr uint64_t unpairedBands = run(33, 43);
constexpr uint64_t gsmBands = run(RADIO_BAND_GSM_850, RADIO_BAND_GSM_1900);
constexpr uint64_t everyBand = pairedBands | unpairedBands | gsmBands;

constexpr uint32_t everyMode = run(0, RADIO_MODE_COUNT - 1);
constexpr uint32_t terminalModes = bits(RADIO_MODE_2GUERX, RADIO_MODE_3GUERX) |
                                   run(RADIO_MODE_4GUERX_FDD_5MHZ, RADIO_MODE_4GUERX_TDD_20MHZ);
constexpr uint32_t pairedModes = bits(RADIO_MODE_3GNODEB, RADIO_MODE_2GUERX, RADIO_MODE_3GUERX) |
                                 run(RADIO_MODE_4GENODEB_FDD_3MHZ, RADIO_MODE_4GENODEB_FDD_20MHZ) |
                                 run(RADIO_MODE_4GUERX_FDD_5MHZ, RADIO_MODE_4GUERX_FDD_20MHZ);
constexpr uint32_t unpairedModes =
    run(RADIO_MODE_4GENODEB_TDD_5MHZ, RADIO_MODE_4GENODEB_TDD_20MHZ) |
    run(RADIO_MODE_4GUERX_TDD_5MHZ, RADIO_MODE_4GUERX_TDD_20MHZ) | bits(RADIO_MODE_TD_SCDMA_NODEB);

constexpr FrequencyRange upTo2700MHz = {600'000'000, 2'700'000'000};
constexpr FrequencyRange upTo3800MHz = {600'000'000, 3'800'000'000};
constexpr FrequencyRange from1800MHz = {1'800'000'000, 3'800'000'000};

constexpr uint32_t noCpri = 0;
constexpr uint32_t everyCpri = bits(1, 2, 4, 5, 8, 10);
constexpr uint32_t slowCpri = bits(1, 2, 4, 5);
constexpr uint32_t fastCpri = bits(4, 5, 8, 10);

constexpr uint32_t parallel = bits(RADIO_INTERFACE_JESD_CMOS, RADIO_INTERFACE_JESD_LVDS);
constexpr uint32_t everyInterface = parallel | bits(RADIO_INTERFACE_CPRI);
constexpr uint32_t onlyCmos = bits(RADIO_INTERFACE_JESD_CMOS);
constexpr uint32_t lvdsAndCpri = bits(RADIO_INTERFACE_JESD_LVDS, RADIO_INTERFACE_CPRI);

// clang-format off

// By the value of the platform.
const Platform platforms[] = {
    {RADIO_PLATFORM_DEFAULT, "simulated board",
     1, 2, everyMode,     everyBand,              everyInterface, everyCpri,
     upTo3800MHz, 1,    60, 16, 3,   12, 12, -600, 240, 0, 76, 5.0, 0.25, 0.010, 8,  8192},
    {RADIO_PLATFORM_TALWIN,  "simulated Talwin",
     2, 2, everyMode,     everyBand,              lvdsAndCpri,    slowCpri,
     upTo2700MHz, 1,    60, 16, 3,   14, 14, -600, 240, 0, 72, 5.5, 0.25, 0.010, 6,  16384},
    {RADIO_PLATFORM_MERRIK,  "simulated Merrik",
     1, 2, pairedModes,   pairedBands | gsmBands, onlyCmos,       noCpri,
     upTo2700MHz, 100,  80, 12, 50,  10, 10, -500, 200, 0, 64, 6.5, 0.30, 0.015, 12, 4096},
    {RADIO_PLATFORM_OSTRAV,  "simulated Ostrav",
     1, 2, terminalModes, everyBand,              parallel,       noCpri,
     upTo3800MHz, 1,    50, 14, 12,  12, 12, -500, 230, 0, 76, 4.0, 0.20, 0.010, 9,  6144},
    {RADIO_PLATFORM_BELLAN,  "simulated Bellan",
     1, 1, unpairedModes, unpairedBands,          lvdsAndCpri,    fastCpri,
     from1800MHz, 1000, 90, 10, 200, 12, 12, -400, 270, 3, 60, 6.0, 0.25, 0.012, 5,  12288},
};

// clang-format on

static_assert(sizeof platforms / sizeof platforms[0] == RADIO_PLATFORM_COUNT);

} // namespace

const Platform &platformOf(RadioPlatformSelectIndex platform)
{
    return platforms[platform];
}

bool hasMode(const Platform &platform, RadioMode mode)
{
    return (platform.modes >> mode & 1) != 0;
}

bool hasBand(const Platform &platform, RadioBand band)
{
    return band <= RADIO_BAND_GSM_1900 && (platform.bands >> band & 1) != 0;
}

bool hasCpriRate(const Platform &platform, RadioCpriRate rate)
{
    return (platform.cpriRates >> rate & 1) != 0;
}

} // namespace sorel
