-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What the unit tests of the Lua modules are written with: LuaUnit, under the real shell on the
-- simulated board, whose trace shows what a module did to it.
--
--     local kit = require "kit"
--     local check = kit.check          -- LuaUnit
--     TestSomething = {}               -- globals named Test..., their functions test...
--     function TestSomething.test_an_outcome() check.assertEquals(1 + 1, 2) end
--     kit.run()

local kit = { check = require "luaunit" }

local trace = assert(os.getenv("SOREL_SIM_TRACE"), "SOREL_SIM_TRACE names no file")

local function lines()
    local found = {}
    for line in io.lines(trace) do
        found[#found + 1] = line:gsub("^%[[%d.]+%] ", "")
    end
    return found
end

--- Calls a function.
-- @return the driver calls that it led to, a list of lines of the trace without their times, such as
-- "radioReset() = RADIO_ESUCCESS"; and the function's results
function kit.calls(action, ...)
    local before = #lines()
    local results = { action(...) }
    local all = lines()
    return { unpack(all, before + 1) }, unpack(results)
end

--- What a function raises, whole; it is a failure of the test when nothing is raised.
function kit.raised(action, ...)
    local succeeded, message = pcall(action, ...)
    kit.check.assertFalse(succeeded, "nothing was raised")
    return message
end

--- Calls a function while a field of a table has another value, which it has no longer afterwards.
-- @return the function's results
-- @error the function's
function kit.with(owner, name, value, action, ...)
    local original = owner[name]
    owner[name] = value
    local results = { pcall(action, ...) }
    owner[name] = original
    if not results[1] then error(results[2], 0) end
    return unpack(results, 2, table.maxn(results))
end

--- What a function prints, a list of texts, one for each call of print with an only text.
function kit.printed(action, ...)
    local printed = {}
    kit.with(_G, "print", function(text) printed[#printed + 1] = text end, action, ...)
    return printed
end

--- The names of new globals and of those with another value than before, after calling a function.
function kit.globals_changed(action, ...)
    local before, changed = {}, {}
    for name, value in pairs(_G) do before[name] = value end
    action(...)
    for name, value in pairs(_G) do
        if before[name] ~= value then changed[#changed + 1] = tostring(name) end
    end
    for name in pairs(before) do
        if _G[name] == nil then changed[#changed + 1] = tostring(name) end
    end
    table.sort(changed)
    return changed
end

--- The bytes of a file.
function kit.content(path)
    local file = assert(io.open(path, "rb"))
    local text = file:read("*a")
    file:close()
    return text
end

--- The path of a file of the source tree.
function kit.source(path)
    return debug.getinfo(1, "S").source:match("^@(.*)tests/lua/unit/kit.lua$") .. path
end

--- A new file with these bytes; its path.
function kit.file(content)
    local path = os.tmpname()
    local file = assert(io.open(path, "wb"))
    file:write(content)
    file:close()
    return path
end

--- A radio in its first state, set up for LTE in band 7 with two antennas.
function kit.fresh_radio()
    radioOpen()
    radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)
end

--- Runs the tests of the file, prints what failed and ends the process: status 0 when at least one
-- ran and none failed.
function kit.run()
    local runner = kit.check.LuaUnit.new()
    runner:setOutputType("text")
    local failed = runner:runSuite()
    os.exit(failed == 0 and runner.result.runCount > 0 and 0 or 1)
end

return kit
