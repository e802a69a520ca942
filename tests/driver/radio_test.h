// SPDX-License-Identifier: LicenseRef-Proprietary
// The fixture of the board's tests: one open context on the default platform.
#ifndef SOREL_TESTS_DRIVER_RADIO_TEST_H
#define SOREL_TESTS_DRIVER_RADIO_TEST_H

#include "sorel.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace sorel_tests
{

// Registers that the tests look at the state through; driver/README.md has the map.
enum Register : uint32_t {
    IDENTITY = 0x000,
    SETUP = 0x001,
    LINK = 0x002,
    TEMPERATURE = 0x003,
    SELECTED = 0x004,
    SCRATCH = 0x010,
    DAC = 0x011,
    TX_FREQUENCY = 0x020,
    RX_FREQUENCY = 0x021,
    LOOPBACK = 0x022,
    TX_STATE = 0x030,
    TX_MAX_POWER = 0x032,
    TX_DC_OFFSET = 0x034,
    RX_STATE = 0x040,
    RX_GAIN = 0x042,
    RX_GAIN_MODE = 0x044,
    RX_RTWP = 0x046,
    GAIN_TABLE_COUNT = 0x0fe,
    POWER_TABLE_COUNT = 0x0ff,
    GAIN_TABLE = 0x100,
    POWER_TABLE = 0x200,
    UNMAPPED = 0x999,
};

class RadioTest : public testing::Test
{
protected:
    void SetUp() override
    {
        open(RADIO_PLATFORM_DEFAULT);
    }

    void TearDown() override
    {
        radioClose(context);
        radioSelectPlatform(RADIO_PLATFORM_DEFAULT);
        for (const std::string &path : files)
            std::remove(path.c_str());
    }

    // Opens the context anew on that platform.
    void open(RadioPlatformSelectIndex platform)
    {
        if (context)
            radioClose(context);
        ASSERT_EQ(radioSelectPlatform(platform), RADIO_ESUCCESS);
        context = radioOpen();
        ASSERT_NE(context, nullptr);
    }

    // LTE 20 MHz in band 7: transmits 2620 to 2690 MHz, receives 2500 to 2570 MHz.
    void init(RadioConf configuration = RADIO_CONF_MIMO)
    {
        init(configuration, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7);
    }

    void init(RadioConf configuration, RadioMode mode, RadioBand band)
    {
        ASSERT_EQ(radioInit(context, configuration, mode, band), RADIO_ESUCCESS);
    }

    uint32_t at(uint32_t address)
    {
        return radioSpiRead(context, address);
    }

    // Writes a file that is removed with the test, and returns its path.
    std::string file(const std::string &content)
    {
        const testing::TestInfo &test = *testing::UnitTest::GetInstance()->current_test_info();
        std::ostringstream path;
        path << testing::TempDir() << "driver." << getpid() << '.' << test.name() << '.'
             << files.size();
        files.push_back(path.str());
        std::ofstream(files.back(), std::ios::binary) << content;
        return files.back();
    }

    RadioContext *context = nullptr;

private:
    std::vector<std::string> files;
};

} // namespace sorel_tests

#endif
