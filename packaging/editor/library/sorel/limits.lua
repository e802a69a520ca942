---@meta sorel.limits
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

---A production test: steps, limits, a report, JUnit XML, CSV. When limits.run, limits.exit or
---limits.main returns, raises an error or ends the process, the transmitter is off; not so when a
---step does, by os.exit. After an error elsewhere in a script the shell ends with the radio as it
---is, unless limits.main is around the whole script. A script that ends without limits.main and
---limits.exit has the status 0 also where steps failed.
local limits = {}

---@class sorel.limits.run.test.steps
---@field name string another one for each step
---@field measure? function returns the reading, and the step's message or nothing
---@field low? number the least reading that passes
---@field high? number the greatest reading that passes. Not-a-number, infinities and what the driver's failed readings give, -2147483648 and 4294967295, never pass by low and high
---@field expected? any in place of low and high, the one reading that passes: a text or a number
---@field unit? string of the reading
---@field check? function in place of measure and limits: returns true or false, and the step's message or nothing
---@field critical? boolean default false; true: unless it passes, the steps after it are skipped

---@class sorel.limits.run.test
---@field name string of the test
---@field serial? string serial number of the board
---@field steps sorel.limits.run.test.steps[] the list of steps; each is a table
---@field setup? function called before the steps, which are skipped where it raises an error
---@field cleanup? function called after the steps, whatever has happened
---@field junit? string file for JUnit XML; begun afresh before the first step
---@field csv? string file for the columns step, result, value, low, high, unit, seconds, message; begun afresh before the first step

---Runs the steps in their order and writes a report to standard output, a line as each ends. A step
---that fails or raises an error does not stop the others. After an error the transmitters of all
---paths go off at once, and all paths are then selected: a step that needs its transmitter switches
---it on itself.
---
---Errors:
---* a table that is not as it should be: every mistake, by the step's number, name and key; no step has run then
---
---```lua
---steps = {}
---steps[1] = { name = "heat", measure = radioGetTemperature, high = 60 }
---steps[2] = { name = "id", measure = radioGetPlatformName,
---    expected = "simulated board" }
---passed = limits.run { name = "board", steps = steps }
---```
---@param test sorel.limits.run.test the test
---@return boolean passed whether all steps passed and all output was written
---@return table details name, serial, passed, seconds; failed, errors and skipped, numbers of steps; unwritten, a list of files; and steps, a list of tables: name, result (pass, fail, error or skip), value, low, high, expected, unit, seconds, message, and trace after an error that was raised
function limits.run(test) end

---Ends the process, also at the prompt: transmitter off, radio closed, output written. The status
---is 0 for true and 1 for false; and 1, with a line on standard error, where the transmitter cannot
---be switched off or standard output cannot be written.
---
---Errors:
---* a result that is neither true nor false, with the transmitter off
---
---```lua
---limits.exit(limits.run(test))
---```
---@param result boolean whether all steps passed and all output was written
function limits.exit(result) end

---Calls a whole script and ends the process as limits.exit does. What the script raises is said on
---standard error, and the status is 1; 64 where params.read refuses the environment.
---
---Errors:
---* something else than a function, with the transmitter off
---
---```lua
---limits.main(function() return limits.run(test) end)
---```
---@param script function returns what limits.run returned
function limits.main(script) end

return limits
