-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local values = require "sorel.remote.values"
local check = kit.check

-- What is read of what is written.
local function travelled(value)
    local text = values.encode(value)
    local stop, read = values.read("ok " .. text, 4)
    check.assertEquals(stop, #text + 4)
    return read
end

local function shown(value)
    if type(value) == "number" then return ("%.17g"):format(value) end
    return type(value) .. " " .. tostring(value)
end

local function assert_travels(value)
    check.assertEquals(shown(travelled(value)), shown(value))
end

TestValues = {}

function TestValues.test_nil_and_booleans_travel()
    assert_travels(nil)
    assert_travels(true)
    assert_travels(false)
end

function TestValues.test_numbers_travel_exactly()
    local numbers = { 0, 1, -1, 2655000000, 2 ^ 53, 0.1, -92.34375,
        1e300, 5e-324, 2 ^ 1023 * 1.999, 1 / 0, -1 / 0, 0 / 0, -(0 / 0) }
    for _, number in ipairs(numbers) do assert_travels(number) end
    -- Written as -0.0 it would be the 0 above, which it equals.
    check.assertEquals(1 / travelled(-1 / math.huge), -math.huge)
    math.randomseed(20260715)
    for _ = 1, 2000 do
        assert_travels((math.random() - 0.5) * 2 ^ math.random(-1000, 1000))
    end
end

function TestValues.test_numbers_travel_between_locales()
    local format, number = string.format, tonumber
    local function with_comma(...) return (format(...):gsub("%.", ",")) end
    local function of_comma(text) return number((text:gsub("%.", "x"):gsub(",", "."))) end
    kit.with(string, "format", with_comma, function()
        local written = values.encode(-92.34375)
        local _, read = kit.with(_G, "tonumber", of_comma, values.read, "-92.34375e-1", 1)
        check.assertEquals({ written, read }, { "-92.34375", -9.234375 })
    end)
end

function TestValues.test_texts_of_all_bytes_travel_as_printable_ascii()
    local bytes = {}
    for byte = 0, 255 do bytes[#bytes + 1] = string.char(byte) end
    local all = table.concat(bytes)
    check.assertEquals(travelled(all), all)
    check.assertNil(values.encode(all):find("[^ -~]"))
    check.assertEquals(values.encode('a\n"\\\0'), [["a\x0a\"\\\x00"]])
    assert_travels("")
end

function TestValues.test_of_other_values_the_type_travels()
    for _, value in ipairs { print, coroutine.create(function() end), io.stdout } do
        check.assertEquals(type(travelled(value)), type(value))
    end
    check.assertEquals(travelled({ 1, 2 }), {})
end

function TestValues.test_lists_are_of_numbers_texts_and_what_is_neither()
    local _, list = values.read([[{1 "a } b" ? -inf}]], 1)
    check.assertEquals(list, { 1, "a } b", false, -1 / 0 })
    check.assertEquals({ values.element(1), values.element("1"), values.element(nil),
        values.element({}) }, { "1", '"1"', "?", "?" })
end

function TestValues.test_what_is_wrong_is_pointed_at()
    local function wrong(text)
        local stop, at, expected = values.read(text, 1)
        check.assertNil(stop)
        return at .. " " .. expected
    end
    local letter = [[a printable character, \", \\, \xHH or a quote]]
    check.assertEquals(wrong "high", "1 a value")
    check.assertEquals(wrong "", "1 a value")
    check.assertEquals(wrong "-nil", "1 a value")
    check.assertEquals(wrong ".5", "1 a value")
    check.assertEquals(wrong '"abc', "5 " .. letter)
    check.assertEquals(wrong '"a\\x0g"', "3 " .. letter)
    check.assertEquals(wrong '"\t"', "2 " .. letter)
    check.assertEquals(wrong "{1  2}", "4 a number, a text or ?")
    check.assertEquals(wrong "{1,2}", "3 a blank or }")
    check.assertEquals(wrong "{{}}", "2 a number, a text or ?")
    check.assertEquals(wrong "{nil}", "2 a number, a text or ?")
    check.assertEquals(wrong "{1", "3 a blank or }")
    check.assertEquals(wrong "<table>", "1 <function>, <thread> or <userdata>")
end

kit.run()
