// SPDX-License-Identifier: LicenseRef-Proprietary
// The table of platforms in driver/README.md, each number of it held against the board.
#include "platform_table.h"

#include <algorithm>
#include <set>

namespace sorel_tests
{

namespace
{

using PlatformTable = PlatformTableTest;

// The kind of a mode, as the table words it.
std::set<std::string> kindsOf(RadioMode mode)
{
    if (mode == RADIO_MODE_2GUERX)
        return {"all", "2G", "all UERX"};
    if (mode == RADIO_MODE_3GNODEB)
        return {"all", "3G"};
    if (mode == RADIO_MODE_3GUERX)
        return {"all", "3G", "all UERX"};
    if (mode == RADIO_MODE_TD_SCDMA_NODEB)
        return {"all", "TD-SCDMA"};
    const bool isTerminal = mode >= RADIO_MODE_4GUERX_FDD_5MHZ;
    const bool isTimeDivision =
        mode >= RADIO_MODE_4GUERX_TDD_5MHZ || (mode >= RADIO_MODE_4GENODEB_TDD_5MHZ && !isTerminal);
    return {"all", isTimeDivision ? "4G TDD" : "4G FDD", isTerminal ? "all UERX" : "all"};
}

std::string kindOf(RadioBand band)
{
    return band >= RADIO_BAND_GSM_850 ? "GSM" : band >= RADIO_BAND_33 ? "unpaired" : "paired";
}

bool names(const std::string &cell, const std::set<std::string> &kinds)
{
    const std::vector<std::string> listed = split(cell, ',');
    return std::any_of(listed.begin(), listed.end(),
                       [&](const std::string &kind) { return kinds.count(kind) != 0; });
}

TEST_F(PlatformTable, has_all_its_columns)
{
    forEachPlatform({"name",       "chips",          "antennas",       "modes",
                     "bands",      "interfaces",     "CPRI options",   "tuning",
                     "step",       "lock",           "oscillator DAC", "DAC step",
                     "converters", "transmit power", "gain",           "noise figure",
                     "per dB",     "per degree",     "heating",        "time constant"},
                    [](const MarkdownRow &row) { EXPECT_GE(row.size(), 21u); });
}

TEST_F(PlatformTable, name_chips_antennas_and_interfaces)
{
    forEachPlatform(
        {"name", "chips", "antennas", "interfaces", "CPRI options"}, [&](const MarkdownRow &row) {
            EXPECT_EQ(radioGetPlatformName(context), row.at("name"));
            EXPECT_EQ(radioGetPlatformChipCount(context), std::stoi(row.at("chips")));
            EXPECT_EQ(radioSelect(context, RADIO_SELECT_1) == RADIO_ESUCCESS,
                      row.at("antennas") == "2");
            uint32_t interfaces = 0;
            const std::vector<std::string> known = {"CMOS", "LVDS", "CPRI"};
            for (const std::string &name : split(row.at("interfaces"), ','))
                interfaces |= 1u << (std::find(known.begin(), known.end(), name) - known.begin());
            EXPECT_EQ(at(INTERFACES), interfaces);
            std::string rates;
            for (const RadioCpriRate rate :
                 {RADIO_CPRI_RATE_1, RADIO_CPRI_RATE_2, RADIO_CPRI_RATE_4, RADIO_CPRI_RATE_5,
                  RADIO_CPRI_RATE_8, RADIO_CPRI_RATE_10})
                if (radioCpriInit(context, rate) == RADIO_ESUCCESS)
                    rates += (rates.empty() ? "" : ", ") + std::to_string(rate);
            EXPECT_EQ(rates.empty() ? "none" : rates, row.at("CPRI options"));
        });
}

TEST_F(PlatformTable, modes_bands_and_tuning)
{
    for (int mode = 0; mode < RADIO_MODE_COUNT; ++mode)
        for (int band = RADIO_BAND_1; band <= RADIO_BAND_GSM_1900; ++band) {
            open(RADIO_PLATFORM_DEFAULT); // which lacks no band that the mode has
            const auto init = [&] {
                return radioInit(context, RADIO_CONF_SISO, static_cast<RadioMode>(mode),
                                 static_cast<RadioBand>(band));
            };
            if (init() != RADIO_ESUCCESS)
                continue;
            SCOPED_TRACE(testing::Message() << "mode " << mode << " band " << band);
            const double centres[] = {at(TX_FREQUENCY) / 1e6, at(RX_FREQUENCY) / 1e6};
            forEachPlatform({"modes", "bands", "tuning"}, [&](const MarkdownRow &row) {
                const Range tuning = rangeOf(row.at("tuning"));
                const bool reaches =
                    std::all_of(std::begin(centres), std::end(centres),
                                [&](double f) { return f >= tuning.low && f <= tuning.high; });
                const bool has =
                    names(row.at("modes"), kindsOf(static_cast<RadioMode>(mode))) &&
                    names(row.at("bands"), {"all", kindOf(static_cast<RadioBand>(band))});
                EXPECT_EQ(init(), has && reaches ? RADIO_ESUCCESS : RADIO_ENOTSUP);
            });
        }
}

TEST_F(PlatformTable, step_and_lock)
{
    forEachPlatform({"step", "lock"}, [&](const MarkdownRow &row) {
        initAnyhow();
        const auto step = static_cast<uint32_t>(std::stoi(row.at("step")));
        const uint32_t start = at(TX_FREQUENCY);
        ASSERT_EQ(radioSetTxFrequency(context, start + step), RADIO_ESUCCESS);
        EXPECT_EQ(at(TX_FREQUENCY), start + step);
        ASSERT_EQ(radioSetTxFrequency(context, start + (step - 1) / 2), RADIO_ESUCCESS);
        EXPECT_EQ(at(TX_FREQUENCY), start);
        // Each command takes 10 us: the check comes one microsecond too early, and then in time.
        const int delay = std::stoi(row.at("lock")) - 20;
        const auto check = [](int pause, const char *locks) {
            return "delay " + std::to_string(pause) + " us\ncheck 0x23 " + locks;
        };
        EXPECT_EQ(runScript(check(delay - 1, "0")), RADIO_ESUCCESS);
        EXPECT_EQ(runScript(check(delay, "3")), RADIO_ESUCCESS);
    });
}

TEST_F(PlatformTable, oscillator_dac_and_its_step)
{
    forEachPlatform({"oscillator DAC", "DAC step"}, [&](const MarkdownRow &row) {
        const int width = std::stoi(row.at("oscillator DAC"));
        EXPECT_EQ(radioGetOscillatorDacWidth(context), width);
        const uint32_t middle = 1u << (width - 1);
        EXPECT_EQ(radioGetOscillatorDacValue(context), middle);
        initAnyhow();
        const uint32_t tuned = at(TX_FREQUENCY);
        ASSERT_EQ(radioSetOscillatorDacValue(context, 0), RADIO_ESUCCESS);
        const double change = static_cast<double>(at(TX_FREQUENCY)) - tuned;
        EXPECT_NEAR(change, -std::stod(row.at("DAC step")) * 1e-6 * middle * tuned, 0.501);
    });
}

TEST_F(PlatformTable, transmit_converter_power_and_gain)
{
    forEachPlatform({"converters", "transmit power", "gain"}, [&](const MarkdownRow &row) {
        initAnyhow();
        const int most = 1 << (std::stoi(row.at("converters")) - 1);
        const auto offset = [](RadioContext *c, int16_t value) {
            return radioSetTxDcOffset(c, RADIO_TX_ANTENNA_1, 0, value);
        };
        expectRange(offset, -most, most - 1);
        const Range power = rangeOf(row.at("transmit power"));
        expectRange(radioSetTxMaxPower, static_cast<int>(power.low * 10),
                    static_cast<int>(power.high * 10));
        const Range gain = rangeOf(row.at("gain"));
        expectRange(radioSetRxGain, static_cast<int>(gain.low), static_cast<int>(gain.high));
    });
}

TEST_F(PlatformTable, noise_figure_and_receive_converter)
{
    const double tolerance = meanTolerance(lte20, readings);
    const std::vector<std::string> columns = {"noise figure", "per dB", "per degree", "converters",
                                              "gain"};
    openIn("ambient = -50.0");
    forEachPlatform(columns, [&](const MarkdownRow &row) {
        initAnyhow();
        const double best = thermalNoise(lte20) + std::stod(row.at("noise figure"));
        EXPECT_NEAR(measured(), best, tolerance);
        const Range range = rangeOf(row.at("gain"));
        const int bits = std::stoi(row.at("converters"));
        // At the lowest gain the converter's noise is most, 20 dB below the highest the receiver's.
        for (const double gain : {range.low, range.high - 20}) {
            ASSERT_EQ(radioSetRxGain(context, static_cast<int16_t>(gain)), RADIO_ESUCCESS);
            const double receiver = best + (range.high - gain) * std::stod(row.at("per dB"));
            const double converter = quantisationNoise(bits, lte20, lte20Rate, gain);
            EXPECT_NEAR(measured(), sum({receiver, converter}), tolerance) << gain;
        }
    });
    openIn("ambient = 80.0");
    forEachPlatform(columns, [&](const MarkdownRow &row) {
        initAnyhow();
        wait(200000); // until the temperature stays
        const double warmer = temperature() - 25;
        EXPECT_NEAR(measured(),
                    thermalNoise(lte20) + std::stod(row.at("noise figure")) +
                        warmer * std::stod(row.at("per degree")),
                    tolerance);
    });
}

TEST_F(PlatformTable, heating_and_time_constant)
{
    forEachPlatform({"chips", "heating", "time constant"}, [&](const MarkdownRow &row) {
        constexpr double step = 1.0 / 16; // of the converter
        const double heating = std::stod(row.at("heating"));
        const double chips = std::stod(row.at("chips"));
        const double start = 25 + heating * 0.4 * chips;
        EXPECT_NEAR(temperature(), start, step);
        initAnyhow();
        const double rise = heating * (0.2 * chips + 0.15);
        wait(static_cast<int>(std::lround(std::stod(row.at("time constant")) * 1e4)) - 1);
        EXPECT_NEAR(temperature(), start + rise * (1 - std::exp(-1)), step);
        wait(300000);
        EXPECT_NEAR(temperature(), start + rise, step);
    });
}

} // namespace

} // namespace sorel_tests
