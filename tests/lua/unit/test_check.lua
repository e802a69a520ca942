-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local checked = require "sorel.internal.check"
local check = kit.check

local RULES = {
    { "band", group = "RADIO_BAND", required = true },
    { "average", type = "number", integer = true, least = 1, most = 10, default = 1 },
    { "format", choices = { "csv", "plot" } },
    { "action", type = "function" },
    { "even", check = function(value)
        if value % 2 == 0 then return value / 2 end
        return nil, value .. " is odd"
    end },
    { "quiet", type = "boolean", default = true },
}

TestFields = {}

function TestFields.test_what_is_right_is_taken_with_defaults_and_constants_as_numbers()
    local values, mistakes = checked.fields({ band = "RADIO_BAND_7", even = 4, quiet = false }, RULES)
    check.assertEquals(values, { band = 7, average = 1, even = 2, quiet = false })
    check.assertEquals(mistakes, {})
end

function TestFields.test_the_caller_s_table_stays_as_it_is()
    local given = { band = "RADIO_BAND_7" }
    checked.fields(given, RULES)
    check.assertEquals(given, { band = "RADIO_BAND_7" })
end

function TestFields.test_every_mistake_is_named_in_the_order_of_the_rules_then_unknown_keys_by_name()
    local _, mistakes = checked.fields({
        band = "RADIO_BND_7", average = 2.5, format = "cvs", action = 1, even = 3, quiet = 0,
        zebra = 1, avrage = 2, [7] = 3,
    }, RULES)
    check.assertEquals(mistakes, {
        "band: RADIO_BAND has no member RADIO_BND_7; did you mean RADIO_BAND_7?",
        "average: 2.5 is not a whole number",
        "format: cvs is none of: csv, plot; did you mean csv?",
        "action: a function is expected, got a number",
        "even: 3 is odd",
        "quiet: true or false is expected, got a number",
        "7: there is no such key",
        "avrage: there is no such key; did you mean average?",
        "zebra: there is no such key",
    })
end

function TestFields.test_what_is_required_is_missed()
    local _, mistakes = checked.fields({}, RULES)
    check.assertEquals(mistakes, { "band: is missing" })
end

function TestFields.test_bounds_belong_to_what_is_allowed()
    for _, average in ipairs { 1, 10 } do
        local _, mistakes = checked.fields({ band = 7, average = average }, RULES)
        check.assertEquals(mistakes, {})
    end
    local _, below = checked.fields({ band = 7, average = 0 }, RULES)
    check.assertEquals(below, { "average: 0 is below 1" })
    local _, above = checked.fields({ band = 7, average = 11 }, RULES)
    check.assertEquals(above, { "average: 11 is above 10" })
end

function TestFields.test_not_a_number_is_no_number()
    local _, mistakes = checked.fields({ band = 7, average = 0 / 0 }, RULES)
    check.assertEquals(mistakes, { "average: a number is expected, got not a number" })
end

function TestFields.test_a_constant_is_a_name_or_a_number()
    local _, mistakes = checked.fields({ band = true }, RULES)
    check.assertEquals(mistakes, { "band: a name or value of RADIO_BAND is expected, got true" })
end

function TestFields.test_a_constant_of_another_group_is_named_with_both()
    local _, mistakes = checked.fields({ band = "RADIO_MODE_3GNODEB" }, RULES)
    check.assertEquals(mistakes, {
        "band: RADIO_MODE_3GNODEB is a member of RADIO_MODE, one of RADIO_BAND is expected",
    })
end

function TestFields.test_what_stands_for_no_band_cannot_be_chosen_by_name_or_value()
    for given, named in pairs {
        RADIO_BAND_COUNT = "RADIO_BAND_COUNT", RADIO_BAND_INVALID = "RADIO_BAND_INVALID",
        RADIO_BAND_NULL = "RADIO_BAND_NULL", [-1] = "-1, which is RADIO_BAND_NULL,",
        [256] = "256, which is RADIO_BAND_COUNT,",
    } do
        local _, mistakes = checked.fields({ band = given }, RULES)
        check.assertEquals(mistakes, {
            "band: " .. named .. " cannot be chosen; there are RADIO_BAND_1 to RADIO_BAND_255",
        })
    end
end

function TestFields.test_what_is_no_table_is_a_mistake_of_its_place()
    local _, whole = checked.fields(5, RULES)
    check.assertEquals(whole, { "a table is expected, got a number" })
    local _, part = checked.fields(nil, RULES, "steps[3].")
    check.assertEquals(part, { "steps[3]: a table is expected, got nil" })
end

function TestFields.test_keys_are_named_with_their_place()
    local _, mistakes = checked.fields({}, RULES, "steps[3].")
    check.assertEquals(mistakes, { "steps[3].band: is missing" })
end

TestLength = {}

function TestLength.test_a_list_has_a_length_and_nothing_else_has()
    check.assertEquals({ checked.length {}, checked.length { false, 2 } }, { 0, 2 })
    for _, other in ipairs { 5, "ab", { 1, nil, 3 }, { first = 1 }, { 1, first = 2 }, { [0] = 1 } } do
        check.assertNil(checked.length(other))
    end
end

TestList = {}

function TestList.test_a_list_has_no_mistakes_and_its_length()
    check.assertEquals({ checked.list({ 1, "b", false }, "steps") }, { 3, {} })
end

function TestList.test_what_is_no_list_is_told()
    local function mistakes(given) return select(2, checked.list(given, "steps")) end
    check.assertEquals(mistakes {}, { "steps: is empty" })
    check.assertEquals(mistakes { 1, nil, 3 },
        { "steps[2]: is missing, though there are later ones" })
    check.assertEquals(mistakes { [2] = 1 },
        { "steps[1]: is missing, though there are later ones" })
    check.assertEquals(mistakes { 1, b = 1, a = 1, [0] = 1, [1.5] = 1 }, {
        "steps.0: a list has no such key", "steps.1.5: a list has no such key",
        "steps.a: a list has no such key", "steps.b: a list has no such key",
    })
end

TestRaise = {}

function TestRaise.test_no_mistake_is_no_error()
    checked.raise("sweep.run", {}, 1)
end

function TestRaise.test_one_mistake_is_a_line_with_the_caller_s_place()
    local message = kit.raised(function() checked.raise("sweep.run", { "band: is missing" }, 1) end)
    check.assertStrMatches(message, ".*test_check.lua:%d+: sweep.run: band: is missing")
end

function TestRaise.test_several_mistakes_are_a_line_each()
    local message = kit.raised(function() checked.raise("sweep.run", { "one", "two" }, 1) end)
    check.assertStrMatches(message, ".*: sweep.run: 2 mistakes:\n  one\n  two")
end

kit.run()
