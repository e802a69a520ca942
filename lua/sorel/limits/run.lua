-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The course of a test, from the first step to the last line of its report.

local ending = require "sorel.internal.ending"
local files = require "sorel.limits.files"
local report = require "sorel.limits.report"
local steps = require "sorel.limits.steps"
local text = require "sorel.internal.text"
local transmitter = require "sorel.transmitter"

local now = socket.gettime

local function count(rows, result)
    local number = 0
    for _, row in ipairs(rows) do
        if row.result == result then number = number + 1 end
    end
    return number
end

-- Runs the steps between set-up and clean-up, with what becomes of each.
local function run_all(test, add)
    -- What surrounds the steps is one itself only when it fails.
    local function surround(name, action)
        local outcome = action and steps.call(action)
        if not outcome or outcome.result ~= "error" then return true end
        add(steps.row({ name = name }, outcome))
        return false
    end
    local reason = not surround("set-up", test.setup) and "not run after the error of the set-up"
    for _, step in ipairs(test.steps) do
        if reason then
            add(steps.row(step, { result = "skip", seconds = 0, message = reason }))
        else
            local row = steps.run(step)
            add(row)
            if step.critical and row.result ~= "pass" then
                reason = ("not run after %s, which is critical"):format(step.name)
            end
        end
    end
    surround("clean-up", test.cleanup)
    local off, refusal = transmitter.off()
    if not off then
        add { name = "transmitter off", result = "error", seconds = 0,
            message = "the transmitter may still be on: " .. text.of_error(refusal) }
    end
end

--- Runs a test.
-- @param test as limits/definition.lua gives it
-- @return what limits.run returns
return function(test)
    local begun, unwritten = files.begin(test)
    local result = { name = test.name, serial = test.serial, steps = {}, unwritten = unwritten,
        begun = os.date("!%Y-%m-%dT%H:%M:%S") }
    local lines = report.begin(test)
    local start = now()
    run_all(test, function(row)
        result.steps[#result.steps + 1] = row
        lines:row(row)
    end)
    result.seconds = math.max(0, now() - start)
    result.failed = count(result.steps, "fail")
    result.errors = count(result.steps, "error")
    result.skipped = count(result.steps, "skip")
    files.write(begun, result, unwritten)
    local all = count(result.steps, "pass") == #result.steps
    result.passed = all and #unwritten == 0 and not lines.failure
    lines:summary(result)
    if lines.failure then
        ending.say(lines.failure)
        result.passed = false
    end
    return result.passed, result
end
