// SPDX-License-Identifier: LicenseRef-Proprietary
// Faults that last beyond a call: stuck registers, synthesisers without lock, heat.
#include "scenario_fixture.h"

namespace sorel_tests
{

namespace
{

using Conditions = ScenarioTest;

TEST_F(Conditions, a_stuck_register_reads_its_value_and_takes_no_other)
{
    openIn("[[faults]]\nstuck = 0x010\nvalue = -2\n");
    EXPECT_EQ(at(SCRATCH), 0xfffffffeu);
    EXPECT_EQ(radioSpiWrite(context, SCRATCH, 5), RADIO_ESUCCESS);
    EXPECT_EQ(at(SCRATCH), 0xfffffffeu);
    EXPECT_EQ(radioSpiWrite(context, DAC, 5), RADIO_ESUCCESS);
    EXPECT_EQ(at(DAC), 5u);
}

TEST_F(Conditions, a_register_is_stuck_at_what_it_read_when_the_fault_began)
{
    openIn(fault("radioSpiWrite", "first = 3\ncalls = 2\nstuck = 0x010"));
    for (int value = 1; value <= 5; ++value) {
        EXPECT_EQ(radioSpiWrite(context, SCRATCH, value), RADIO_ESUCCESS);
        EXPECT_EQ(at(SCRATCH), value < 3 || value > 4 ? static_cast<uint32_t>(value) : 2u);
    }
}

TEST_F(Conditions, the_state_behind_a_stuck_register_does_not_change)
{
    openIn("[[faults]]\nstuck = 0x030\nvalue = 0\n[[faults]]\nstuck = 0x011\nvalue = 77\n");
    init();
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(at(TX_STATE + 1), 1u);
    EXPECT_EQ(radioGetOscillatorDacValue(context), 77u);
    EXPECT_EQ(radioSetOscillatorDacValue(context, 5), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetOscillatorDacValue(context), 77u);
    EXPECT_EQ(radioReset(context), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetOscillatorDacValue(context), 77u);
}

TEST_F(Conditions, the_state_stays_where_it_was_stuck_when_the_fault_ends)
{
    openIn(fault("radioSetTxState", "calls = 1\nstuck = 0x030"));
    init();
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_1, RADIO_STATE_ENABLE),
              RADIO_ESUCCESS)
        << "the fault lasts until the next call of its function";
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 1u);
}

TEST_F(Conditions, a_stuck_register_of_a_measurement_leaves_the_readings_as_they_are)
{
    const auto readings = [&](const std::string &scenario) {
        openIn(scenario);
        init();
        std::vector<float> powers(5);
        for (float &power : powers)
            power = radioGetRxRtwpIndBm(context);
        return powers;
    };
    const std::vector<float> healthy = readings("seed = 1");
    EXPECT_EQ(readings("seed = 1\n[[faults]]\nstuck = 0x046\nvalue = 5\n"), healthy);
    EXPECT_EQ(at(RX_RTWP), 5u);
}

TEST_F(Conditions, an_initialisation_script_does_not_move_a_stuck_register)
{
    openIn("[[faults]]\nstuck = 0x010\nvalue = 3\n[[faults]]\nstuck = 0x032\nvalue = 7\n");
    ASSERT_EQ(initByScript("write 0x10 1\nwrite 0x32 50\nwrite 0x33 50\n"), RADIO_ESUCCESS);
    EXPECT_EQ(at(SCRATCH), 3u);
    EXPECT_EQ(at(TX_MAX_POWER), 7u);
    EXPECT_EQ(at(TX_MAX_POWER + 1), 50u);
}

TEST_F(Conditions, a_register_that_can_only_be_read_can_be_stuck)
{
    openIn("[[faults]]\nstuck = 0x003\nvalue = 1\n");
    EXPECT_EQ(at(TEMPERATURE), 1u);
    EXPECT_EQ(radioSpiWrite(context, TEMPERATURE, 5), RADIO_ENOTSUP);
    EXPECT_GT(radioGetTemperature(context), 20.0f) << "the register is stuck, not the converter";
}

TEST_F(Conditions, a_board_opened_before_is_free_when_the_faults_end)
{
    openIn("[[faults]]\nstuck = 0x010\nvalue = 3\n");
    EXPECT_EQ(at(SCRATCH), 3u);
    RadioContext *const first = context;
    context = nullptr;
    openIn("seed = 1");
    radioSpiWrite(first, SCRATCH, 5);
    EXPECT_EQ(radioSpiRead(first, SCRATCH), 5u);
    EXPECT_EQ(radioClose(first), RADIO_ESUCCESS);
}

TEST_F(Conditions, a_board_as_hot_as_the_fault_says_switches_no_transmitter_on)
{
    openIn("[[faults]]\ntemperature = 130.5\n");
    init();
    EXPECT_EQ(radioGetTemperature(context), 130.5f);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_EERROR);
}

TEST_F(Conditions, heat_ends_with_its_fault)
{
    openIn(fault("radioGetTemperature", "first = 2\ncalls = 1\ntemperature = 130"));
    const float before = radioGetTemperature(context);
    EXPECT_LT(before, 50.0f);
    EXPECT_EQ(radioGetTemperature(context), 130.0f);
    EXPECT_LT(radioGetTemperature(context), 50.0f);
}

TEST_F(Conditions, a_transmitter_whose_synthesiser_never_locks_cannot_be_switched_on)
{
    openIn(fault("radioSetTxFrequency", "first = 2\ncalls = 1\nsynthesiser = \"transmit\""));
    init();
    const auto tuneAndSwitchOn = [&] {
        EXPECT_EQ(radioSetTxFrequency(context, 2640000000), RADIO_ESUCCESS);
        for (int i = 0; i < 100; ++i) // ample time to lock
            at(SCRATCH);
        return radioSetTxState(context, RADIO_STATE_ENABLE);
    };
    EXPECT_EQ(tuneAndSwitchOn(), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    EXPECT_EQ(tuneAndSwitchOn(), RADIO_EAGAIN);
    EXPECT_EQ(tuneAndSwitchOn(), RADIO_ESUCCESS);
}

} // namespace

} // namespace sorel_tests
