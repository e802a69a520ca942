// SPDX-License-Identifier: LicenseRef-Proprietary
// Calibration files: for which board they are, and what their corrections change.
#include "radio_test.h"

#include <cmath>

namespace sorel_tests
{

namespace
{

constexpr RadioMode FDD = RADIO_MODE_4GENODEB_FDD_20MHZ;

class Corrections : public RadioTest
{
protected:
    RadioReturn load(const std::string &content)
    {
        return radioLoadCalibrationFile(context, file(content).c_str());
    }

    // Mean over enough readings for 0.03 dB.
    double rtwp(RadioRxAntenna antenna)
    {
        constexpr int readings = 100;
        double sum = 0;
        for (int i = 0; i < readings; ++i)
            sum += static_cast<double>(radioGetRxRtwpOfAntennaIndBm(context, antenna));
        return sum / readings;
    }

    double output(uint32_t path)
    {
        return decibelsAt(TX_POWER + path);
    }

    // Opens the debug messages, loads a file that is refused, and returns why it is.
    std::string refusal(const std::string &content)
    {
        FILE *const messages = std::tmpfile();
        radioSetDebugFile(context, messages);
        radioSetDebugLevel(context, RADIO_DEBUG_ERROR);
        EXPECT_EQ(load(content), RADIO_EINVAL) << content;
        radioSetDebugFile(context, nullptr);
        std::string text(1000, '\0');
        std::rewind(messages);
        text.resize(std::fread(text.data(), 1, text.size(), messages));
        std::fclose(messages);
        const std::string status = "RADIO_EINVAL: ";
        const std::size_t cause = text.find(status);
        return cause == std::string::npos ? text : text.substr(cause + status.size());
    }
};

TEST_F(Corrections, readings_are_lower_by_the_receivers_correction_in_that_band)
{
    init();
    const double before = rtwp(RADIO_RX_ANTENNA_1);
    ASSERT_EQ(load("[[bands]]\nband = \"RADIO_BAND_7\"\nrx_gain = [1.5, -2]\n"), RADIO_ESUCCESS);
    EXPECT_NEAR(rtwp(RADIO_RX_ANTENNA_1), before - 1.5, 0.1);
    EXPECT_NEAR(rtwp(RADIO_RX_ANTENNA_2), before + 2, 0.1);
    init(RADIO_CONF_MIMO, FDD, RADIO_BAND_1);
    EXPECT_NEAR(rtwp(RADIO_RX_ANTENNA_1), before, 0.1);
}

TEST_F(Corrections, the_output_is_lower_by_the_transmitters_correction_in_that_band)
{
    init();
    ASSERT_EQ(load("[[bands]]\nband = \"RADIO_BAND_7\"\ntx_power = 0.75\n"), RADIO_ESUCCESS);
    wait(1);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(output(0), 24 - 0.75);
    EXPECT_EQ(output(1), 24 - 0.75);
    init(RADIO_CONF_MIMO, FDD, RADIO_BAND_1);
    wait(1);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(output(0), 24);
}

TEST_F(Corrections, corrections_outlive_a_reset_but_not_another_file_or_platform)
{
    const auto correctedOutput = [&] {
        init();
        wait(1);
        EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
        return output(0);
    };
    const std::string corrections = "[[bands]]\nband = \"RADIO_BAND_7\"\ntx_power = 1\n";
    ASSERT_EQ(load(corrections), RADIO_ESUCCESS);
    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    EXPECT_EQ(correctedOutput(), 23);
    ASSERT_EQ(load("[integers]\nn = 1\n"), RADIO_ESUCCESS);
    EXPECT_EQ(correctedOutput(), 24);
    ASSERT_EQ(load(corrections), RADIO_ESUCCESS);
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_TALWIN), RADIO_ESUCCESS);
    EXPECT_EQ(correctedOutput(), 24);
}

TEST_F(Corrections, a_file_for_this_board_is_loaded_and_for_another_refused)
{
    openIn("serial = 4711", RADIO_PLATFORM_TALWIN);
    EXPECT_EQ(load("platform = \"talwin\"\nserial = 4711\n"), RADIO_ESUCCESS);
    EXPECT_EQ(refusal("platform = \"merrik\"\n"), "the file is for another platform\n");
    EXPECT_EQ(refusal("serial = 4712\n"), "the file is for a board of another serial number\n");
}

TEST_F(Corrections, a_refused_file_is_refused_with_the_first_reason_and_its_line)
{
    const struct {
        std::string content;
        std::string reason;
    } cases[] = {
        {"platform = \"tallwin\"\n",
         "platform is \"tallwin\", not \"default\", \"talwin\", \"merrik\", \"ostrav\" or "
         "\"bellan\" (line 1)\n"},
        {"[integers]\nn = 2147483648\n", "n is 2147483648, not -2147483648..2147483647 (line 2)\n"},
        {"[[bands]]\nband = 7\n", "band is an integer, not the name of a RadioBand (line 2)\n"},
        {"[[bands]]\nband = \"RADIO_BAND_15\"\n",
         "band is \"RADIO_BAND_15\", not a band of the platform (line 2)\n"},
        {"[[bands]]\nband = \"RADIO_BAND_NULL\"\n",
         "band is \"RADIO_BAND_NULL\", not a band of the platform (line 2)\n"},
        {"[[bands]]\nrx_gain = 1\n", "band is missing in [[bands]] (line 1)\n"},
        {"[[bands]]\nband = \"RADIO_BAND_7\"\nrx_gain = 20.5\n",
         "rx_gain is 20.5 dB, not -20..20 (line 3)\n"},
        {"[[bands]]\nband = \"RADIO_BAND_7\"\ntx_power = nan\n",
         "tx_power is nan dB, not -20..20 (line 3)\n"},
        {"[[bands]]\nband = \"RADIO_BAND_7\"\nrx_gain = [1]\n",
         "rx_gain has not one number for each path (line 3)\n"},
        {"[[bands]]\nband = \"RADIO_BAND_7\"\ngain = 1\n",
         "unknown key \"gain\" in [[bands]]; the keys are band, rx_gain, tx_power (line 3)\n"},
        {"[integers]\na = 1.5\nb = 1.5\nc = 1.5\n",
         "a is a float, not an integer, and 2 more (line 2)\n"},
    };
    for (const auto &[content, reason] : cases)
        EXPECT_EQ(refusal(content), reason);
}

TEST_F(Corrections, the_example_is_one_for_the_Talwin_board)
{
    open(RADIO_PLATFORM_TALWIN);
    init();
    EXPECT_EQ(radioLoadCalibrationFile(context, SOREL_CALIBRATION_EXAMPLE), RADIO_ESUCCESS);
    wait(1);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(output(0), 24 - 0.25);
    EXPECT_EQ(output(1), 24 - 0.5);
}

} // namespace

} // namespace sorel_tests
