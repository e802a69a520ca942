-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The definitions for the Lua language server, loaded as Lua: they define what is there, no more
-- and no less.
local kit = require "kit"
local keys = require "sorel.internal.keys"
local reference = require "sorel.reference"
local check = kit.check

require "sorel.help"

local LIBRARY = kit.source "packaging/editor/library/"

local function path_of(module)
    return LIBRARY .. module:gsub("%.", "/") .. ".lua"
end

-- The globals that the definitions of the globals make.
local function defined()
    local own = {}
    setfenv(assert(loadfile(LIBRARY .. "sorelapp.lua")), own)()
    return own
end

-- What two tables, and the tables in them, have: the same names, types and constants.
local function check_same(given, live, where)
    check.assertEquals(keys.sorted(given), keys.sorted(live), where)
    for name, value in pairs(live) do
        check.assertEquals(type(given[name]), type(value), where .. "." .. name)
        if type(value) == "table" then check_same(given[name], value, where .. "." .. name) end
        if tostring(name):find("^RADIO_") then check.assertEquals(given[name], value, name) end
    end
end

TestDefinitions = {}

function TestDefinitions.test_the_globals_are_those_of_the_shell()
    local live = { help = help, bit = bit, socket = socket, radio = radio,
        radioNative = radioNative, radioInternal = radioInternal, radioOpen = radioOpen,
        radioClose = radioClose, swig_type = swig_type, swig_equals = swig_equals }
    for name, value in pairs(radio) do live[name] = value end
    for name, value in pairs(live) do check.assertIs(_G[name], value) end
    check_same(defined(), live, "_G")
end

function TestDefinitions.test_modules_return_what_they_have()
    local own = setmetatable({}, { __index = defined() })
    local modules = 0
    for _, name in ipairs(reference.subjects()) do
        local module = reference.subject(name).module
        if module then
            modules = modules + 1
            local chunk = assert(loadfile(path_of(module)))
            local given, live = setfenv(chunk, own)(), require(module)
            check.assertEquals(type(given), type(live))
            if type(live) == "table" then check_same(given, live, module) end
        end
    end
    check.assertTrue(modules >= 3)
    check.assertNil(next(own), "a module's definitions make globals")
end

-- The annotations of the files: words that the server knows, types that are declared.
local KNOWN = { class = true, field = true, param = true, ["return"] = true, type = true,
    alias = true, meta = true }
local BUILT_IN = {}
for name in ("any boolean function integer nil number string table userdata"):gmatch("%a+") do
    BUILT_IN[name] = true
end

local function files()
    local found = { kit.content(LIBRARY .. "sorelapp.lua") }
    for _, name in ipairs(reference.subjects()) do
        local module = reference.subject(name).module
        if module then
            found[#found + 1] = kit.content(path_of(module))
        end
    end
    return found
end

-- The type that an annotation gives to something.
local function type_in(annotation, words)
    if annotation == "type" or annotation == "return" then return words:match("^%S+") end
    return (annotation == "param" or annotation == "field") and words:match("^%S+ (%S+)") or ""
end

function TestDefinitions.test_annotations_are_known_and_their_types_declared()
    local declared, used = {}, {}
    for _, content in ipairs(files()) do
        check.assertStrMatches(content, "%-%-%-@meta .*")
        for annotation, words in content:gmatch("%-%-%-@(%a+) ?([^\n]*)") do
            check.assertTrue(KNOWN[annotation] or false, annotation)
            if annotation == "class" or annotation == "alias" then
                declared[words:match("^[%w_.]+")] = true
            end
            for name in type_in(annotation, words):gmatch("[%w_.]+") do used[name] = true end
        end
    end
    for name in pairs(used) do
        check.assertTrue(declared[name] or BUILT_IN[name] or false, name .. " is not declared")
    end
    check.assertTrue(used.RadioBand and used["sorel.tcp"])
end

function TestDefinitions.test_each_parameter_is_annotated_in_its_place()
    local functions = 0
    for _, content in ipairs(files()) do
        local annotated = {}
        for line in content:gmatch("[^\n]+") do
            local name = line:match("^%-%-%-@param ([%w_.]+)")
            if name then annotated[#annotated + 1] = name end
            local parameters = line:match("^function [%w_.:]+%((.*)%) end$")
            if parameters then
                functions = functions + 1
                check.assertEquals(table.concat(annotated, ", "), parameters)
                annotated = {}
            end
        end
        check.assertEquals(annotated, {})
    end
    check.assertTrue(functions > 100)
end

kit.run()
