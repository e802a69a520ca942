-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local measure = require "sorel.measure"
local check = kit.check

local NAN, FAILED = 0 / 0, -2147483648

-- A reading that gives these values, one after the other.
local function values(...)
    local given, place = { ... }, 0
    return function()
        place = place + 1
        return given[place]
    end
end

TestStatistics = {}

function TestStatistics.test_powers_are_averaged_in_milliwatts()
    -- 1 mW and 3 mW.
    local found = measure.statistics({ 0, 10 * math.log10(3) }, "dBm")
    check.assertAlmostEquals(found.mean, 10 * math.log10(2), 1e-12)
    check.assertAlmostEquals(found.deviation, 10 * math.log10(3) / math.sqrt(2), 1e-12)
    check.assertEquals({ found.minimum, found.maximum }, { 0, 10 * math.log10(3) })
end

function TestStatistics.test_tenths_of_a_dbm_are_averaged_in_milliwatts_and_stay_tenths()
    local found = measure.statistics({ -900, -800 }, "0.1 dBm")
    -- (1e-9 + 1e-8) / 2 mW
    check.assertAlmostEquals(found.mean, 100 * math.log10(5.5e-9), 1e-9)
end

function TestStatistics.test_other_units_are_averaged_as_they_are()
    for _, unit in ipairs { "dB", "degC", "mA" } do
        local found = measure.statistics({ 1, 2, 3, 6 }, unit)
        check.assertEquals(found.mean, 3)
        check.assertAlmostEquals(found.deviation, math.sqrt(14 / 3), 1e-15)
    end
    check.assertEquals(measure.statistics({ 1, 2, 6 }).mean, 3)
end

function TestStatistics.test_equal_values_have_exactly_their_mean_and_no_deviation()
    for _, unit in ipairs { "dBm", "0.1 dBm", "dB" } do
        local found = measure.statistics({ -92.3, -92.3, -92.3 }, unit)
        check.assertEquals({ found.mean, found.deviation }, { -92.3, 0 })
    end
end

function TestStatistics.test_small_differences_of_large_values_are_kept()
    local found = measure.statistics({ 1e15 + 1, 1e15 + 2, 1e15 + 3 }, "Hz")
    check.assertEquals({ found.mean, found.deviation }, { 1e15 + 2, 1 })
end

function TestStatistics.test_powers_beyond_the_range_of_milliwatts_are_averaged()
    check.assertEquals(measure.statistics({ 4000, 4000 }, "dBm").mean, 4000)
    check.assertEquals(measure.statistics({ -4000, -4000 }, "dBm").mean, -4000)
end

function TestStatistics.test_no_power_at_all_counts_as_0_mw()
    local found = measure.statistics({ -math.huge, 0 }, "dBm")
    check.assertAlmostEquals(found.mean, 10 * math.log10(0.5), 1e-12)
    check.assertEquals({ found.count, found.failed }, { 2, 0 })
    check.assertEquals(measure.statistics({ -math.huge, -math.huge }, "dBm").mean, -math.huge)
end

function TestStatistics.test_failed_readings_are_counted_and_take_no_part()
    local found = measure.statistics({ NAN, 3, FAILED, 5 }, "dB")
    check.assertEquals({ found.mean, found.minimum, found.maximum }, { 4, 3, 5 })
    check.assertEquals({ found.count, found.failed }, { 2, 2 })
end

