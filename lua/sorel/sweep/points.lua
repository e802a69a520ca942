-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The points of a sweep: a list of values, or those from one to another in steps.

local check = require "sorel.internal.check"
local text = require "sorel.internal.text"

local points = {}

--- How many points one sweep may have.
points.MOST = 1000000

-- What a number may lack to a step and still be on it: what fractions lose in binary.
local TOLERANCE = 1e-6

local function finite(value)
    if math.abs(value) == math.huge then return nil, tostring(value) .. " is not finite" end
    return value
end

-- A number as the driver takes it, or nil and what is wrong; any for a quantity without resolution.
local function on_grid(value, quantity)
    local steps = quantity.steps_per_unit
    if not steps then return finite(value) end
    local whole = math.floor(value * steps + 0.5)
    if math.abs(value * steps - whole) <= TOLERANCE then return whole / steps end
    if steps == 1 then return nil, text.number(value) .. " is not a whole number" end
    return nil, ("%s is not a multiple of %s"):format(text.number(value), text.number(1 / steps))
end

local function value_rule(key, quantity, required)
    return { key, type = "number", required = required,
        least = quantity.least, most = quantity.most,
        check = function(value) return on_grid(value, quantity) end }
end

local function list_points(given, quantity, where, mistakes)
    local values = {}
    local rule = value_rule(nil, quantity)
    local count, misplaced = check.list(given, where)
    for _, mistake in ipairs(misplaced) do mistakes[#mistakes + 1] = mistake end
    for place = 1, count do
        local message
        values[place], message = check.value(given[place], rule)
        if message then mistakes[#mistakes + 1] = ("%s[%d]: %s"):format(where, place, message) end
    end
    return { count = #values, at = function(place) return values[place] end }
end

-- A point of a range by itself, so that no error adds up; with no more digits than it is shown
-- with, and 0 for what is left where the range passes it.
local function point_at(place, range)
    local value = range.from + (place - 1) * range.step
    if math.abs(value) <= math.abs(range.step) * TOLERANCE then return 0 end
    return tonumber(text.number(value))
end

-- The last point is `to` where a step leads there.
local function range_points(range, quantity, where, mistakes)
    local from, to, step = range.from, range.to, range.step
    local steps = (to - from) / step
    if step == 0 or steps < 0 then
        mistakes[#mistakes + 1] = ("%s.step: %s does not lead from %s to %s"):format(where,
            text.number(step), text.number(from), text.number(to))
        return nil
    end
    local count = math.floor(steps + TOLERANCE) + 1
    local ends = math.abs(steps - (count - 1)) <= TOLERANCE
    return { count = count, at = function(place)
        if place == count and ends then return to end
        return (on_grid(point_at(place, range), quantity))
    end }
end

--- The points that a caller describes.
-- @param given a list of numbers, or { from = , to = , step = }; other keys are mistakes
-- @param quantity has least and most, or neither, and steps_per_unit, nil for any fraction
-- @param where what mistakes are in
-- @param mistakes the list that they are added to
-- @return { count = , at = function(place) }; or nil where something is wrong
function points.of(given, quantity, where, mistakes)
    local before = #mistakes
    if #given > 0 then
        local list = list_points(given, quantity, where, mistakes)
        return #mistakes == before and list or nil
    end
    local range, wrong = check.fields(given, {
        value_rule("from", quantity, true), value_rule("to", quantity, true),
        { "step", type = "number", required = true,
            check = function(value) return on_grid(value, quantity) end },
    }, where .. ".")
    for _, mistake in ipairs(wrong) do mistakes[#mistakes + 1] = mistake end
    return #mistakes == before and range_points(range, quantity, where, mistakes) or nil
end

return points
