-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local bringup = require "sorel.bringup"
local check = kit.check

-- What a table has at least, with more.
local function cell(more)
    local given = {
        configuration = "RADIO_CONF_MIMO", mode = "RADIO_MODE_4GENODEB_FDD_20MHZ",
        band = "RADIO_BAND_7",
    }
    for key, value in pairs(more or {}) do given[key] = value end
    return given
end

-- The calls that set something, of bringing up a radio that is open.
local function commands(more)
    local taken = {}
    for _, call in ipairs((kit.calls(bringup.run, cell(more)))) do
        if not call:find("^radioGet") and not call:find("^radioVersion") then
            taken[#taken + 1] = call
        end
    end
    check.assertEquals(taken[1], "radioReset() = RADIO_ESUCCESS")
    return { unpack(taken, 2) }
end

local INIT = "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7) = "
    .. "RADIO_ESUCCESS"

TestSteps = {}

function TestSteps.setUp()
    radioSelectPlatform(RADIO_PLATFORM_DEFAULT)
    radioOpen()
end

function TestSteps.test_the_least_table_resets_and_sets_up()
    check.assertEquals(commands(), { INIT })
end

function TestSteps.test_everything_is_set_in_its_order_and_the_transmitter_goes_on_last()
    local calibration = kit.file("[integers]\ncrystal = -12\n")
    check.assertEquals(commands {
        tx_state = "RADIO_STATE_ENABLE", selected_paths = "RADIO_SELECT_0",
        rx_state = { "RADIO_STATE_ENABLE", 0 }, tx_dc_offsets = {
            { in_phase = 3, quadrature = -4 }, { in_phase = 0, quadrature = 5 } },
        tx_max_power_dbm = -10.1, rx_gain_db = 40, rx_gain_mode = "RADIO_RX_GAIN_MGC",
        loopback = "RADIO_TX_TO_RX_LOOPBACK", rx_frequency_hz = 2535e6, tx_frequency_hz = 2655e6,
        tx_power_registers = { -200, 4294967295, 100 }, rx_gain_registers = { 0, 300, 500 },
        oscillator_dac = 32000, cpri_rate = "RADIO_CPRI_RATE_8", calibration_file = calibration,
        platform = "RADIO_PLATFORM_DEFAULT", debug_level = "RADIO_DEBUG_NONE",
    }, {
        "radioSelectPlatform(RADIO_PLATFORM_DEFAULT) = RADIO_ESUCCESS",
        "radioSetDebugLevel(RADIO_DEBUG_NONE) = RADIO_ESUCCESS",
        INIT,
        ('radioLoadCalibrationFile("%s") = RADIO_ESUCCESS'):format(calibration),
        "radioCpriInit(RADIO_CPRI_RATE_8) = RADIO_ESUCCESS",
        "radioSetOscillatorDacValue(32000) = RADIO_ESUCCESS",
        "radioSetRxGainRegisters([0, 300, 500], 3) = RADIO_ESUCCESS",
        "radioSetTxPowerRegisters([4294967096, 4294967295, 100], 3) = RADIO_ESUCCESS",
        "radioSetTxFrequency(2655000000) = RADIO_ESUCCESS",
        "radioSetRxFrequency(2535000000) = RADIO_ESUCCESS",
        "radioSetLoopback(RADIO_TX_TO_RX_LOOPBACK) = RADIO_ESUCCESS",
        "radioSetRxGainMode(RADIO_RX_GAIN_MGC) = RADIO_ESUCCESS",
        "radioSetRxGain(40) = RADIO_ESUCCESS",
        "radioSetTxMaxPower(-101) = RADIO_ESUCCESS",
        "radioSetTxDcOffset(RADIO_TX_ANTENNA_1, 3, -4) = RADIO_ESUCCESS",
        "radioSetTxDcOffset(RADIO_TX_ANTENNA_2, 0, 5) = RADIO_ESUCCESS",
        "radioSetRxStateOfAntenna(RADIO_RX_ANTENNA_1, RADIO_STATE_ENABLE) = RADIO_ESUCCESS",
        "radioSetRxStateOfAntenna(RADIO_RX_ANTENNA_2, RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
        "radioSelect(RADIO_SELECT_0) = RADIO_ESUCCESS",
        "radioSetTxStateOfAntenna(RADIO_TX_ANTENNA_1, RADIO_STATE_ENABLE) = RADIO_ESUCCESS",
        "radioSetTxStateOfAntenna(RADIO_TX_ANTENNA_2, RADIO_STATE_ENABLE) = RADIO_ESUCCESS",
    })
    os.remove(calibration)
end

function TestSteps.test_antennas_have_values_of_their_own()
    check.assertEquals(commands {
        rx_gain_db = { 30, 40 }, tx_max_power_dbm = { 10, 9.3 }, tx_channel = 2850,
        rx_channel = 20850, tx_state = { "RADIO_STATE_DISABLE", "RADIO_STATE_ENABLE" },
    }, {
        INIT,
        "radioSetTxChannel(2850) = RADIO_ESUCCESS",
        "radioSetRxChannel(20850) = RADIO_ESUCCESS",
        "radioSelect(RADIO_SELECT_0) = RADIO_ESUCCESS",
        "radioSetRxGain(30) = RADIO_ESUCCESS",
        "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
        "radioSelect(RADIO_SELECT_1) = RADIO_ESUCCESS",
        "radioSetRxGain(40) = RADIO_ESUCCESS",
        "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
        "radioSetTxMaxPowerOfAntenna(RADIO_TX_ANTENNA_1, 100) = RADIO_ESUCCESS",
        "radioSetTxMaxPowerOfAntenna(RADIO_TX_ANTENNA_2, 93) = RADIO_ESUCCESS",
        "radioSetTxStateOfAntenna(RADIO_TX_ANTENNA_2, RADIO_STATE_ENABLE) = RADIO_ESUCCESS",
    })
end

function TestSteps.test_every_tenth_of_a_dbm_reaches_the_driver_as_it_is()
    for tenth = -600, 240 do
        radioInit(0, 7, 7)
        local set = radioSetTxMaxPower
        local taken
        local function note(power)
            taken = power
            set(power)
        end
        kit.with(_G, "radioSetTxMaxPower", note, bringup.run, cell { tx_max_power_dbm = tenth / 10 })
        check.assertEquals(taken, tenth)
    end
end

function TestSteps.test_what_an_initialisation_script_switched_on_goes_off()
    local script = kit.file("delay 200 us\nwrite 0x30 1\n")
    check.assertEquals(commands { script = script, tx_max_power_dbm = 0 }, {
        "radioInitByScript(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, "
            .. "\"" .. script
            .. "\") = RADIO_ESUCCESS",
        "radioSetTxState(RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
        "radioSetTxMaxPower(0) = RADIO_ESUCCESS",
    })
    os.remove(script)
end

function TestSteps.test_without_an_open_radio_that_of_the_platform_is_opened()
    radioClose()
    local calls = kit.calls(bringup.run, cell { platform = "RADIO_PLATFORM_TALWIN" })
    check.assertEquals({ unpack(calls, 1, 4) }, {
        "radioSelectPlatform(RADIO_PLATFORM_TALWIN) = RADIO_ESUCCESS",
        calls[2]:match("^radioOpen%(%) = context %d+$"),
        "radioGetDebugLevel() = 0",
        INIT,
    })
end

function TestSteps.test_steps_are_told_without_being_taken()
    local calls, texts = kit.calls(bringup.steps, cell {
        platform = 1, tx_frequency_hz = 2655e6, tx_max_power_dbm = { 10, 9.3 }, tx_state = 1,
    })
    check.assertEquals(calls, { "radioGetDebugLevel() = 0" })
    check.assertEquals(texts, {
        "reset the radio",
        "select RADIO_PLATFORM_TALWIN",
        "set up RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7",
        "tune the transmitter to 2655000000 Hz",
        "limit the power of antenna 1 to 10.0 dBm",
        "limit the power of antenna 2 to 9.3 dBm",
        "switch transmitter 1 on",
        "switch transmitter 2 on",
    })
end

TestFailures = {}

function TestFailures.test_the_step_that_failed_is_named_and_the_transmitter_is_off()
    radioOpen()
    local message
    local calls = kit.calls(function()
        message = kit.raised(bringup.run, cell { tx_frequency_hz = 2400e6 })
    end)
    check.assertEquals(message, "bringup: step 3 of 3, tune the transmitter to 2400000000 Hz: "
        .. "radioSetTxFrequency() did not return success")
    check.assertEquals({ unpack(calls, #calls - 2) }, {
        "radioSetTxFrequency(2400000000) = RADIO_EINVAL",
        "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
        "radioSetTxState(RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
    })
end

TestMistakes = {}

local function mistakes_of(more)
    return bringup.check(cell(more))
end

function TestMistakes.test_a_right_table_has_none()
    check.assertEquals(mistakes_of(), {})
    check.assertEquals(mistakes_of { configuration = "RADIO_CONF_SISO", rx_gain_db = { 3 } }, {})
end

function TestMistakes.test_all_are_told_at_once_where_the_caller_is_and_the_board_is_not_touched()
    local message
    local calls = kit.calls(function()
        message = kit.raised(function() bringup.run { band = "RADIO_MODE_3GNODEB", gain = 5 } end)
    end)
    check.assertEquals(calls, {})
    check.assertStrMatches(message, ".*test_bringup.lua:%d+: bringup.run: 4 mistakes:\n.*")
    check.assertEquals(message:match("mistakes:\n(.*)"), "  configuration: is missing\n"
        .. "  mode: is missing\n"
        .. "  band: RADIO_MODE_3GNODEB is a member of RADIO_MODE, one of RADIO_BAND is expected\n"
        .. "  gain: there is no such key")
end

function TestMistakes.test_what_is_no_table_is_told()
    check.assertEquals(bringup.check(nil), { "a table is expected, got nil" })
end

-- One mistake of a table in each row: what the table has besides, and what is said.
local ONE = {
    { { tx_frequency_hz = 2655 }, "tx_frequency_hz: 2655 Hz is below 10 MHz; did you mean "
        .. "2655000000?" },
    { { tx_frequency_hz = 2.655 }, "tx_frequency_hz: 2.655 Hz is below 10 MHz; did you mean "
        .. "2655000000?" },
    { { rx_frequency_hz = 2535000 },
        "rx_frequency_hz: 2535000 Hz is below 10 MHz; did you mean 2535000000?" },
    { { rx_frequency_hz = -1 }, "rx_frequency_hz: -1 Hz is below 10 MHz" },
    { { rx_frequency_hz = 4294967296 },
        "rx_frequency_hz: 4294967296 Hz is above 4294967295 Hz" },
    { { rx_frequency_hz = 2535e6 + 0.5 }, "rx_frequency_hz: 2535000000.5 is not a whole number" },
    { { tx_frequency_hz = "2655e6" }, "tx_frequency_hz: a number is expected, got a text" },
    { { tx_frequency = 2655e6 }, "tx_frequency: there is no such key; did you mean "
        .. "tx_frequency_hz?" },
    { { tx_frequency_hz = 2655e6, tx_channel = 2850 },
        "tx_channel: tx_frequency_hz is given too; give one of them" },
    { { rx_channel = 65536 }, "rx_channel: 65536 is above 65535" },
    { { mode = "RADIO_MODE_4GENODEB_TDD_20MHZ", tx_frequency_hz = 257e7, rx_frequency_hz = 258e7 },
        "rx_frequency_hz: in RADIO_MODE_4GENODEB_TDD_20MHZ both directions have one frequency; "
            .. "give that of one of them" },
    { { mode = "RADIO_MODE_TD_SCDMA_NODEB", tx_frequency_hz = 2570e6, rx_channel = 38000 },
        "rx_channel: in RADIO_MODE_TD_SCDMA_NODEB both directions have one frequency; "
            .. "give that of one of them" },
    { { rx_gain_mode = "RADIO_RX_GAIN_AGC_SLOW", rx_gain_db = 30 },
        "rx_gain_db: in RADIO_RX_GAIN_AGC_SLOW the gain sets itself; it is set in "
            .. "RADIO_RX_GAIN_MGC" },
    { { rx_gain_db = 40000 }, "rx_gain_db: 40000 is above 32767" },
    { { rx_gain_db = { 30, 30.5 } }, "rx_gain_db[2]: 30.5 is not a whole number" },
    { { rx_gain_db = { 30 } }, "rx_gain_db: a list of 2 values is expected, one for each "
        .. "antenna, got 1" },
    { { configuration = "RADIO_CONF_SISO", rx_gain_db = { 30, 40 } },
        "rx_gain_db: a list of 1 value is expected, one for each antenna, got 2" },
    { { rx_gain_db = { first = 30, 40 } },
        "rx_gain_db: a list of 2 values is expected, one for each antenna" },
    { { tx_max_power_dbm = 10.25 }, "tx_max_power_dbm: 10.25 dBm is no multiple of 0.1 dBm" },
    { { tx_max_power_dbm = 3276.8 }, "tx_max_power_dbm: 3276.8 is above 3276.7" },
    { { tx_dc_offsets = 3 }, "tx_dc_offsets: a list of 2 values is expected, one for each "
        .. "antenna" },
    { { tx_dc_offsets = { { in_phase = 1, quadrature = 2 }, { in_phase = 32768 } } },
        "tx_dc_offsets[2]: in_phase: 32768 is above 32767; quadrature: is missing" },
    { { rx_gain_registers = { 0, "1" } }, "rx_gain_registers[2]: a number is expected, got a "
        .. "text" },
    { { tx_power_registers = { -2147483649 } },
        "tx_power_registers[1]: -2147483649 is below -2147483648" },
    { { tx_power_registers = 5 }, "tx_power_registers: a list of words is expected" },
    { { tx_state = "RADIO_STATE_ENABLE" },
        "tx_max_power_dbm: is missing; without it tx_state would switch on at full power" },
    { { tx_state = "RADIO_STATE_ENABLE", tx_max_power_dbm = "10" },
        "tx_max_power_dbm: a number is expected, got a text" },
    { { tx_state = true }, "tx_state: a name or value of RADIO_STATE is expected, got true" },
    { { configuration = "RADIO_CONF_SISO", selected_paths = "RADIO_SELECT_1" },
        "selected_paths: RADIO_CONF_SISO has only path 0, RADIO_SELECT_0" },
    { { calibration_file = "/nowhere/cal.toml" },
        "calibration_file: cannot be read: /nowhere/cal.toml: No such file or directory" },
    { { script = "/" }, "script: cannot be read: /: Is a directory" },
    { { settle_s = -1 }, "settle_s: -1 is below 0" },
}

function TestMistakes.test_each_says_what_is_wrong_and_what_would_be_right()
    for _, row in ipairs(ONE) do
        check.assertEquals(mistakes_of(row[1]), { row[2] })
    end
end

function TestMistakes.test_in_time_division_one_direction_or_the_same_twice_is_right()
    local mode = "RADIO_MODE_4GENODEB_TDD_20MHZ"
    check.assertEquals(mistakes_of { mode = mode, rx_channel = 38000 }, {})
    local both = { mode = mode, tx_frequency_hz = 2595e6, rx_frequency_hz = 2595e6 }
    check.assertEquals(mistakes_of(both), {})
end

TestState = {}

function TestState.test_what_can_be_read_is_and_the_settings_are_there_in_numbers()
    radioOpen()
    local state = bringup.run(cell { rx_gain_db = { 30, 40 }, tx_max_power_dbm = 10, tx_state = 0 })
    local first, second = unpack(state.receivers)
    check.assertEquals({ first.gain_db, second.gain_db }, { 30, 40 })
    check.assertAlmostEquals(first.rtwp_dbm, -85, 5)
    check.assertEquals(
        { state.driver, state.platform, state.chips, state.oscillator_dac,
            state.oscillator_dac_width },
        { radioVersion(), "simulated board", 1, 32768, 16 })
    check.assertAlmostEquals(state.temperature_c, 28, 2)
    check.assertEquals(state.debug_level, RADIO_DEBUG_NONE)
    check.assertEquals(state.settings, {
        configuration = RADIO_CONF_MIMO, mode = RADIO_MODE_4GENODEB_FDD_20MHZ, band = RADIO_BAND_7,
        antennas = 2, rx_gain_db = { 30, 40 }, tx_max_power_dbm = { 10, 10 }, tx_state = { 0, 0 },
        settle_s = 1,
    })
end

function TestState.test_with_one_antenna_there_is_one_receiver()
    radioOpen()
    local state = bringup.run(cell { configuration = "RADIO_CONF_SISO" })
    check.assertEquals(#state.receivers, 1)
end

function TestState.test_a_reading_that_fails_is_nil_and_a_dash()
    radioOpen()
    local state = bringup.run(cell { rx_state = { RADIO_STATE_DISABLE, RADIO_STATE_ENABLE } })
    check.assertNil(state.receivers[1].rtwp_dbm)
    check.assertNotNil(state.receivers[2].rtwp_dbm)
    radioReset()
    check.assertEquals(bringup.read().receivers, { {}, {} })
end

function TestState.test_only_a_state_is_printed()
    for _, given in ipairs { false, {} } do
        check.assertStrMatches(kit.raised(function() bringup.print(given) end),
            ".*test_bringup.lua:%d+: bringup.print: what bringup.run.. or bringup.read.. "
                .. "returned is expected")
    end
end

function TestState.test_the_caller_s_table_stays_and_no_global_changes()
    radioOpen()
    local given = cell { rx_gain_db = 30, tx_state = "RADIO_STATE_DISABLE" }
    check.assertEquals(kit.globals_changed(bringup.run, given), {})
    check.assertEquals(given, cell { rx_gain_db = 30, tx_state = "RADIO_STATE_DISABLE" })
end

kit.run()