function TestStatistics.test_nothing_has_no_mean()
    for _, nothing in ipairs { {}, { NAN, FAILED } } do
        local found = measure.statistics(nothing, "dBm")
        check.assertEquals({ found.count, found.failed }, { 0, #nothing })
        for _, name in ipairs { "mean", "minimum", "maximum", "deviation" } do
            check.assertNaN(found[name])
        end
    end
end

function TestStatistics.test_one_value_has_no_deviation()
    local found = measure.statistics({ 7 }, "dB")
    check.assertEquals(found.mean, 7)
    check.assertNaN(found.deviation)
end

function TestStatistics.test_what_is_no_list_of_numbers_is_refused()
    check.assertStrMatches(kit.raised(measure.statistics, 5, "dB"),
        ".*measure.statistics: values: a list is expected, got number")
    check.assertStrMatches(kit.raised(function() measure.statistics({ 1, "2", true }, "dB") end),
        ".*test_measure.lua:%d+: measure.statistics: 2 mistakes:\n  values%[2%]: a number is "
        .. "expected, got string\n  values%[3%]: a number is expected, got boolean")
end

TestRead = {}

function TestRead.setUp() kit.fresh_radio() end

local CALLS = {
    rtwp = "radioGetRxRtwpIndBm()",
    rtwp_1 = "radioGetRxRtwpOfAntennaIndBm(RADIO_RX_ANTENNA_1)",
    rtwp_2 = "radioGetRxRtwpOfAntennaIndBm(RADIO_RX_ANTENNA_2)",
    rtwp_raw = "radioGetRxRtwp()",
    rtwp_raw_1 = "radioGetRxRtwpOfAntenna(RADIO_RX_ANTENNA_1)",
    rtwp_raw_2 = "radioGetRxRtwpOfAntenna(RADIO_RX_ANTENNA_2)",
    gain = "radioGetRxGainIndB()",
    gain_1 = "radioGetRxGainOfAntennaIndB(RADIO_RX_ANTENNA_1)",
    gain_2 = "radioGetRxGainOfAntennaIndB(RADIO_RX_ANTENNA_2)",
    temperature = "radioGetTemperature()",
}

-- The calls without their results.
local function names_of(calls)
    local names = {}
    for place, call in ipairs(calls) do names[place] = call:gsub(" = .*", "") end
    return names
end

function TestRead.test_each_reading_is_its_call()
    local count = 0
    for _, row in ipairs(measure.readings()) do
        count = count + 1
        check.assertEquals(names_of(kit.calls(measure.read, row.reading)), { CALLS[row.reading] })
    end
    check.assertEquals(count, 10)
end

function TestRead.test_readings_are_taken_in_turn()
    local calls = kit.calls(measure.read, { "gain", "rtwp" }, { average = 2 })
    check.assertEquals(names_of(calls), { CALLS.gain, CALLS.rtwp, CALLS.gain, CALLS.rtwp })
end

function TestRead.test_the_means_come_in_order()
    local rtwp, own, gain = measure.read({ "rtwp",
        { name = "own", unit = "dBm", read = values(0, NAN, 10 * math.log10(3)) }, "gain" },
        { average = 3 })
    check.assertAlmostEquals(rtwp, -93.4, 0.5)
    check.assertAlmostEquals(own, 10 * math.log10(2), 1e-12)
    check.assertEquals(gain, 76)
end

function TestRead.test_a_reading_that_always_fails_is_not_a_number()
    radioSetRxState(RADIO_STATE_DISABLE)
    local rtwp, raw = measure.read({ "rtwp", "rtwp_raw" }, { average = 2 })
    check.assertNaN(rtwp)
    check.assertNaN(raw)
end

function TestRead.test_a_gap_in_a_list_is_told()
    check.assertStrContains(kit.raised(measure.statistics, { 1, nil, 3 }),
        "measure.statistics: values[2]: is missing, though there are later ones")
end

function TestRead.test_one_column_can_be_named_without_a_list_and_a_path_is_a_text()
    kit.fresh_radio()
    local rows = measure.observe("temperature")
    check.assertEquals(kit.printed(measure.print, rows, "reading"), { "reading", "temperature" })
    check.assertStrContains(kit.raised(measure.write, rows, true),
        "measure.write: file: a path is expected, got a boolean")
end

function TestRead.test_what_a_script_replaces_is_what_is_called()
    local function replaced() return 40 end
    check.assertEquals(kit.with(_G, "radioGetTemperature", replaced, measure.read, "temperature"), 40)
end

function TestRead.test_every_mistake_is_named_before_anything_is_read()
    local message
    local calls = kit.calls(function()
        message = kit.raised(function()
            measure.read({ "rtpw", "gain", "gain", { name = "a b", unti = "dB" }, 7 },
                { average = 0, settle = 1 })
        end)
    end)
    check.assertEquals(calls, {})
    check.assertStrMatches(message, ".*test_measure.lua:%d+: measure.read: 8 mistakes:\n.*")
    check.assertEquals(message:gsub("^.-\n", ""), [[
  average: 0 is below 1
  settle: there is no such key
  names[1]: there is no reading rtpw; did you mean rtwp?
  names[3]: gain is there twice
  names[4].name: "a b" does not consist of letters, digits and underscores
  names[4].read: is missing
  names[4].unti: there is no such key; did you mean unit?
  names[5]: there is no reading 7; there are: rtwp, rtwp_1, rtwp_2, rtwp_raw, rtwp_raw_1, ]]
        .. "rtwp_raw_2, gain, gain_1, gain_2, temperature")
end

function TestRead.test_no_names_are_a_mistake()
    for _, nothing in ipairs { {}, 7 } do
        check.assertStrContains(kit.raised(measure.read, nothing),
            "measure.read: names: a name or a list of names is expected, one of: rtwp, ")
    end
end

function TestRead.test_a_reading_that_is_no_number_is_an_error()
    check.assertEquals(
        kit.raised(measure.read, { { name = "leakage", read = function() return "low" end } }),
        "the reading leakage is no number but string")
end

TestRows = {}

function TestRows.setUp() kit.fresh_radio() end

function TestRows.test_what_was_observed_has_statistics_and_is_printed()
    local drift = { name = "drift", unit = "dB", read = values(1, 2.5, NAN) }
    local rows = measure.observe({ "gain", drift }, { average = 3 })
    check.assertEquals(kit.printed(measure.print, rows), {
        "reading  unit   mean  minimum  maximum  deviation  count  failed",
        "gain     dB    76.00       76    76.00       0.00      3       0",
        "drift    dB     1.75        1     2.50       1.06      2       1",
    })
end

local ROWS = {
    columns = { { key = "step", swept = true }, { key = "rtwp_dbm" }, { key = "what" } },
    { step = 0.125, rtwp_dbm = -92.34375, what = "a, b" },
    { step = 2655000000, rtwp_dbm = NAN, what = "c" },
    { step = 1, rtwp_dbm = -math.huge, what = "d" },
}

function TestRows.test_a_table_is_aligned_and_shows_what_was_set_as_it_is()
    check.assertEquals(kit.printed(measure.print, ROWS), {
        "      step  rtwp_dbm  what",
        "     0.125    -92.34  a, b",
        "2655000000         -  c",
        "         1      -inf  d",
    })
end

function TestRows.test_the_columns_of_a_table_can_be_chosen()
    check.assertEquals(kit.printed(measure.print, ROWS, { "what", "step" })[2], "a, b       0.125")
    local message = kit.raised(function() measure.print(ROWS, { "stp" }) end)
    check.assertStrMatches(message, ".*test_measure.lua:%d+: measure.print: .*")
    check.assertStrContains(message, "columns[1]: there is no column stp; did you mean step?")
end

function TestRows.test_no_rows_are_only_the_names_of_the_columns()
    local lines = kit.printed(measure.print, { columns = ROWS.columns })
    check.assertEquals(lines, { "step  rtwp_dbm  what" })
end

function TestRows.test_csv_has_a_header_and_empty_cells_for_what_is_not_a_number()
    local path = os.tmpname()
    measure.write(ROWS, path)
    check.assertEquals(kit.content(path), "step,rtwp_dbm,what\r\n"
        .. '0.125,-92.34375,"a, b"\r\n2655000000,,c\r\n1,-inf,d\r\n')
    os.remove(path)
end

function TestRows.test_a_full_disk_is_an_error()
    check.assertEquals(kit.raised(measure.write, ROWS, "/dev/full"),
        "cannot write /dev/full: No space left on device")
end

function TestRows.test_what_is_no_rows_is_refused()
    for _, action in ipairs { "print", "write", "plot" } do
        check.assertStrMatches(kit.raised(function() measure[action]({}, "file") end),
            ".*test_measure.lua:%d+: measure." .. action
            .. ": rows are what sweep.run and measure.observe return")
    end
end

TestPlot = {}

local function plot_mistakes(...)
    local given = { ... }
    local message = kit.raised(function() measure.plot(unpack(given, 1, 3)) end)
    return (message:gsub("^.*test_measure.lua:%d+: ", ""))
end

function TestPlot.test_what_cannot_be_drawn_is_refused()
    local columns = { { key = "x", swept = true }, { key = "y", reading = true } }
    check.assertEquals(plot_mistakes(measure.observe("gain"), "f"),
        "measure.plot: rows: nothing was swept; sweep.run gives rows to draw")
    check.assertEquals(plot_mistakes({ columns = columns }, "f"),
        "measure.plot: rows: there is no reading to draw")
    check.assertEquals(plot_mistakes({ columns = columns, { x = 1, y = NAN } }, "f"),
        "measure.plot: rows: there is no reading to draw")
    check.assertEquals(plot_mistakes({ columns = columns, { x = 1, y = 1 } }, "folder/",
        { titel = "t", columns = { "z" } }), [[
measure.plot: 3 mistakes:
  titel: there is no such key; did you mean title?
  file: a path is expected, to which .csv, .gnuplot and .png are added
  columns[1]: there is no column z; did you mean x?]])
end

TestModule = {}

function TestModule.test_it_makes_no_globals()
    check.assertEquals(kit.globals_changed(function()
        measure.read("gain")
        measure.statistics({ 1 }, "dBm")
        measure.observe("gain")
    end), {})
end

kit.run()
