-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Every example of help runs, and prints what it says that it prints.
local kit = require "kit"
local reference = require "sorel.reference"
local check = kit.check

require "sorel.help"

-- Where an example runs: the modules are there by their names, and what it prints is kept.
local function environment(printed)
    local own = {
        print = function(...)
            local words = {}
            for place = 1, select("#", ...) do words[place] = tostring((select(place, ...))) end
            printed[#printed + 1] = table.concat(words, " ")
        end,
    }
    for _, name in ipairs(reference.subjects()) do
        local module = reference.subject(name).module
        if module then own[name] = require(module) end
    end
    return setmetatable(own, { __index = _G })
end

local function compiled(code, where)
    return assert(loadstring(code, "=" .. where))
end

-- What an example says behind --> that its lines print, each once.
local function promised(example)
    local lines = {}
    for line in example:gmatch("%-%-> ([^\n]*)") do lines[#lines + 1] = line end
    return lines
end

-- Whether a transmitter of the simulated board is on.
local function transmits()
    return radioSpiRead(0x30) == 1 or radioSpiRead(0x31) == 1
end

-- Where an example of a subject runs, with what it stands on.
local function prepared(subject, printed)
    radioSelectPlatform(RADIO_PLATFORM_DEFAULT)
    kit.fresh_radio()
    local own = environment(printed)
    if subject.prepare then setfenv(compiled(subject.prepare, subject.name), own)() end
    return own
end

local function run(subject, entry)
    local printed = {}
    local own = prepared(subject, printed)
    setfenv(compiled(entry.example, entry.name), own)()
    local told = promised(entry.example)
    if #told > 0 then check.assertEquals(printed, told, entry.name) end
    check.assertFalse(transmits(), entry.name .. " leaves a transmitter on")
    return #told
end

TestExamples = {}

function TestExamples.test_every_example_runs_and_prints_what_it_says()
    local ran, lines = 0, 0
    -- help prints its pages with the global print.
    kit.printed(reference.each, function(entry, subject)
        if entry.example and not entry.unrun then
            lines = lines + run(subject, entry)
            ran = ran + 1
        end
    end)
    check.assertTrue(ran > 100 and lines > 25)
end

function TestExamples.test_the_objects_of_modules_have_the_methods_that_are_told_of_them()
    local found = 0
    reference.each(function(entry, subject)
        local object, method = entry.name:match("^([%w_]+):([%w_]+)$")
        if object and subject.module then
            check.assertIsFunction(prepared(subject, {})[object][method], entry.name)
            found = found + 1
        end
    end)
    check.assertTrue(found > 0)
end

function TestExamples.test_those_that_are_not_run_compile_and_say_why()
    local kept = {}
    reference.each(function(entry)
        if entry.unrun then
            compiled(entry.example, entry.name)
            check.assertStrMatches(entry.unrun, "%S.*")
            kept[#kept + 1] = entry.name
        end
    end)
    check.assertTrue(#kept <= 12, table.concat(kept, " "))
end

function TestExamples.test_an_example_uses_what_it_is_an_example_of()
    reference.each(function(entry)
        local name = entry.name:match("[%w_]+$")
        if entry.example then check.assertStrContains(entry.example, name, false, entry.name) end
    end)
end

kit.run()
