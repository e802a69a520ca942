-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The texts of help and of the reference, held against what they are about: the live tables, the
-- messages of the driver's functions, sorel.h, the sources of the modules.
local kit = require "kit"
local keys = require "sorel.internal.keys"
local constants = require "sorel.constants"
local reference = require "sorel.reference"
local check = kit.check

local HEADER = kit.content(kit.source "include/sorel.h")

-- The entries that a function takes, by name.
local function entries(wanted)
    local found = {}
    reference.each(function(entry, subject)
        if wanted(entry, subject) then
            check.assertNil(found[entry.name], entry.name .. " has two entries")
            found[entry.name] = entry
        end
    end)
    return found
end

local function modules()
    local found = {}
    for _, name in ipairs(reference.subjects()) do
        local module = reference.subject(name).module
        if module then found[name] = module end
    end
    return found
end

-- What sorel.h declares: { name = { result = TYPE, names = { ... }, types = { ... } } }, the
-- context left out, types as the messages of Lua write them.
local function declarations()
    local found = {}
    for result, name, parameters in HEADER:gmatch("SOREL_API ([%w_ ]+ %**)(radio%w+)%(([^)]*)%)") do
        local declared = { result = result:gsub("^const char", "char const"):gsub(" $", ""),
            names = {}, types = {} }
        for parameter in parameters:gmatch("[^,]+") do
            local type, parameter_name = parameter:match("^%s*(.-) ?([%w_]+)%s*$")
            if type ~= "RadioContext *" and type ~= "" then
                table.insert(declared.names, parameter_name)
                table.insert(declared.types, (type:gsub("^const char", "char const")))
            end
        end
        found[name] = declared
    end
    return found
end

local function is_driver_function(entry)
    return type(radio[entry.name]) == "function" and entry.name ~= "RadioHooks"
end

local DRIVER = entries(is_driver_function)

TestNames = {}

