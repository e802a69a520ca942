-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local limits = require "sorel.limits"
local check = kit.check

local OFF = {
    "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
    "radioSetTxState(RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
}

local ENABLE = "radioSetTxState(RADIO_STATE_ENABLE) = RADIO_ESUCCESS"

local function gives(...)
    local values, count = { ... }, select("#", ...)
    return function() return unpack(values, 1, count) end
end

-- The step's table in the details of a test of that one step.
local function outcome(step)
    step.name = "one"
    local passed, details = limits.run { name = "test", steps = { step } }
    check.assertEquals(passed, details.steps[1].result == "pass")
    check.assertEquals(#details.steps, 1)
    return details.steps[1]
end

local function reading(value, low, high)
    local row = outcome { measure = gives(value), low = low, high = high }
    return row.result, row.message
end

-- "name=result" of each step, in a text.
local function results(test)
    test.name = "test"
    local passed, details = limits.run(test)
    local told = {}
    for place, row in ipairs(details.steps) do told[place] = row.name .. "=" .. row.result end
    return table.concat(told, " "), passed, details
end

-- What limits.run says of a test, without the place of the call.
local function refusal(test)
    return (kit.raised(limits.run, test):gsub("^[^\n]-:%d+: ", ""))
end

local function mistake(step)
    return (refusal { name = "test", steps = { step } }:gsub("^limits.run: ", ""))
end

TestReading = {}

function TestReading.test_limits_belong_to_what_passes()
    for _, value in ipairs { 1, 1.5, 2 } do
        check.assertEquals({ reading(value, 1, 2) }, { "pass" })
    end
    check.assertEquals({ reading(0.5, 1, 2) }, { "fail", "0.5 is below 1" })
    check.assertEquals({ reading(2.5, 1, 2) }, { "fail", "2.5 is above 2" })
    check.assertEquals({ reading(7, 7, 7) }, { "pass" })
end

function TestReading.test_one_limit_is_enough()
    check.assertEquals({ reading(1e9, 1, nil) }, { "pass" })
    check.assertEquals({ reading(0, 1, nil) }, { "fail", "0 is below 1" })
    check.assertEquals({ reading(-1e9, nil, 2) }, { "pass" })
    check.assertEquals({ reading(3, nil, 2) }, { "fail", "3 is above 2" })
end

function TestReading.test_a_reading_just_beyond_its_limit_is_told_from_it()
    local _, message = reading(60 + 2 ^ -47, 0, 60)
    check.assertEquals(message, "60.000000000000007 is above 60")
end

function TestReading.test_what_failed_readings_give_never_passes()
    for _, value in ipairs { 0 / 0, -(0 / 0) } do
        check.assertEquals({ reading(value, -1e300, 1e300) },
            { "fail", "not a number: the reading has failed" })
    end
    check.assertEquals({ reading(-2147483648, nil, 0) },
        { "fail", "-2147483648: the reading has failed" })
    check.assertEquals({ reading(4294967295, 0, nil) },
        { "fail", "4294967295: the reading has failed" })
    check.assertEquals({ reading(math.huge, 0, nil) }, { "fail", "the reading is infinite" })
    check.assertEquals({ reading(-math.huge, nil, 0) }, { "fail", "the reading is infinite" })
end

function TestReading.test_what_the_driver_gives_for_a_failed_reading_fails()
    radioOpen()
    local row = outcome { measure = radioGetRxRtwp, high = 0 }
    check.assertEquals({ row.result, row.value }, { "fail", -2147483648 })
end

function TestReading.test_what_is_no_number_is_an_error_that_says_so()
    local function message(...)
        local row = outcome { measure = gives(...), low = 0 }
        check.assertEquals(row.result, "error")
        return row.message
    end
    check.assertEquals(message(), "measure returned nil; a number is expected")
    check.assertEquals(message(nil, "no bus"),
        "measure returned nil (no bus); a number is expected")
    check.assertEquals(message(nil, "no\0bus"),
        "measure returned nil (no\0bus); a number is expected")
    check.assertEquals(message("5"), 'measure returned "5"; a number is expected')
    check.assertEquals(message(true), "measure returned true; a number is expected")
    check.assertEquals(message({}), "measure returned a table; a number is expected")
end

function TestReading.test_an_expected_text_or_number_is_exact()
    local function result(value, expected)
        local row = outcome { measure = gives(value), expected = expected }
        return row.result, row.message
    end
    check.assertEquals({ result("Talwin", "Talwin") }, { "pass" })
    check.assertEquals({ result("talwin", "Talwin") }, { "fail", '"talwin" is not "Talwin"' })
    check.assertEquals({ result(0xffffffff, 0xffffffff) }, { "pass" })
    check.assertEquals({ result(7.5, 7) }, { "fail", "7.5 is not 7" })
    check.assertEquals({ result(0 / 0, 7) }, { "fail", "nan is not 7" })
    check.assertEquals({ result("a\0b", "a\0c") }, { "fail", [["a\x00b" is not "a\x00c"]] })
    check.assertEquals({ result(7, "7") }, { "error", "measure returned 7; a text is expected" })
end

function TestReading.test_a_text_with_the_reading_is_the_message()
    check.assertEquals(outcome({ measure = gives(5, "at 2 GHz"), low = 1 }).message, "at 2 GHz")
    check.assertEquals(outcome({ measure = gives(0, "at 2 GHz"), low = 1 }).message,
        "0 is below 1; at 2 GHz")
    check.assertNil(outcome({ measure = gives(("x"):gsub("x", "y")), expected = "y" }).message)
end

TestCheck = {}

function TestCheck.test_true_passes_and_false_fails()
    check.assertEquals(outcome({ check = gives(true) }).result, "pass")
    local row = outcome { check = gives(false, "the lamp is off") }
    check.assertEquals({ row.result, row.message }, { "fail", "the lamp is off" })
end

function TestCheck.test_all_else_is_an_error()
    local row = outcome { check = gives(nil, "gone") }
    check.assertEquals({ row.result, row.message },
        { "error", "check returned nil (gone); true or false is expected" })
    row = outcome { check = gives(1) }
    check.assertEquals({ row.result, row.message },
        { "error", "check returned 1; true or false is expected" })
end

TestErrors = {}

function TestErrors.test_an_error_of_any_kind_is_told()
    local function message(value)
        local row = outcome { check = function() error(value, 0) end }
        check.assertEquals(row.result, "error")
        return row.message
    end
    check.assertEquals(message("broken"), "broken")
    check.assertEquals(message("bro\0ken"), "bro\0ken")
    check.assertEquals(message(nil), "an error without a message")
    check.assertEquals(message(""), "an error without a message")
    check.assertEquals(message(42), "42")
    check.assertEquals(message(false), "false")
    check.assertEquals(message(print), "an error that is a function")
    check.assertEquals(message(setmetatable({}, { __tostring = gives("told") })), "told")
    for _, metatable in ipairs { {}, { __tostring = error }, { __metatable = false } } do
        check.assertEquals(message(setmetatable({}, metatable)), "an error that is a table")
    end
end

function TestErrors.test_a_step_without_end_of_calls_and_one_that_yields_are_errors()
    local function deeper() return 1 + deeper() end
    check.assertStrContains(outcome({ measure = deeper, low = 0 }).message, "stack overflow")
    check.assertStrContains(outcome({ check = coroutine.yield }).message, "attempt to yield")
end

function TestErrors.test_where_an_error_came_from_is_in_the_details()
    kit.fresh_radio()
    local row = outcome { check = function() radioSetTxFrequency(1) end }
    check.assertEquals(row.message, "radioSetTxFrequency() did not return success")
    check.assertStrMatches(row.trace,
        "stack traceback:\n.*'radioSetTxFrequency'\n\t[^\n]*test_limits.lua:%d+: in function <.*>")
    check.assertNotStrContains(row.trace, "xpcall")
end

TestCourse = {}

function TestCourse.test_steps_run_in_their_order_and_none_stops_the_rest()
    local order = {}
    local function noting(name, action)
        return { name = name, check = function() order[#order + 1] = name return action() end }
    end
    local told, passed, details = results { steps = {
        noting("b", error), noting("a", gives(false)), noting("c", gives(nil)),
        noting("d", gives(true)),
    } }
    check.assertEquals(told, "b=error a=fail c=error d=pass")
    check.assertEquals(order, { "b", "a", "c", "d" })
    check.assertEquals({ passed, details.passed, details.failed, details.errors, details.skipped },
        { false, false, 1, 2, 0 })
end

function TestCourse.test_after_a_critical_step_that_does_not_pass_the_others_are_skipped()
    for _, action in ipairs { gives(false), error } do
        local told, passed, details = results { steps = {
            { name = "a", check = gives(true), critical = true },
            { name = "b", check = action, critical = true },
            { name = "c", check = error },
        } }
        check.assertStrMatches(told, "a=pass b=%l+ c=skip")
        check.assertEquals({ passed, details.skipped }, { false, 1 })
        check.assertEquals(details.steps[3].message, "not run after b, which is critical")
    end
end

function TestCourse.test_set_up_and_clean_up_surround_the_steps()
    local order = {}
    local function noting(name) return function() order[#order + 1] = name return true end end
    local told, passed = results {
        setup = noting "setup", cleanup = noting "cleanup",
        steps = { { name = "a", check = noting "a" } },
    }
    check.assertEquals({ told, passed }, { "a=pass", true })
    check.assertEquals(order, { "setup", "a", "cleanup" })
end

function TestCourse.test_an_error_of_the_set_up_skips_the_steps_but_not_the_clean_up()
    local cleaned = false
    local told, passed = results {
        setup = error, cleanup = function() cleaned = true end,
        steps = { { name = "a", check = error } },
    }
    check.assertEquals({ told, passed, cleaned }, { "set-up=error a=skip", false, true })
end

function TestCourse.test_an_error_of_the_clean_up_is_one_of_the_test()
    local step = { name = "a", check = gives(true) }
    local told, passed = results { cleanup = error, steps = { step } }
    check.assertEquals({ told, passed }, { "a=pass clean-up=error", false })
end

function TestCourse.test_what_a_step_does_to_the_table_changes_nothing()
    local steps = {}
    steps[1] = { name = "a", check = function()
        steps[2].check, steps[3] = nil, {}
        return true
    end }
    steps[2] = { name = "b", check = gives(true) }
    check.assertEquals(results { steps = steps }, "a=pass b=pass")
end

TestTransmitter = {}

-- The driver calls of a test of these checks.
local function calls_of(...)
    local steps = {}
    for place, action in ipairs { ... } do
        steps[place] = { name = "step " .. place, check = action }
    end
    kit.fresh_radio()
    return kit.calls(limits.run, { name = "test", steps = steps })
end

local function enabled()
    radioSetTxState(RADIO_STATE_ENABLE)
    return true
end

function TestTransmitter.test_it_is_off_at_the_end()
    check.assertEquals(calls_of(enabled), { ENABLE, OFF[1], OFF[2] })
end

function TestTransmitter.test_it_stays_on_from_step_to_step_also_after_a_failure()
    check.assertEquals(calls_of(enabled, gives(false), gives(true)), { ENABLE, OFF[1], OFF[2] })
end

function TestTransmitter.test_it_goes_off_before_the_next_step_after_an_error()
    for _, action in ipairs { error, gives(nil), coroutine.yield } do
        local calls = calls_of(enabled, action, function() return radioSpiRead(0x30) == 0 end)
        check.assertEquals(calls,
            { ENABLE, OFF[1], OFF[2], "radioSpiRead(0x30) = 0x0", OFF[1], OFF[2] })
    end
end

function TestTransmitter.test_a_step_may_close_the_radio_or_open_another()
    check.assertEquals(calls_of(enabled, function() radioClose() error() end),
        { ENABLE, "radioClose() = RADIO_ESUCCESS" })
    local calls = calls_of(enabled, function() kit.fresh_radio() return enabled() end)
    check.assertEquals({ calls[2], calls[#calls - 2], calls[#calls - 1], calls[#calls] },
        { "radioClose() = RADIO_ESUCCESS", ENABLE, OFF[1], OFF[2] })
end

function TestTransmitter.test_it_is_off_after_a_clean_up_that_switched_it_on_and_raised()
    kit.fresh_radio()
    local calls = kit.calls(limits.run, {
        name = "test", steps = { { name = "a", check = gives(true) } },
        cleanup = function() enabled() error() end,
    })
    check.assertEquals(calls, { ENABLE, OFF[1], OFF[2], OFF[1], OFF[2] })
end

function TestTransmitter.test_it_is_off_after_a_table_that_is_refused_and_nothing_else_is_done()
    for _, action in ipairs { limits.run, limits.exit, limits.main } do
        kit.fresh_radio()
        enabled()
        local calls = kit.calls(kit.raised, action, {})
        check.assertEquals(calls, OFF)
    end
end

function TestTransmitter.test_one_that_cannot_be_switched_off_is_an_error_of_the_test()
    kit.fresh_radio()
    local function stuck() error("stuck", 0) end
    local function refused(...)
        return kit.with(_G, "radioSetTxState", stuck, kit.with, _G, "radioReset", stuck, ...)
    end
    local told, passed, details = refused(results, { steps = {
        { name = "a", check = function() error("broken", 0) end },
        { name = "b", check = gives(true) },
    } })
    local message = refused(refusal, {})
    check.assertEquals({ told, passed }, { "a=error b=pass transmitter off=error", false })
    check.assertEquals(details.steps[1].message, "broken; the transmitter may still be on: stuck")
    check.assertEquals(details.steps[3].message, "the transmitter may still be on: stuck")
    check.assertStrContains(message, "\n  the transmitter may still be on: stuck")
end

TestRefusal = {}

function TestRefusal.test_every_mistake_is_told_with_the_step_and_the_key()
    check.assertEquals(refusal {
        nane = "test", serial = 42, junit = "same", csv = "same", cleanup = true,
        steps = {
            { name = "a", measure = gives(1), low = 5, high = 3 },
            { name = "b", measure = gives(1) },
            { name = "a", check = gives(true), unit = "dB" },
            { measure = gives(1), check = gives(true) },
            { name = "tx\npower", mesure = gives(1), low = 0 / 0, high = "5", expected = true },
            "f",
        },
    }, [[
limits.run: 17 mistakes:
  name: is missing
  serial: a text is expected, got a number
  cleanup: a function is expected, got true
  nane: there is no such key; did you mean name?
  csv: junit names the same file
  steps[1] (a).low: 5 is above high, 3
  steps[2] (b): low, high or expected is missing (a step that gives true or false has check)
  steps[3] (a).unit: goes with measure, not with check
  steps[3] (a).name: steps[1] has the same
  steps[4].name: is missing
  steps[4]: measure and check exclude each other
  steps[5] (tx\npower).low: a number is expected, got not a number
  steps[5] (tx\npower).high: a number is expected, got a text
  steps[5] (tx\npower).expected: a step that gives true or false has check in place of measure
  steps[5] (tx\npower).mesure: there is no such key; did you mean measure?
  steps[5] (tx\npower): measure or check is missing
  steps[6]: a table is expected, got a text]])
end

function TestRefusal.test_what_can_never_pass_or_always_would_is_refused()
    local measure = gives(1)
    local cases = {
        [{ high = math.huge }] = "high: infinity is no limit; leave the key out",
        [{ low = -math.huge }] = "low: infinity is no limit; leave the key out",
        [{ expected = 0 / 0 }] = "expected: nan is never read",
        [{ expected = math.huge }] = "expected: inf is never read",
        [{ expected = -2147483648 }] = "expected: -2147483648 is what a failed reading gives",
        [{ expected = {} }] = "expected: a text or a number is expected, got a table",
        [{ expected = 5, low = 5 }] = "expected: excludes low and high",
    }
    for step, message in pairs(cases) do
        step.name, step.measure = "a", measure
        check.assertEquals(mistake(step), "steps[1] (a)." .. message)
    end
    check.assertEquals(mistake { name = "", check = measure }, "steps[1].name: is empty")
end

function TestRefusal.test_steps_are_a_list_without_gaps()
    local step = { name = "a", check = gives(true) }
    check.assertEquals(refusal { name = "t" }, "limits.run: steps: is missing")
    check.assertEquals(refusal { name = "t", steps = {} }, "limits.run: steps: is empty")
    check.assertEquals(refusal { name = "t", steps = { step, nil, step } },
        "limits.run: steps[2]: is missing, though there are later ones")
    check.assertEquals(refusal { name = "t", steps = { step, temperature = step } },
        "limits.run: steps.temperature: a list has no such key")
    check.assertEquals(refusal(nil), "limits.run: a table is expected, got nil")
end

function TestRefusal.test_the_place_is_that_of_the_call()
    for _, name in ipairs { "run", "exit", "main" } do
        local message = kit.raised(function() limits[name](nil) end)
        check.assertStrMatches(message, ".*test_limits.lua:%d+: limits." .. name .. ": .*")
    end
end

function TestRefusal.test_what_is_no_result_does_not_end_the_process()
    check.assertStrContains(kit.raised(limits.exit),
        "limits.exit: the result of limits.run, true or false, is expected, got nil")
    check.assertStrContains(kit.raised(limits.exit, {}), "got a table")
    check.assertStrContains(kit.raised(limits.main, true), "a function is expected, got a boolean")
end

TestModule = {}

function TestModule.test_no_global_is_made_or_changed()
    check.assertEquals(kit.globals_changed(function()
        limits.run { name = "test", steps = { { name = "a", check = gives(true) } } }
    end), {})
end

kit.run()
