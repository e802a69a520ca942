-- SPDX-License-Identifier: LicenseRef-Proprietary
--- One step of a test: called, and its result judged.

local text = require "sorel.internal.text"
local transmitter = require "sorel.transmitter"

local steps = {}

local now = socket.gettime

-- What the driver's readings give when they fail: INT32_MIN and UINT32_MAX.
local FAILED_READINGS = { [-2147483648] = true, [4294967295] = true }

local function shown(value)
    if type(value) == "string" then return '"' .. text.printable(value) .. '"' end
    if type(value) == "number" then return text.number(value) end
    if value == nil or type(value) == "boolean" then return tostring(value) end
    return "a " .. type(value)
end

-- Two numbers, with as many digits as it takes to tell them apart.
local function apart(one, relation, other)
    local first, second = shown(one), shown(other)
    if first == second then first, second = ("%.17g"):format(one), ("%.17g"):format(other) end
    return ("%s is %s %s"):format(first, relation, second)
end

local function within(step, value)
    if value ~= value then return "fail", "not a number: the reading has failed" end
    if FAILED_READINGS[value] then
        return "fail", text.number(value) .. ": the reading has failed"
    end
    if value == math.huge or value == -math.huge then return "fail", "the reading is infinite" end
    if step.low and value < step.low then return "fail", apart(value, "below", step.low) end
    if step.high and value > step.high then return "fail", apart(value, "above", step.high) end
    return "pass"
end

local function as_expected(step, value)
    if value == step.expected then return "pass" end
    if type(value) == "number" then return "fail", apart(value, "not", step.expected) end
    return "fail", ("%s is not %s"):format(shown(value), shown(step.expected))
end

local article = { number = "a number", string = "a text", boolean = "true or false" }

-- @return the result, and a message or nil
local function judge(step, value, note)
    local function returned(wanted)
        local with = value == nil and note and " (" .. note .. ")" or ""
        return "error", (step.check and "check" or "measure") .. " returned " .. shown(value)
            .. with .. "; " .. article[wanted] .. " is expected"
    end
    if step.check then
        if type(value) ~= "boolean" then return returned("boolean") end
        return value and "pass" or "fail", note
    end
    local wanted = step.expected ~= nil and type(step.expected) or "number"
    if type(value) ~= wanted then return returned(wanted) end
    local verdict = step.expected ~= nil and as_expected or within
    local result, message = verdict(step, value)
    if message and note then message = message .. "; " .. note end
    return result, message or note
end

-- From where the error was raised to the step's function.
local function traceback()
    local trace = debug.traceback("", 3)
    return trace:match("^\n(.-)\n%s*%[C%]: in function 'xpcall'\n[^\n]*limits/steps%.lua:") or trace
end

--- Calls a function.
-- @return a table: seconds; and after an error, when the transmitters have been switched off,
-- result "error", message and trace, where it came from; else value and note, its first result, and
-- its second where that is a text
function steps.call(action)
    local trace
    local begun = now()
    local succeeded, value, note = xpcall(action, function(raised)
        trace = traceback()
        return raised
    end)
    local outcome = { seconds = math.max(0, now() - begun) }
    if succeeded then
        outcome.value, outcome.note = value, type(note) == "string" and note ~= "" and note or nil
    else
        steps.fail(outcome, text.of_error(value))
        outcome.trace = trace
    end
    return outcome
end

--- Makes an outcome an error and switches the transmitters off.
function steps.fail(outcome, message)
    local off, refusal = transmitter.off()
    outcome.result, outcome.value = "error", nil
    if not off then
        message = message .. "; the transmitter may still be on: " .. text.of_error(refusal)
    end
    outcome.message = message
end

--- Runs a step.
-- @return a table with the step's name, low, high, expected and unit; its result, value, seconds
-- and message; and after an error that was raised trace
function steps.run(step)
    local outcome = steps.call(step.measure or step.check)
    if not outcome.result then
        local result, message = judge(step, outcome.value, outcome.note)
        if result == "error" then
            steps.fail(outcome, message)
        else
            outcome.result, outcome.message = result, message
        end
    end
    outcome.note = nil
    return steps.row(step, outcome)
end

--- An outcome with what its step says of itself.
function steps.row(step, outcome)
    for _, key in ipairs { "name", "low", "high", "expected", "unit" } do
        outcome[key] = step[key]
    end
    return outcome
end

return steps