function TestNames.test_the_driver_s_functions_have_entries_and_nothing_else_of_its_name()
    local live = {}
    for name, value in pairs(radio) do
        if type(value) == "function" then live[name] = true end
    end
    live.radioOpen, live.radioClose = true, true
    check.assertEquals(keys.sorted(entries(function(entry)
        return reference.is_function(entry) and entry.name:find("^[rR]adio")
    end)), keys.sorted(live))
    check.assertEquals(#keys.sorted(DRIVER), 44)
end

function TestNames.test_every_constant_has_a_text_and_every_text_its_constant()
    for _, group in ipairs(constants.groups()) do
        local entry = entries(function(entry) return entry.name == group end)[group]
        local members = constants.members(group)
        table.sort(members)
        check.assertEquals(keys.sorted(entry.members), members)
        for name, text in pairs(entry.members) do check.assertStrContains(text, "%S", true, name) end
    end
    check.assertEquals(keys.sorted(entries(function(entry) return entry.members end)), (function()
        local groups = constants.groups()
        table.sort(groups)
        return groups
    end)())
end

function TestNames.test_every_global_of_the_shell_has_an_entry()
    local own = {}
    for name in ("assert collectgarbage coroutine debug dofile error gcinfo getfenv getmetatable "
        .. "io ipairs load loadfile loadstring math module newproxy next os package pairs pcall "
        .. "print rawequal rawget rawset require select setfenv setmetatable string table tonumber "
        .. "tostring type unpack xpcall _G _VERSION"):gmatch("%S+") do own[name] = true end
    local subjects = {}
    for _, name in ipairs(reference.subjects()) do subjects[name] = true end
    local all = entries(function() return true end)
    for name in pairs(_G) do
        local constant = name:find("^RADIO_") and radio[name] ~= nil
        local of_this_test = name:find("^Test")
        local known = own[name] or constant or of_this_test or all[name] or subjects[name]
        check.assertTrue(known and true, name .. " has no entry")
    end
end

-- The names in a table and, behind a dot, in the tables in it.
local function fields(value, prefix, into)
    for name, field in pairs(value) do
        into[prefix .. name] = true
        if type(field) == "table" then fields(field, prefix .. name .. ".", into) end
    end
    return into
end

function TestNames.test_bit_and_socket_have_an_entry_for_each_field_and_none_besides()
    for name, value in pairs { bit = bit, socket = socket } do
        check.assertEquals(keys.sorted(entries(function(entry)
            return entry.name:find("^" .. name .. "%.")
        end)), keys.sorted(fields(value, name .. ".", {})))
    end
end

function TestNames.test_sockets_have_an_entry_for_each_method_and_none_besides()
    for name, value in pairs { tcp = socket.tcp(), udp = socket.udp() } do
        local live = {}
        for field, it in pairs(getmetatable(value).__index) do
            live[name .. (type(it) == "function" and ":" or ".") .. field] = true
        end
        check.assertEquals(keys.sorted(entries(function(entry)
            return entry.name:find("^" .. name .. "[:.]")
        end)), keys.sorted(live))
    end
end

function TestNames.test_modules_have_an_entry_for_each_function_and_none_besides()
    for name, module in pairs(modules()) do
        local value = require(module)
        local live = {}
        if type(value) == "function" then
            live[name] = true
        else
            for field in pairs(value) do live[name .. "." .. field] = true end
        end
        check.assertEquals(keys.sorted(entries(function(entry, subject)
            return subject.module == module and not entry.members and not entry.name:find(":")
        end)), keys.sorted(live))
    end
end

TestArguments = {}

-- A call with one argument that no driver function takes, behind others that are right.
local function refusal(entry, place)
    local arguments = {}
    for position, argument in ipairs(entry.arguments) do
        -- nil is right where a pointer or a text is.
        if not argument.type:find("*", 1, true) then arguments[position] = 1 end
    end
    arguments[place] = entry.arguments[place].type == "table" and 1 or {}
    return kit.raised(_G[entry.name], unpack(arguments, 1, #entry.arguments))
end

function TestArguments.test_types_are_those_that_the_driver_s_functions_ask_for()
    for name, entry in pairs(DRIVER) do
        for place, argument in ipairs(entry.arguments or {}) do
            if not argument.unchecked then
                local expected = argument.type == "table" and "Data values must be a table"
                    or ("Error in %s (arg %d), expected '%s' got 'table'"):format(name, place,
                        argument.type)
                check.assertEquals((refusal(entry, place):gsub("'enum ", "'")), expected)
            end
        end
    end
end

function TestArguments.test_what_is_said_to_be_taken_whatever_it_is_is_taken()
    local unchecked = 0
    for _, entry in pairs(DRIVER) do
        for place, argument in ipairs(entry.arguments or {}) do
            if argument.unchecked then
                unchecked = unchecked + 1
                check.assertStrContains(refusal(entry, place), "did not return success")
            end
        end
    end
    check.assertEquals(unchecked, 1)
end

function TestArguments.test_there_are_as_many_as_the_driver_s_functions_ask_for()
    for name, entry in pairs(DRIVER) do
        local count = #(entry.arguments or {})
        local one_more = {}
        for place = 1, count + 1 do one_more[place] = 1 end
        check.assertEquals(kit.raised(_G[name], unpack(one_more)),
            ("Error in %s expected %d..%d args, got %d"):format(name, count, count, count + 1))
    end
end

function TestArguments.test_names_types_and_results_of_the_driver_s_functions_are_those_of_sorel_h()
    local declared = declarations()
    for name, entry in pairs(DRIVER) do
        local names, types = {}, {}
        for place, argument in ipairs(entry.arguments or {}) do
            names[place], types[place] = argument.name, argument.type
        end
        if types[1] == "table" then
            names, types = { names[1], "count" }, { "const uint32_t *", "uint32_t" }
        end
        check.assertEquals(names, declared[name].names, name)
        check.assertEquals(types, declared[name].types, name)
        local result = entry.results and entry.results[1].type or "RadioReturn"
        check.assertEquals(result, declared[name].result, name)
    end
end

-- The comment of sorel.h on a function.
local function comment(name)
    local before = HEADER:sub(1, HEADER:find(name .. "(RadioContext", 1, true) - 1)
    return before:match(".*(/%*.-%*/)"):gsub("%s*\n %*%s*", " ")
end

local UNITS = { Hz = "In hertz", dB = "In dB", ["0.1 dBm"] = "[Ii]n 0.1 dBm", dBm = "in dBm",
    ["degrees Celsius"] = "in degrees Celsius", bits = "in bits",
    ["steps of the transmit converter"] = "In steps of the transmit converter",
    ["steps of the DAC"] = "the DAC" }

function TestArguments.test_units_are_those_of_sorel_h()
    local units = 0
    for name, entry in pairs(DRIVER) do
        for _, items in ipairs { entry.arguments or {}, entry.results or {} } do
            for _, item in ipairs(items) do
                if item.unit then
                    units = units + 1
                    local said = comment(name):gsub(", in dB%.", ", In dB.")
                    check.assertStrContains(said, UNITS[item.unit], true, name)
                end
            end
        end
    end
    check.assertTrue(units > 10)
end

-- The statuses that the simulated board's table of them has for each function.
local function statuses()
    local found = {}
    local columns = { "RADIO_EINVAL", "RADIO_EERROR", "RADIO_ENOTSUP", "RADIO_EAGAIN" }
    for line in io.lines(kit.source "driver/README.md") do
        local name, cells = line:match("^| `(radio%w+)` |(.*)")
        if name then
            local place, of_function = 0, {}
            for cell in cells:gmatch("([^|]*)|") do
                place = place + 1
                -- No script can hand over a context, or none while a radio is open.
                cell = cell:gsub("^ context,? ", "")
                if columns[place] and cell:find("%S") then of_function[columns[place]] = true end
            end
            found[name] = of_function
        end
    end
    return found
end

function TestArguments.test_statuses_of_the_driver_s_functions_are_those_of_the_simulated_board()
    local expected = statuses()
    for name, entry in pairs(DRIVER) do
        local told = {}
        for _, message in ipairs(select(2, reference.errors(entry))) do
            told[message:match("^RADIO_E%u+")] = true
        end
        told.RADIO_EIO = nil
        if name == "radioSetDebugLevel" then expected[name] = {} end
        check.assertEquals(keys.sorted(told), keys.sorted(expected[name]), name)
    end
end

-- The parameters of a function of a module, as its source names them.
local function parameters(action)
    local info = debug.getinfo(action, "S")
    local line = 0
    for text in io.lines(info.source:sub(2)) do
        line = line + 1
        if line == info.linedefined then
            return (text:match("function[%s%w_.:]*%(([^)]*)%)"))
        end
    end
end

function TestArguments.test_names_are_those_in_the_sources_of_the_modules()
    for name, module in pairs(modules()) do
        local value = require(module)
        for _, entry in pairs(entries(function(entry, subject)
            return subject.module == module and reference.is_function(entry)
                and not entry.name:find(":")
        end)) do
            local action = type(value) == "function" and value
                or value[entry.name:sub(#name + 2)]
            local names = {}
            for place, argument in ipairs(entry.arguments or {}) do names[place] = argument.name end
            local in_source = parameters(action)
            if entry.name ~= "help" then
                check.assertEquals(table.concat(names, ", "), in_source, entry.name)
            end
        end
    end
end

TestTexts = {}

local TYPES = {}
for type in ("number string table function boolean userdata any uint32_t uint16_t int16_t int32_t "
    .. "float"):gmatch("%S+") do TYPES[type] = true end
for object in pairs(reference.objects()) do TYPES[object] = true end
for _, type in ipairs { "char const *", "char **", "char const **", "int32_t *const", "FILE *" } do
    TYPES[type] = true
end

local function check_items(items, where)
    for _, item in ipairs(items or {}) do
        local name = ("%s: %s"):format(where, tostring(item.name))
        check.assertStrMatches(item.name, "[%w_.]+", nil, nil, name)
        check.assertStrContains(item.text or "", "%S", true, name .. " has no text")
        for type in (item.type .. " or "):gmatch("(.-) or ") do
            local known = TYPES[type] or reference.group_of(type) or pcall(constants.members, type)
            check.assertTrue(known and true, name .. " has no type that is known: " .. type)
        end
        check_items(item.fields, name)
    end
end

function TestTexts.test_nothing_is_without_a_text()
    reference.each(function(entry)
        check.assertStrMatches(entry.text, "%S.*[.:]", nil, nil, entry.name)
        check_items(entry.arguments, entry.name)
        check_items(entry.results, entry.name)
        for _, message in ipairs(entry.errors or {}) do check.assertStrMatches(message, "%S.*") end
        if not entry.members then check.assertIsString(entry.example, entry.name) end
    end)
    for _, name in ipairs(reference.subjects()) do
        check.assertEquals(reference.subject(name).name, name)
        check.assertStrMatches(reference.subject(name).title, "%S.*[^.]")
    end
end

function TestTexts.test_lines_of_code_fit_on_a_terminal()
    reference.each(function(entry, subject)
        local code = (entry.example or "") .. "\n" .. (subject.prepare or "")
        for line in code:gmatch("[^\n]+") do
            check.assertTrue(#line <= 76, entry.name .. ": " .. line)
        end
    end)
end

function TestTexts.test_what_texts_call_help_with_is_there()
    local find = require "sorel.help.find"
    local asked = 0
    local function look(value)
        if type(value) == "string" then
            for name in value:gmatch('help "([^"]+)"') do
                asked = asked + 1
                local found = #find.named(name) > 0 or #find.mentioning(name) > 0
                check.assertTrue(name == "NAME" or found, name)
            end
            for module in value:gmatch("sorel%.%a+") do
                check.assertTrue(#find.named(module) > 0, module)
            end
        elseif type(value) == "table" then
            for _, part in pairs(value) do look(part) end
        end
    end
    for _, name in ipairs(reference.subjects()) do look(reference.subject(name)) end
    check.assertTrue(asked > 3)
end

-- The edges of a band in Hz, from its text.
local function edges(text, direction)
    local low, high = text:match(direction .. " ([%d.]+)%-([%d.]+)")
    return low and low * 1e6, high and high * 1e6
end

local function check_band(band, mode, text, transmit, receive)
    radioInit(RADIO_CONF_SISO, mode, band)
    for place, tune in ipairs { radioSetTxFrequency, radioSetRxFrequency } do
        local low, high = edges(text, place == 1 and transmit or receive)
        tune(low)
        tune(high)
        kit.raised(tune, low - 1)
        kit.raised(tune, high + 1)
    end
end

function TestTexts.test_the_frequencies_of_bands_are_those_that_can_be_tuned_to()
    radioSelectPlatform(RADIO_PLATFORM_DEFAULT)
    radioOpen()
    local bands = entries(function(entry) return entry.name == "RADIO_BAND" end).RADIO_BAND.members
    local paired, unpaired, without = 0, 0, 0
    for name, text in pairs(bands) do
        if text:find("TDD") then
            check_band(radio[name], RADIO_MODE_4GENODEB_TDD_5MHZ, text, "TDD,", "TDD,")
            unpaired = unpaired + 1
        elseif text:find("uplink") then
            local gsm = name:find("GSM")
            local mode = gsm and RADIO_MODE_2GUERX or RADIO_MODE_4GENODEB_FDD_5MHZ
            check_band(radio[name], mode, text, gsm and "uplink" or "downlink",
                gsm and "downlink" or "uplink")
            paired = paired + 1
        else
            kit.raised(radioInit, RADIO_CONF_SISO, RADIO_MODE_4GENODEB_FDD_5MHZ, radio[name])
            without = without + 1
        end
    end
    check.assertEquals({ paired, unpaired, without }, { 28, 11, 9 })
end

kit.run()
