// SPDX-License-Identifier: LicenseRef-Proprietary
// The CPRI link: which line rate carries how much.
#include "link.h"

namespace sorel
{

namespace
{

struct LineRate {
    RadioCpriRate rate;
    uint32_t payload; // in kbit/s
};

// clang-format off

// CPRI specification V7.0 section 4.2: the line rate, less its line coding (8B/10B up to option 7,
// 64B/66B above) and the one control word in 16.
const LineRate lineRates[] = {
    {RADIO_CPRI_RATE_1,  460'800},
    {RADIO_CPRI_RATE_2,  921'600},
    {RADIO_CPRI_RATE_4,  2'304'000},
    {RADIO_CPRI_RATE_5,  3'686'400},
    {RADIO_CPRI_RATE_8,  9'216'000},
    {RADIO_CPRI_RATE_10, 22'118'400},
};

// clang-format on

// In-phase and quadrature, 15 bits each.
constexpr uint64_t bitsPerSample = 30;

} // namespace

bool linkCarries(RadioCpriRate rate, const Mode &mode, int antennas)
{
    const uint64_t needed =
        static_cast<uint64_t>(antennas) * mode.sampleRate * bitsPerSample / 1000;
    for (const LineRate &row : lineRates)
        if (row.rate == rate)
            return needed <= row.payload;
    return true;
}

Outcome startLink(FrontEnd &frontEnd, RadioCpriRate rate)
{
    if (frontEnd.setup.mode && !linkCarries(rate, *frontEnd.setup.mode, pathCount(frontEnd)))
        return refused(RADIO_EERROR, "the rate is too low for the mode and antennas set up");
    if (frontEnd.platform->cpriRates == 0)
        return refused(RADIO_ENOTSUP, "the platform has no CPRI");
    if (!hasCpriRate(*frontEnd.platform, rate))
        return refused(RADIO_ENOTSUP, "the platform lacks that line rate");
    frontEnd.cpriRate = rate;
    return done();
}

} // namespace sorel
