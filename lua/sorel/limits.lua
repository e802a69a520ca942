-- SPDX-License-Identifier: LicenseRef-Proprietary
--- A production test: named steps with limits, run in their order, with a report for people, and
-- JUnit XML and CSV for machines.
--
--     local limits = require "sorel.limits"
--     limits.main(function()
--         return limits.run {
--             name = "front end", serial = "0042", junit = "result.xml", csv = "result.csv",
--             steps = {
--                 { name = "temperature", measure = radioGetTemperature, low = 0, high = 60 },
--                 { name = "platform", measure = radioGetPlatformName, expected = "Talwin" },
--                 { name = "self-test", check = function() return radioSpiRead(0x23) == 3 end },
--             },
--         }
--     end)
--
-- When limits.run, limits.exit or limits.main returns, raises an error or ends the process, the
-- transmitter is off; not so when a step does, by os.exit. Only limits.main, around the whole
-- script, keeps that promise for errors outside limits.run.

local check = require "sorel.internal.check"
local definition = require "sorel.limits.definition"
local ending = require "sorel.internal.ending"
local run = require "sorel.limits.run"
local text = require "sorel.internal.text"
local transmitter = require "sorel.transmitter"

local limits = {}

local function what(value)
    return value == nil and "nil" or "a " .. type(value)
end

-- Raises for the caller of the module's function, with the transmitter off.
local function refuse(name, mistakes)
    local off, refusal = transmitter.off()
    if not off then
        mistakes[#mistakes + 1] = "the transmitter may still be on: " .. tostring(refusal)
    end
    check.raise(name, mistakes, 3)
end

--- Runs the steps in their order and writes the report to standard output, a line as each ends. A
-- step that fails or raises an error does not stop the others; after an error the transmitters of
-- all paths go off at once, and they are off at the end in any case.
--
-- A step gives a reading or a verdict:
--
--     { name = "temperature", measure = function, low = 0, high = 60, unit = "degC" }
--     { name = "platform", measure = function, expected = "Talwin" }
--     { name = "self-test", check = function }
--
-- With low, high or both, `measure` returns a number, which passes from low to high, both included;
-- never do not-a-number, an infinity, and what a failed reading of the driver gives, -2147483648
-- and 4294967295. With `expected`, a text or a number, it returns just that. `check` returns true
-- or false. A second result that is a text is the step's message. All else is an error of the step.
-- @param test a table:
--   name      of the test
--   serial    of the board, a text; or nil
--   steps     the list of steps; their names differ. With critical = true in a step, those after it
--             are skipped unless it passes
--   setup     called before the steps; or nil. Where it raises an error, all steps are skipped
--   cleanup   called after the steps, whatever has happened; or nil
--   junit     file for JUnit XML; or nil
--   csv       file for comma-separated values; or nil. Both are begun afresh before the steps
-- @return whether all steps passed and all output was written; and a table:
--   name, serial, passed, seconds
--   failed, errors, skipped    numbers of steps
--   unwritten                  a list of the files that could not be written
--   steps                      a list of tables: name, result ("pass", "fail", "error" or "skip"),
--                              value, low, high, expected, unit, seconds, message, and trace after
--                              an error that was raised. A set-up or clean-up that raised one, and
--                              a transmitter that could not be switched off, are steps there
-- @error a table that is not as it should be: every mistake, by step and key; no step was run then
function limits.run(test)
    local checked, mistakes = definition.read(test)
    if #mistakes > 0 then refuse("limits.run", mistakes) end
    return transmitter.guarded(run, checked)
end

--- Ends the process, also at the prompt: transmitter off, radio closed, output written. The status
-- is 0 where all steps passed, else 1; also 1, with a line on standard error, where the transmitter
-- cannot be switched off or standard output cannot be written.
-- @param result what limits.run returned, true or false
-- @error something else, with the transmitter off
function limits.exit(result)
    if type(result) ~= "boolean" then
        refuse("limits.exit", { "the result of limits.run, true or false, is expected, got "
            .. what(result) })
    end
    ending.leave(result and 0 or 1)
end

--- Runs a whole script and ends the process as limits.exit does. What the script raises is said on
-- standard error, and the status is 1; where it is a refusal of params.read, 64.
-- @param script a function that returns what limits.run returned
-- @error something else than a function, with the transmitter off
function limits.main(script)
    if type(script) ~= "function" then
        refuse("limits.main", { "a function is expected, got " .. what(script) })
    end
    local succeeded, result = ending.guarded(script)
    if not succeeded then
        ending.say(text.of_error(result))
    elseif type(result) ~= "boolean" then
        ending.say("limits.main: the function is to return the result of limits.run, true or "
            .. "false; it returned " .. what(result))
    end
    ending.leave(succeeded and result == true and 0 or 1)
end

return limits
