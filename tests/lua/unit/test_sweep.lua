-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local sweep = require "sorel.sweep"
local check = kit.check

local NAN = 0 / 0

-- The calls of a sweep without their results, and its rows.
local function calls_of(options)
    local calls, rows = kit.calls(sweep.run, options)
    for place, call in ipairs(calls) do calls[place] = call:gsub(" = .*", "") end
    return calls, rows
end

-- The values of a column.
local function column(rows, key)
    local values = {}
    for place, row in ipairs(rows) do values[place] = row[key] end
    return values
end

-- What is raised, without its place; nothing may have reached the driver.
local function mistakes_of(options)
    local message
    local calls = kit.calls(function() message = kit.raised(function() sweep.run(options) end) end)
    check.assertEquals(calls, {})
    check.assertStrMatches(message, ".*test_sweep.lua:%d+: sweep.run: .*")
    return (message:gsub("^.-: sweep.run: ", "", 1))
end

local function constant(value)
    return { name = "own", unit = "dBm", read = function() return value end }
end

TestLists = {}

function TestLists.test_a_gap_in_a_list_is_told()
    check.assertEquals(mistakes_of { rx_gain_db = { 10, 20, nil, 40 }, readings = "rtwp" },
        "rx_gain_db[3]: is missing, though there are later ones")
    check.assertEquals(mistakes_of { rx_gain_db = { 10 }, readings = { "rtwp", nil, "gain" } },
        "readings[2]: is missing, though there are later ones")
end

function TestLists.test_an_error_that_is_no_text_is_told_as_what_it_is()
    kit.fresh_radio()
    check.assertStrContains(kit.raised(sweep.run, { readings = "rtwp", custom = { 1, name = "own",
        set = function() error { code = 3 } end } }),
        "sweep.run stopped at point 1 of 1, own 1: an error that is a table; transmitters off")
end

TestPoints = {}

