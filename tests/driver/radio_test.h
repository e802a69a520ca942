// SPDX-License-Identifier: LicenseRef-Proprietary
// The fixture of the board's tests: one open context on the default platform.
#ifndef SOREL_TESTS_DRIVER_RADIO_TEST_H
#define SOREL_TESTS_DRIVER_RADIO_TEST_H

#include "sorel.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
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
    EVENTS = 0x005,
    SERIAL = 0x006,
    INTERFACES = 0x007,
    SCRATCH = 0x010,
    DAC = 0x011,
    TX_FREQUENCY = 0x020,
    RX_FREQUENCY = 0x021,
    LOOPBACK = 0x022,
    LOCKS = 0x023,
    TX_INTEGER = 0x024,
    TX_FRACTION = 0x025,
    RX_INTEGER = 0x026,
    RX_FRACTION = 0x027,
    TX_STATE = 0x030,
    TX_MAX_POWER = 0x032,
    TX_DC_OFFSET = 0x034,
    TX_POWER = 0x036,
    TX_LEAKAGE = 0x038,
    RX_STATE = 0x040,
    RX_GAIN = 0x042,
    RX_GAIN_MODE = 0x044,
    RX_RTWP = 0x046,
    RX_STEP = 0x048,
    GAIN_TABLE_COUNT = 0x0fe,
    POWER_TABLE_COUNT = 0x0ff,
    GAIN_TABLE = 0x100,
    POWER_TABLE = 0x200,
    UNMAPPED = 0x999,
};

// Bits of EVENTS.
enum Event : uint32_t {
    TX_UNLOCKED = 1 << 0,
    RX_UNLOCKED = 1 << 1,
    OVERLOAD = 1 << 4, // of the first path
    SHUT_DOWN = 1 << 8,
};

constexpr uint32_t NOTHING =
    0x80000000; // what a register of a measurement reads while there is none

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
        unsetenv("SOREL_SIM_SCENARIO");
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

    // Opens the context anew on that platform, in a scenario file of that content.
    void openIn(const std::string &scenario,
                RadioPlatformSelectIndex platform = RADIO_PLATFORM_DEFAULT)
    {
        setenv("SOREL_SIM_SCENARIO", file(scenario).c_str(), 1);
        open(platform);
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

    // What a register holds in 1/64 dB or dBm.
    double decibelsAt(uint32_t address)
    {
        return static_cast<int32_t>(at(address)) / 64.0;
    }

    // Lets the time of that many calls pass, 0.1 ms each.
    void wait(int calls)
    {
        for (int i = 0; i < calls; ++i)
            radioGetDebugLevel(context);
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
