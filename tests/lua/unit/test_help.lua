-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local reference = require "sorel.reference"
local check = kit.check

local changed = kit.globals_changed(function() require "sorel.help" end)

-- The lines that help prints.
local function shown(...)
    return kit.printed(help, ...)
end

local function text(...)
    return table.concat(shown(...), "\n")
end

TestModule = {}

function TestModule.test_it_makes_the_global_help_and_no_other()
    check.assertEquals(changed, { "help" })
    check.assertIs(require "sorel.help", help)
end

function TestModule.test_asking_makes_no_globals_and_calls_no_driver()
    local calls = kit.calls(function()
        check.assertEquals(kit.globals_changed(function()
            shown()
            shown("rtwp")
            shown("radioSetTxGian")
            shown(radioInit)
        end), {})
    end)
    check.assertEquals(calls, {})
end

TestOverview = {}

function TestOverview.test_it_fits_on_a_terminal_and_names_every_subject_with_its_whole_title()
    local lines = shown()
    check.assertTrue(#lines <= 24, #lines)
    local all = table.concat(lines, "\n")
    for _, name in ipairs(reference.subjects()) do
        if name ~= "help" then
            check.assertStrMatches(all, ".*\n  " .. name .. " +"
                .. reference.subject(name).title:gsub("%p", "%%%0") .. ".*")
        end
    end
end

function TestOverview.test_it_says_how_to_begin_and_what_it_names_is_there()
    local asked = 0
    check.assertStrContains(shown()[1], 'help "first session"')
    for name in text():gmatch('help "([^"]+)"') do
        asked = asked + 1
        check.assertNotStrContains(text(name), "There is no help")
    end
    check.assertEquals(asked, 5)
end

TestPages = {}

function TestPages.test_every_page_fits_on_a_terminal()
    local function check_width(lines, name)
        for _, line in ipairs(lines) do
            check.assertTrue(#line <= 80, name .. ": " .. line)
            check.assertNil(line:find("[\t\n] *$"), name .. ": " .. line)
        end
    end
    for _, name in ipairs(reference.subjects()) do check_width(shown(name), name) end
    reference.each(function(entry)
        check_width(shown(entry.name), entry.name)
        for member in pairs(entry.members or {}) do check_width(shown(member), member) end
    end)
    for _, word in ipairs { "radio", "table", "e" } do check_width(shown(word), word) end
end

function TestPages.test_a_function_has_its_call_arguments_units_errors_and_an_example()
    check.assertEquals(shown("radioSetTxMaxPower"), {
        "radioSetTxMaxPower(power)",
        "  Limits the output power of the selected paths.",
        "",
        "  Arguments",
        "    power  int16_t, 0.1 dBm: the highest, within the platform's range: 200 is 20",
        "           dBm",
        "",
        '  "radioSetTxMaxPower() did not return success" stands for',
        "    RADIO_EINVAL: a power beyond the platform's range or below the lowest of the",
        "    loaded table",
        "    RADIO_EERROR: before radioInit",
        "    RADIO_ENOTSUP: the second path, which the platform or the configuration",
        "    lacks",
        "",
        "  Example",
        "    radioSetTxMaxPower(-100)  -- -10 dBm",
    })
end

function TestPages.test_a_function_with_results_and_optional_arguments_has_them()
    check.assertEquals(shown("bit.tohex"), {
        "bit.tohex(value[, digits])",
        "  A number in hexadecimal.",
        "",
        "  Arguments",
        "    value   number: any number; only its lowest 32 bits count",
        "    digits  number, default 8: how many of the lowest digits; negative: in",
        "            capital letters",
        "",
        "  Results",
        "    text  string: without 0x",
        "",
        "  Errors",
        "    an argument that is no number",
        "",
        "  Example",
        "    print(bit.tohex(-1), bit.tohex(171, -2))  --> ffffffff AB",
    })
end

function TestPages.test_a_group_has_its_members_with_their_values()
    check.assertEquals(shown("RADIO_SELECT"), {
        "RADIO_SELECT",
        "  Paths of the front end: a path is a transmit and a receive antenna with what",
        "  lies behind them.",
        "",
        "  Members",
        "  RADIO_SELECT_0    0  path 0: the first antennas",
        "  RADIO_SELECT_1    1  path 1: the second antennas",
        "  RADIO_SELECT_ALL  2  both",
    })
end

function TestPages.test_values_are_those_of_the_radio_at_the_time()
    local before = radio.RADIO_SELECT_ALL
    radio.RADIO_SELECT_ALL = 3
    check.assertStrContains(text("RADIO_SELECT_ALL"), "RADIO_SELECT_ALL = 3\n")
    check.assertStrContains(text("RADIO_SELECT"), "RADIO_SELECT_ALL  3  both")
    radio.RADIO_SELECT_ALL = before
end

function TestPages.test_a_member_names_its_group_and_type()
    check.assertEquals(shown("RADIO_BAND_7"), {
        "RADIO_BAND_7 = 7",
        "  uplink 2500-2570, downlink 2620-2690 MHz",
        '  of RADIO_BAND, of type RadioBand: help "RADIO_BAND"',
    })
end

function TestPages.test_a_module_says_how_to_have_it_and_what_is_in_it()
    check.assertEquals(shown("transmitter"), {
        "transmitter: the transmitter switched off, whatever has gone wrong before",
        '  transmitter = require "sorel.transmitter"',
        "",
        '  help "NAME" tells more of',
        "  transmitter.off      Switches the transmitters of all paths off, which are ...",
        "  transmitter.guarded  Calls a function",
    })
end

TestAsking = {}

function TestAsking.test_a_name_is_found_in_either_case_and_by_the_type_or_module()
    check.assertEquals(text("RADIOSETTXGAIN"):match("^[^\n]*"),
        'There is no help for "RADIOSETTXGAIN"; did you mean radioSetRxGain?')
    check.assertEquals(text("radiosetrxgain"), text("radioSetRxGain"))
    check.assertEquals(text("radio_band_7"), text("RADIO_BAND_7"))
    check.assertEquals(text("RadioBand"), text("RADIO_BAND"))
    check.assertEquals(text("sorel.transmitter"), text("transmitter"))
end

function TestAsking.test_a_function_a_table_and_a_module_are_found_by_themselves()
    local transmitter = require "sorel.transmitter"
    for name, value in pairs {
        radioSetRxGain = radioSetRxGain, radioOpen = radioOpen, radio = radio, bit = bit,
        socket = socket, transmitter = transmitter, help = help, ["bit.band"] = bit.band,
        ["transmitter.off"] = transmitter.off, ["socket.dns"] = socket.dns,
    } do
        check.assertEquals(text(value), text(name), name)
    end
end

function TestAsking.test_a_function_that_a_script_has_put_in_place_of_another_is_found_by_its_name()
    local function replaced() end
    check.assertEquals(kit.with(_G, "radioInit", replaced, text, replaced), text("radioInit"))
end

function TestAsking.test_a_word_finds_whatever_mentions_it_names_first()
    local lines = shown("rtwp")
    check.assertEquals(lines[1], '"rtwp" is mentioned by; help "NAME" tells more')
    local names = {}
    for place = 2, #lines do names[place - 1] = lines[place]:match("%S+") end
    check.assertEquals({ unpack(names, 1, 4) }, { "radioGetRxRtwp", "radioGetRxRtwpIndBm",
        "radioGetRxRtwpOfAntenna", "radioGetRxRtwpOfAntennaIndBm" })
    check.assertStrContains(table.concat(names, " "), "readings")
end

function TestAsking.test_several_words_find_what_mentions_them_all()
    check.assertStrContains(text("leakage power DC"), "There is no help")
    local lines = shown("dc leakage")
    check.assertEquals({ lines[2]:match("%S+"), lines[3] }, { "radioSetTxDcOffset" })
end

function TestAsking.test_a_misspelt_name_suggests_the_nearest()
    check.assertEquals(shown("radioSetTxFrequenzy"),
        { 'There is no help for "radioSetTxFrequenzy"; did you mean radioSetTxFrequency?' })
    check.assertEquals(shown("RADIO_BND_7"),
        { 'There is no help for "RADIO_BND_7"; did you mean RADIO_BAND_7?' })
    check.assertEquals(shown("bit.tohexx"),
        { 'There is no help for "bit.tohexx"; did you mean bit.tohex?' })
end

function TestAsking.test_a_misspelt_word_suggests_the_nearest_that_is_said()
    check.assertEquals(shown("rtpw"), { 'There is no help for "rtpw"; did you mean rtwp?' })
    check.assertEquals(shown("Ocillator"),
        { 'There is no help for "Ocillator"; did you mean oscillator?' })
end

function TestAsking.test_what_is_like_nothing_leads_to_the_overview()
    check.assertEquals(shown("xyzzyxyzzy"),
        { 'There is no help for "xyzzyxyzzy". The word help alone is an overview.' })
    check.assertEquals(shown(""),
        { 'There is no help for "". The word help alone is an overview.' })
end

function TestAsking.test_what_is_lua_s_own_is_called_so()
    check.assertEquals(shown("string.rep"),
        { 'There is no help for "string.rep": it is Lua\'s own, or a script\'s.' })
    check.assertEquals(shown(string.rep),
        { "There is no help for this function. Ask by a name, in quotes." })
end

function TestAsking.test_nil_is_taken_for_a_misspelt_global()
    check.assertEquals(shown(nil),
        { "help was given nil, as a misspelt global is. Ask by the name in quotes." })
end

function TestAsking.test_patterns_of_lua_are_plain_text()
    check.assertStrContains(text("%"), "There is no help")
    check.assertStrContains(text("[, "), "There is no help")
end

kit.run()
