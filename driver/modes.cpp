// SPDX-License-Identifier: LicenseRef-Proprietary
// The air-interface modes: which standard, which side of the link, which bandwidth.
#include "modes.h"

namespace sorel
{

namespace
{

using enum AirInterface;
using enum Role;

constexpr int32_t tenthOfMillisecond = 100'000;

// One time slot, 15/26 ms (3GPP TS 45.002 section 4.3.2): less leaves too much noise of 200 kHz.
constexpr int32_t timeSlot = 576'923;

// By the value of the mode. LTE bandwidths: the resource blocks of 3GPP TS 36.101 table 5.6-1 times
// 180 kHz. UTRA: the chip rate. Sample rates of UTRA: two per chip; of GSM: the lowest LTE rate.
// clang-format off
const Mode modes[] = {
    {RADIO_MODE_3GNODEB,            UtraFdd, BaseStation, 3'840'000,  7'680'000, tenthOfMillisecond},
    {RADIO_MODE_2GUERX,             Gsm,     Terminal,    200'000,    1'920'000, timeSlot},
    {RADIO_MODE_3GUERX,             UtraFdd, Terminal,    3'840'000,  7'680'000, tenthOfMillisecond},
    {RADIO_MODE_4GENODEB_FDD_3MHZ,  LteFdd,  BaseStation, 2'700'000,  3'840'000, tenthOfMillisecond},
    {RADIO_MODE_4GENODEB_FDD_5MHZ,  LteFdd,  BaseStation, 4'500'000,  7'680'000, tenthOfMillisecond},
    {RADIO_MODE_4GENODEB_FDD_10MHZ, LteFdd,  BaseStation, 9'000'000,  15'360'000, tenthOfMillisecond},
    {RADIO_MODE_4GENODEB_FDD_15MHZ, LteFdd,  BaseStation, 13'500'000, 23'040'000, tenthOfMillisecond},
    {RADIO_MODE_4GENODEB_FDD_20MHZ, LteFdd,  BaseStation, 18'000'000, 30'720'000, tenthOfMillisecond},
    {RADIO_MODE_4GENODEB_TDD_5MHZ,  LteTdd,  BaseStation, 4'500'000,  7'680'000, tenthOfMillisecond},
    {RADIO_MODE_4GENODEB_TDD_10MHZ, LteTdd,  BaseStation, 9'000'000,  15'360'000, tenthOfMillisecond},
    {RADIO_MODE_4GENODEB_TDD_20MHZ, LteTdd,  BaseStation, 18'000'000, 30'720'000, tenthOfMillisecond},
    {RADIO_MODE_4GUERX_FDD_5MHZ,    LteFdd,  Terminal,    4'500'000,  7'680'000, tenthOfMillisecond},
    {RADIO_MODE_4GUERX_FDD_10MHZ,   LteFdd,  Terminal,    9'000'000,  15'360'000, tenthOfMillisecond},
    {RADIO_MODE_4GUERX_FDD_20MHZ,   LteFdd,  Terminal,    18'000'000, 30'720'000, tenthOfMillisecond},
    {RADIO_MODE_4GUERX_TDD_5MHZ,    LteTdd,  Terminal,    4'500'000,  7'680'000, tenthOfMillisecond},
    {RADIO_MODE_4GUERX_TDD_10MHZ,   LteTdd,  Terminal,    9'000'000,  15'360'000, tenthOfMillisecond},
    {RADIO_MODE_4GUERX_TDD_20MHZ,   LteTdd,  Terminal,    18'000'000, 30'720'000, tenthOfMillisecond},
    {RADIO_MODE_TD_SCDMA_NODEB,     UtraTdd, BaseStation, 1'280'000,  2'560'000, tenthOfMillisecond},
};
// clang-format on

static_assert(sizeof modes / sizeof modes[0] == RADIO_MODE_COUNT);

} // namespace

const Mode &modeOf(RadioMode mode)
{
    return modes[mode];
}

bool isTimeDivision(const Mode &mode)
{
    return mode.airInterface == LteTdd || mode.airInterface == UtraTdd;
}

} // namespace sorel
