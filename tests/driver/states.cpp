// SPDX-License-Identifier: LicenseRef-Proprietary
// States of a context that decide what its functions answer.
#include "states.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace sorel_tests
{

namespace
{

constexpr const char *variable = "SOREL_SIM_SCENARIO";

// Opens in a scenario file, which is needed at that moment only.
RadioContext *openIn(const std::string &scenario)
{
    const std::string path = testing::TempDir() + "driver.state." + std::to_string(getpid());
    if (!scenario.empty()) {
        std::ofstream(path, std::ios::binary) << scenario;
        setenv(variable, path.c_str(), 1);
    }
    RadioContext *const context = radioOpen();
    EXPECT_NE(context, nullptr) << scenario;
    std::filesystem::remove(path);
    unsetenv(variable);
    return context;
}

void expectSuccess(RadioReturn status)
{
    EXPECT_EQ(status, RADIO_ESUCCESS);
}

void init(RadioContext *context, State state)
{
    const bool isOne = state == OnePath || state == Deselected;
    expectSuccess(radioInit(context, isOne ? RADIO_CONF_SISO : RADIO_CONF_MIMO,
                            RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7));
}

std::string scenarioOf(State state)
{
    switch (state) {
    case Unlocked:
        return "lock_time = 10";
    case Hot:
        return "ambient = 120";
    case OtherBoard:
        return "platform = \"talwin\"";
    default:
        return "";
    }
}

RadioPlatformSelectIndex platformOf(State state)
{
    return state == Merrik   ? RADIO_PLATFORM_MERRIK
           : state == Bellan ? RADIO_PLATFORM_BELLAN
                             : RADIO_PLATFORM_DEFAULT;
}

void loadTables(RadioContext *context)
{
    const uint32_t word = 100;
    expectSuccess(radioSetRxGainRegisters(context, &word, 1));
    expectSuccess(radioSetTxPowerRegisters(context, &word, 1));
}

} // namespace

RadioContext *bringTo(State state)
{
    return bringTo(state, scenarioOf(state));
}

RadioContext *bringTo(State state, const std::string &scenario)
{
    if (state == Null)
        return nullptr;
    expectSuccess(radioSelectPlatform(platformOf(state)));
    RadioContext *const context = openIn(scenario);
    if (state == Closed)
        expectSuccess(radioClose(context));
    if (state == Deselected)
        expectSuccess(radioSelect(context, RADIO_SELECT_1));
    if (state >= Ready && state <= Hot)
        init(context, state);
    if (state == Automatic)
        expectSuccess(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_FAST));
    if (state == Tables)
        loadTables(context);
    if (state == Limited)
        expectSuccess(radioSetTxMaxPower(context, 0));
    if (state == Linked)
        expectSuccess(radioCpriInit(context, RADIO_CPRI_RATE_1));
    if (state == OtherBoard)
        expectSuccess(radioSelectPlatform(RADIO_PLATFORM_MERRIK));
    return context;
}

void leave(RadioContext *context)
{
    radioClose(context);
    radioClose(radioOpen()); // without a scenario, so that no fault is left
    radioSelectPlatform(RADIO_PLATFORM_DEFAULT);
}

std::string functionOf(const std::string &text)
{
    return text.substr(0, text.find('('));
}

} // namespace sorel_tests
