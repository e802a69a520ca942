-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local keys = require "sorel.internal.keys"
local nearest = require "sorel.internal.nearest"
local output = require "sorel.internal.output"
local text = require "sorel.internal.text"
local check = kit.check

TestNearest = {}

function TestNearest.test_a_misspelt_name_stands_for_the_nearest()
    check.assertEquals(nearest.name({ "average", "settle" }, "Avrage"), "average")
    check.assertEquals(nearest.name({ "RADIO_BAND_7", "RADIO_BAND_38" }, "38", "RADIO_BAND_"), "RADIO_BAND_38")
end

function TestNearest.test_what_names_begin_with_may_lack_its_first_words()
    local names = { "RADIO_CPRI_RATE_1", "RADIO_CPRI_RATE_10" }
    for _, given in ipairs { "CPRI_RATE_10", "rate_10", "10", "RADIO_CPRI_RATE10" } do
        check.assertEquals(nearest.name(names, given, "RADIO_CPRI_RATE_"), "RADIO_CPRI_RATE_10")
    end
end

function TestNearest.test_what_is_like_none_of_them_stands_for_none()
    check.assertNil(nearest.name({ "average", "settle" }, "frequency"))
    check.assertNil(nearest.name({}, "average"))
end

TestKeys = {}

function TestKeys.test_keys_of_any_type_are_in_the_order_of_their_texts()
    check.assertEquals(keys.sorted { b = 1, [true] = 1, a = 1, [7] = 1, [10] = 1 },
        { 10, 7, "a", "b", true })
    check.assertEquals(keys.sorted {}, {})
end

TestColumns = {}

function TestColumns.test_columns_are_aligned_and_lines_end_without_blanks()
    check.assertEquals(
        text.columns({ { "name", "low", "unit" }, { "power", 7 }, { "n", -12.5, "dB" } }, "lr"),
        { "name     low  unit", "power      7", "n      -12.5  dB" })
end

TestWrap = {}

function TestWrap.test_lines_have_the_width_and_a_longer_word_has_its_own()
    check.assertEquals(text.wrap("one two three, extraordinary", 9, " "),
        { " one two", " three,", " extraordinary" })
    check.assertEquals(text.wrap("", 9), {})
end

TestFold = {}

function TestFold.test_a_longer_word_is_broken_between_characters()
    check.assertEquals(text.fold("a longword \195\188\195\188\195\188\195\188", 5, "  "),
        { "  a", "  lon", "  gwo", "  rd", "  \195\188\195\188\195\188", "  \195\188" })
end

TestWidth = {}

function TestWidth.test_characters_count_not_bytes()
    check.assertEquals(text.width("\194\176C"), 2)
    check.assertEquals(text.columns({ { "\194\176C", 1 }, { "dBm", 2 } }),
        { "\194\176C   1", "dBm  2" })
end

TestPrintable = {}

function TestPrintable.test_what_cannot_be_shown_is_escaped()
    check.assertEquals(text.printable("a\27[2Jb\tc\r\n\0\127"), "a\\x1b[2Jb\\tc\\r\\n\\x00\\x7f")
    check.assertEquals(text.printable("a\tb\r\n", true), "a\tb\\r\n")
end

function TestPrintable.test_characters_of_utf_8_stay_and_other_bytes_are_escaped()
    for _, character in ipairs {
        "\194\160", "\223\191", "\224\160\128", "\237\159\191", "\238\128\128", "\239\191\189",
        "\240\144\128\128", "\244\143\191\191",
    } do
        check.assertEquals(text.printable("<" .. character .. ">"), "<" .. character .. ">")
    end
    for bytes, shown in pairs {
        ["\128"] = "\\x80", ["\194"] = "\\xc2", ["\192\175"] = "\\xc0\\xaf", ["\255"] = "\\xff",
        ["\194\155"] = "\\xc2\\x9b", ["\224\159\191"] = "\\xe0\\x9f\\xbf",
        ["\237\160\128"] = "\\xed\\xa0\\x80", ["\239\191\190"] = "\\xef\\xbf\\xbe",
        ["\240\143\191\191"] = "\\xf0\\x8f\\xbf\\xbf",
        ["\244\144\128\128"] = "\\xf4\\x90\\x80\\x80",
    } do
        check.assertEquals(text.printable("<" .. bytes .. ">"), "<" .. shown .. ">")
    end
end

TestLines = {}

function TestLines.test_a_text_is_taken_apart_at_line_breaks()
    check.assertEquals(text.lines("one\n\nthree"), { "one", "", "three" })
    check.assertEquals(text.lines(""), { "" })
end

TestNumber = {}

function TestNumber.test_numbers_are_the_same_on_every_machine()
    check.assertEquals(text.number(2655000000), "2655000000")
    check.assertEquals(text.number(-92.34375), "-92.34375")
    check.assertEquals({ text.number(0 / 0), text.number(-(0 / 0)) }, { "nan", "nan" })
end

TestCsv = {}

function TestCsv.test_what_would_be_misread_is_quoted()
    check.assertEquals(output.csv { "a", 'say "b"', "c,d", "e\nf", " g", 2655000000, true },
        'a,"say ""b""","c,d","e\nf"," g",2655000000,true\r\n')
end

function TestCsv.test_nil_is_empty()
    check.assertEquals(output.csv({ nil, 2, nil }, 3), ",2,\r\n")
end

TestOutput = {}

function TestOutput.test_a_file_holds_what_was_written()
    local path = os.tmpname()
    local file = output.open(path)
    file:write("one\r\n")
    file:write("two")
    file:close()
    file:close()
    check.assertEquals(kit.content(path), "one\r\ntwo")
    os.remove(path)
end

function TestOutput.test_what_is_flushed_can_be_read()
    local path = os.tmpname()
    local file = output.open(path)
    file:write("one")
    check.assertEquals(kit.content(path), "")
    file:flush()
    check.assertEquals(kit.content(path), "one")
    file:close()
    os.remove(path)
end

function TestOutput.test_a_full_disk_shows_when_flushed()
    local file = output.open("/dev/full")
    file:write("lost")
    check.assertEquals(kit.raised(file.flush, file), "cannot write /dev/full: No space left on device")
end

function TestOutput.test_a_whole_file_is_closed_whatever_is_raised()
    local path, reason, file = os.tmpname(), {}, nil
    output.whole(path, function(given) given:write("one") end)
    check.assertEquals(kit.content(path), "one")
    check.assertIs(kit.raised(output.whole, path, function(given)
        file = given
        given:write("two")
        error(reason, 0)
    end), reason)
    check.assertEquals(kit.content(path), "two")
    check.assertNil(file.file)
    os.remove(path)
end

function TestOutput.test_a_file_that_cannot_be_made_is_named()
    check.assertEquals(kit.raised(output.open, "/nowhere/rows.csv"),
        "cannot write /nowhere/rows.csv: No such file or directory")
end

function TestOutput.test_a_full_disk_is_an_error()
    local file = output.open("/dev/full")
    file:write("lost")
    check.assertEquals(kit.raised(file.close, file), "cannot write /dev/full: No space left on device")
end

kit.run()