function TestPoints.test_no_error_adds_up_and_the_end_is_there()
    check.assertEquals(sweep.points { from = 0, to = 0.3, step = 0.1 }, { 0, 0.1, 0.2, 0.3 })
    local many = sweep.points { from = 0, to = 1e4, step = 0.1 }
    check.assertEquals({ #many, many[#many - 1], many[#many] }, { 100001, 9999.9, 1e4 })
    check.assertEquals(sweep.points { from = -0.3, to = 0.7, step = 0.1 },
        { -0.3, -0.2, -0.1, 0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7 })
end

function TestPoints.test_the_end_is_exact_where_the_step_is_not()
    local values = sweep.points { from = 0, to = 1, step = 0.33333333 }
    check.assertEquals({ #values, values[4] == 1 }, { 4, true })
end

function TestPoints.test_the_end_is_left_out_where_no_step_leads_there()
    check.assertEquals(sweep.points { from = 0, to = 10, step = 4 }, { 0, 4, 8 })
    check.assertEquals(sweep.points { from = 0, to = 3, step = 4 }, { 0 })
end

function TestPoints.test_a_range_may_fall_or_be_one_point()
    check.assertEquals(sweep.points { from = 3, to = 0, step = -1 }, { 3, 2, 1, 0 })
    check.assertEquals(sweep.points { from = 3, to = 3, step = 1 }, { 3 })
end

function TestPoints.test_what_leads_nowhere_is_refused()
    for _, step in ipairs { 0, -1 } do
        local message = kit.raised(function() sweep.points { from = 0, to = 3, step = step } end)
        check.assertStrMatches(message, ".*test_sweep.lua:%d+: sweep.points: .*")
        check.assertStrContains(message, ("range.step: %d does not lead from 0 to 3"):format(step))
    end
end

function TestPoints.test_too_many_are_refused()
    check.assertStrContains(kit.raised(sweep.points, { from = 0, to = 1000000, step = 1 }),
        "range: 1000001 points are too many; at most 1000000")
    check.assertStrContains(kit.raised(sweep.points, { from = 0, to = 1, step = 1e-320 }),
        "range: inf points are too many; at most 1000000")
end

function TestPoints.test_what_is_no_range_is_refused()
    check.assertStrContains(kit.raised(sweep.points, 5),
        "range: { from = , to = , step = } is expected, got number")
    check.assertStrContains(kit.raised(sweep.points, { from = 1, to = math.huge, stpe = 1 }), [[
3 mistakes:
  range.to: inf is not finite
  range.step: is missing
  range.stpe: there is no such key; did you mean step?]])
end

TestCalls = {}

function TestCalls.setUp() kit.fresh_radio() end

function TestCalls.test_a_point_is_set_then_read()
    local calls, rows = calls_of {
        rx_frequency_hz = { from = 2535e6, to = 2540e6, step = 5e6 }, readings = { "rtwp", "gain" },
    }
    check.assertEquals(calls, {
        "radioSetRxFrequency(2535000000)", "radioGetRxRtwpIndBm()", "radioGetRxGainIndB()",
        "radioSetRxFrequency(2540000000)", "radioGetRxRtwpIndBm()", "radioGetRxGainIndB()",
    })
    check.assertEquals(column(rows, "rx_frequency_hz"), { 2535e6, 2540e6 })
    check.assertEquals(column(rows, "gain_db"), { 76, 76 })
    check.assertAlmostEquals(rows[1].rtwp_dbm, -93.4, 0.5)
end

function TestCalls.test_a_gain_is_set_by_hand()
    radioSetRxGainMode(RADIO_RX_GAIN_AGC_FAST)
    local calls, rows = calls_of { rx_gain_db = { 20, 30 }, readings = "gain" }
    check.assertEquals(calls, {
        "radioSetRxGainMode(RADIO_RX_GAIN_MGC)",
        "radioSetRxGain(20)", "radioGetRxGainIndB()", "radioSetRxGain(30)", "radioGetRxGainIndB()",
    })
    check.assertEquals(column(rows, "gain_db"), { 20, 30 })
end

function TestCalls.test_each_quantity_is_its_call()
    local cases = {
        tx_frequency_hz = { 2655e6, "radioSetTxFrequency(2655000000)" },
        rx_frequency_hz = { 2535e6, "radioSetRxFrequency(2535000000)" },
        tx_channel = { 3100, "radioSetTxChannel(3100)" },
        rx_channel = { 21100, "radioSetRxChannel(21100)" },
        tx_max_power_dbm = { -12.3, "radioSetTxMaxPower(-123)" },
        tx_max_power_1_dbm = { 23.9, "radioSetTxMaxPowerOfAntenna(RADIO_TX_ANTENNA_1, 239)" },
        tx_max_power_2_dbm = { 0, "radioSetTxMaxPowerOfAntenna(RADIO_TX_ANTENNA_2, 0)" },
        oscillator_dac = { 65535, "radioSetOscillatorDacValue(65535)" },
    }
    for key, case in pairs(cases) do
        local calls, rows = calls_of { [key] = { case[1] }, readings = { constant(0) } }
        check.assertEquals(calls, { case[2] })
        check.assertEquals(rows[1][key], case[1])
    end
end

function TestCalls.test_powers_are_tenths_without_error()
    local calls, rows = calls_of {
        tx_max_power_dbm = { from = -60, to = 24, step = 0.1 }, readings = { constant(0) },
    }
    local expected, values = {}, {}
    for tenth = -600, 240 do
        expected[#expected + 1] = ("radioSetTxMaxPower(%d)"):format(tenth)
        values[#values + 1] = tenth / 10
    end
    check.assertEquals(calls, expected)
    check.assertEquals(column(rows, "tx_max_power_dbm"), values)
end

function TestCalls.test_paths_are_selected_first()
    local calls = calls_of { rx_gain_db = { 20 }, select = "RADIO_SELECT_1", readings = "gain" }
    check.assertEquals(calls, { "radioSelect(RADIO_SELECT_1)",
        "radioSetRxGainMode(RADIO_RX_GAIN_MGC)", "radioSetRxGain(20)", "radioGetRxGainIndB()" })
end

function TestCalls.test_readings_to_settle_are_thrown_away()
    local count = 0
    local own = { name = "own", read = function() count = count + 1 return count end }
    local _, rows = calls_of { rx_gain_db = { 20, 30 }, readings = { own }, average = 2,
        settle = { readings = 3 } }
    check.assertEquals(column(rows, "own"), { 4.5, 9.5 })
end

function TestCalls.test_an_inner_sweep_runs_at_each_point_and_only_what_changes_is_set()
    local calls, rows = calls_of {
        rx_frequency_hz = { 2535e6, 2540e6 },
        inner = { rx_gain_db = { from = 20, to = 40, step = 20 } },
        readings = { constant(0) },
    }
    check.assertEquals(calls, {
        "radioSetRxGainMode(RADIO_RX_GAIN_MGC)",
        "radioSetRxFrequency(2535000000)", "radioSetRxGain(20)", "radioSetRxGain(40)",
        "radioSetRxFrequency(2540000000)", "radioSetRxGain(20)", "radioSetRxGain(40)",
    })
    check.assertEquals(column(rows, "rx_frequency_hz"), { 2535e6, 2535e6, 2540e6, 2540e6 })
    check.assertEquals(column(rows, "rx_gain_db"), { 20, 40, 20, 40 })
end

function TestCalls.test_a_script_sets_and_reads_what_it_likes()
    local level
    local _, rows = calls_of {
        custom = { name = "attenuator", unit = "dB", set = function(value) level = value end,
            from = 0, to = 0.5, step = 0.25 },
        readings = { { name = "level", unit = "dBm", read = function() return -level end } },
    }
    check.assertEquals(column(rows, "attenuator_db"), { 0, 0.25, 0.5 })
    check.assertEquals(column(rows, "level_dbm"), { 0, -0.25, -0.5 })
end

TestRows = {}

function TestRows.setUp() kit.fresh_radio() end

-- Readings of which each second one fails.
local function flaky()
    local count = 0
    return { name = "own", unit = "dBm", read = function()
        count = count + 1
        return count % 2 == 0 and NAN or -count
    end }
end

function TestRows.test_failed_readings_are_counted_and_take_no_part()
    local rows = sweep.run { rx_gain_db = { 20 }, readings = { flaky(), "gain" }, average = 2 }
    check.assertEquals({ rows[1].own_dbm, rows[1].gain_db, rows[1].failed }, { -1, 20, 1 })
end

function TestRows.test_statistics_are_columns_of_their_own()
    local rows = sweep.run { rx_gain_db = { 20 }, readings = { flaky() }, average = 3,
        statistics = true }
    local keys = {}
    for place, one in ipairs(rows.columns) do keys[place] = one.key end
    check.assertEquals(keys, { "rx_gain_db", "own_dbm", "own_minimum_dbm", "own_maximum_dbm",
        "own_deviation_db", "own_failed", "failed" })
    check.assertEquals({ rows[1].own_minimum_dbm, rows[1].own_maximum_dbm, rows[1].own_failed },
        { -3, -1, 1 })
    check.assertAlmostEquals(rows[1].own_deviation_db, math.sqrt(2), 1e-12)
end

function TestRows.test_rows_are_written_as_they_come()
    local path, seen = os.tmpname(), {}
    sweep.run { rx_gain_db = { 20, 30 }, csv = path, readings = { { name = "own", read = function()
        seen[#seen + 1] = kit.content(path)
        return 0.5
    end } } }
    local lines = { "rx_gain_db,own,failed\r\n", "20,0.5,0\r\n", "30,0.5,0\r\n" }
    check.assertEquals(seen, { lines[1], lines[1] .. lines[2] })
    check.assertEquals(kit.content(path), table.concat(lines))
    os.remove(path)
end

function TestRows.test_a_sweep_in_a_sweep_leaves_the_other_alone()
    local rows = sweep.run { rx_gain_db = { 20, 30 }, readings = { "gain", { name = "own",
        read = function()
            local inside = sweep.run { rx_gain_db = { 10 }, readings = "gain", statistics = true }
            return inside[1].gain_db
        end } } }
    check.assertEquals(column(rows, "gain_db"), { 20, 30 })
    check.assertEquals(column(rows, "own"), { 10, 10 })
end

TestStopped = {}

function TestStopped.setUp() kit.fresh_radio() end

local function stop_at_2575_mhz(more)
    local options = { rx_frequency_hz = { from = 2565e6, to = 2580e6, step = 5e6 },
        readings = { constant(-90) } }
    for key, value in pairs(more or {}) do options[key] = value end
    return kit.raised(sweep.run, options)
end

function TestStopped.test_the_transmitters_go_off_and_the_rows_are_kept()
    local message
    local calls = kit.calls(function() message = stop_at_2575_mhz() end)
    check.assertEquals(calls, {
        "radioSetRxFrequency(2565000000) = RADIO_ESUCCESS",
        "radioSetRxFrequency(2570000000) = RADIO_ESUCCESS",
        "radioSetRxFrequency(2575000000) = RADIO_EINVAL",
        "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
        "radioSetTxState(RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
    })
    check.assertEquals(message, "sweep.run stopped at point 3 of 4, rx_frequency_hz 2575000000: "
        .. "radioSetRxFrequency() did not return success; transmitters off; "
        .. "2 rows are kept in sweep.last()")
    local rows = sweep.last()
    check.assertEquals(column(rows, "rx_frequency_hz"), { 2565e6, 2570e6 })
    check.assertEquals(rows.error, message)
end

function TestStopped.test_the_file_has_the_rows_until_then()
    local path = os.tmpname()
    local message = stop_at_2575_mhz { csv = path }
    check.assertStrContains(message, "2 rows are kept in sweep.last() and " .. path)
    check.assertEquals(kit.content(path),
        "rx_frequency_hz,own_dbm,failed\r\n2565000000,-90,0\r\n2570000000,-90,0\r\n")
    os.remove(path)
end

function TestStopped.test_a_full_disk_stops_it_before_the_board_is_touched()
    local message
    local calls = kit.calls(function() message = stop_at_2575_mhz { csv = "/dev/full" } end)
    check.assertEquals(#calls, 2)
    check.assertStrContains(message, "sweep.run stopped before its first point: "
        .. "cannot write /dev/full: No space left on device; transmitters off; 0 rows are kept")
end

function TestStopped.test_a_radio_without_setup_is_reset()
    radioOpen()
    check.assertEquals(kit.raised(sweep.run, { rx_gain_db = { 20 }, readings = "gain" }),
        "sweep.run stopped before its first point: radioSetRxGainMode() did not return success; "
        .. "the radio was reset; 0 rows are kept in sweep.last()")
end

function TestStopped.test_an_error_of_a_script_s_function_stops_it_too()
    local message = kit.raised(sweep.run, { rx_gain_db = { 20, 30 }, readings = { { name = "own",
        read = function()
            if radioGetRxGainIndB() == 30 then error("the meter is gone", 0) end
            return 0
        end } } })
    check.assertEquals(message, "sweep.run stopped at point 2 of 2, rx_gain_db 30: "
        .. "the meter is gone; transmitters off; 1 row is kept in sweep.last()")
end

TestMistakes = {}

function TestMistakes.test_every_mistake_is_named()
    check.assertEquals(mistakes_of {
        rx_gain_db = { from = 0, to = 7, step = 0 },
        inner = { tx_max_power_dbm = { from = 1, to = 2, step = 0.25 }, foo = 1 },
        average = 0, settle = { secnds = 1 }, select = "RADIO_SELECT_3", statistics = 1,
        readings = { "rtpw" },
    }, [[
8 mistakes:
  average: 0 is below 1
  statistics: true or false is expected, got a number
  select: RADIO_SELECT has no member RADIO_SELECT_3; did you mean RADIO_SELECT_0?
  rx_gain_db.step: 0 does not lead from 0 to 7
  inner.foo: there is no such key
  inner.tx_max_power_dbm.step: 0.25 is not a multiple of 0.1
  readings[1]: there is no reading rtpw; did you mean rtwp?
  settle.secnds: there is no such key; did you mean seconds?]])
end

function TestMistakes.test_what_to_set_is_one_quantity()
    check.assertEquals(mistakes_of { readings = "rtwp" }, "what to set is missing, one of: "
        .. "tx_frequency_hz, rx_frequency_hz, tx_channel, rx_channel, rx_gain_db, "
        .. "tx_max_power_dbm, tx_max_power_1_dbm, tx_max_power_2_dbm, oscillator_dac, custom")
    check.assertEquals(mistakes_of { readings = "rtwp", rx_gain_db = { 1 }, rx_channel = { 1 } },
        "rx_channel, rx_gain_db: only one of them; a second one goes into inner = { }")
    check.assertEquals(mistakes_of { readings = "rtwp", rx_gain_db = 20 },
        "rx_gain_db: a table is expected, got a number")
end

function TestMistakes.test_what_the_driver_s_argument_cannot_hold_is_refused()
    local cases = {
        { "rx_frequency_hz", { 4294967296 }, "rx_frequency_hz[1]: 4294967296 is above 4294967295" },
        { "rx_frequency_hz", { -1, 0.5 }, "2 mistakes:\n  rx_frequency_hz[1]: -1 is below 0\n"
            .. "  rx_frequency_hz[2]: 0.5 is not a whole number" },
        { "tx_channel", { from = 65535, to = 65536, step = 1 },
            "tx_channel.to: 65536 is above 65535" },
        { "rx_gain_db", { 32768, -32769 }, "2 mistakes:\n  rx_gain_db[1]: 32768 is above 32767\n"
            .. "  rx_gain_db[2]: -32769 is below -32768" },
        { "tx_max_power_dbm", { 3276.8 }, "tx_max_power_dbm[1]: 3276.8 is above 3276.7" },
        { "tx_max_power_dbm", { 0.25 }, "tx_max_power_dbm[1]: 0.25 is not a multiple of 0.1" },
        { "rx_gain_db", { "20" }, "rx_gain_db[1]: a number is expected, got a text" },
        { "rx_gain_db", {}, "3 mistakes:\n  rx_gain_db.from: is missing\n"
            .. "  rx_gain_db.to: is missing\n  rx_gain_db.step: is missing" },
        { "rx_gain_db", { 1, 2, step = 1 }, "rx_gain_db.step: a list has no such key" },
    }
    for _, case in ipairs(cases) do
        check.assertEquals(mistakes_of { [case[1]] = case[2], readings = "rtwp" }, case[3])
    end
end

function TestMistakes.test_points_of_both_quantities_together_are_limited()
    check.assertEquals(mistakes_of {
        rx_frequency_hz = { from = 0, to = 1e6, step = 1000 },
        inner = { rx_gain_db = { from = 0, to = 999, step = 1 } }, readings = "rtwp",
    }, "1001000 points are too many; at most 1000000")
end

function TestMistakes.test_two_columns_of_a_name_are_refused()
    check.assertEquals(mistakes_of { rx_gain_db = { 1 }, readings = {
        { name = "rx_gain", unit = "dB", read = function() return 1 end } } },
        "two columns would be called rx_gain_db")
end

function TestMistakes.test_a_custom_quantity_has_a_name_and_a_function()
    check.assertEquals(mistakes_of { custom = { name = "2nd", 1, 2 }, readings = "rtwp" }, [[
2 mistakes:
  custom.name: "2nd" does not consist of letters, digits and underscores
  custom.set: is missing]])
end

function TestMistakes.test_no_table_is_a_mistake()
    check.assertEquals(mistakes_of(nil), "a table is expected, got nil")
end

TestModule = {}

function TestModule.test_it_makes_no_globals()
    kit.fresh_radio()
    check.assertEquals(kit.globals_changed(function()
        sweep.run { rx_gain_db = { 20 }, readings = "gain" }
    end), {})
end

kit.run()
