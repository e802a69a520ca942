-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Sets a frequency, channel, gain or power to one value after the other, and reads at each.
--
--     local sweep = require "sorel.sweep"
--     local rows = sweep.run {
--         rx_frequency_hz = { from = 2500e6, to = 2570e6, step = 5e6 },
--         readings = { "rtwp", "gain" },
--         average = 8,
--         settle = { seconds = 0.01 },
--         csv = "rtwp.csv",
--     }
--
-- The keys of what is set are those of sorel/sweep/quantities.lua, each with its unit; readings are
-- those of sorel.measure.

local check = require "sorel.internal.check"
local output = require "sorel.internal.output"
local plan = require "sorel.sweep.plan"
local points = require "sorel.sweep.points"
local progress = require "sorel.sweep.progress"
local readings = require "sorel.measure.readings"
local row_text = require "sorel.measure.rows"
local statistics = require "sorel.measure.statistics"
local text = require "sorel.internal.text"
local transmitter = require "sorel.transmitter"

local sweep = {}

local last_rows

-- Where the points of each axis stand at a point of the sweep; the last axis moves at each.
local function places_at(axes, point)
    local places, rest = {}, point - 1
    for number = #axes, 1, -1 do
        local count = axes[number].points.count
        places[number] = rest % count + 1
        rest = math.floor(rest / count)
    end
    return places
end

local function shown(quantity, value)
    return ("%s %s"):format(quantity.key, text.number(value))
end

-- What a point is called in messages.
local function name_of(axes, point)
    local names, places = {}, places_at(axes, point)
    for number, axis in ipairs(axes) do
        names[number] = shown(axis.quantity, axis.points.at(places[number]))
    end
    return table.concat(names, ", ")
end

-- Sets what differs from the point before.
local function set(axes, point, row)
    local places, before = places_at(axes, point), point > 1 and places_at(axes, point - 1) or {}
    for number, axis in ipairs(axes) do
        local value = axis.points.at(places[number])
        if places[number] ~= before[number] then axis.quantity.set(value) end
        row[axis.quantity.key] = value
    end
end

local function settle(asked)
    if asked.settle.seconds > 0 then socket.sleep(asked.settle.seconds) end
    readings.take(asked.readings, asked.settle.readings)
end

-- Reads what a row holds besides what was set.
local function read(asked, row)
    row.failed = 0
    local values = readings.take(asked.readings, asked.average)
    for place, reading in ipairs(asked.readings) do
        local found = statistics.of(values[place], reading.unit)
        row.failed = row.failed + found.failed
        for _, column in ipairs(asked.reading_columns[place]) do
            row[column.key] = found[column.of]
        end
    end
end

-- Does the sweep. state.point is the one at work, 0 before the first.
local function walk(asked, rows, file, state)
    if file then
        file:write(row_text.header(asked.columns))
        file:flush()
    end
    if asked.select then radioSelect(asked.select) end
    for _, axis in ipairs(asked.axes) do
        if axis.quantity.prepare then axis.quantity.prepare() end
    end
    for point = 1, asked.count do
        state.point = point
        if asked.progress then
            state.progress:tell(point - 1, asked.count, name_of(asked.axes, point))
        end
        local row = {}
        set(asked.axes, point, row)
        settle(asked)
        read(asked, row)
        rows[point] = row
        if file then
            file:write(row_text.line(asked.columns, row))
            file:flush()
        end
    end
end

-- Switches the transmitters off, and says what came of it.
local function switched_off()
    local off, how = transmitter.off()
    if not off then return "a transmitter may still be on: " .. how end
    return how and "the radio was reset" or "transmitters off"
end

-- What is said of a sweep that the board, the file or a function of the script's has ended.
local function stopped(asked, rows, point, reason, state)
    local place = "before its first point"
    if point > 0 then
        place = ("at point %.0f of %.0f, %s"):format(point, asked.count, name_of(asked.axes, point))
    end
    local kept = #rows == 1 and "1 row is" or ("%.0f rows are"):format(#rows)
    return ("sweep.run stopped %s: %s; %s; %s kept in sweep.last()%s"):format(place, reason, state,
        kept, asked.csv and asked.csv ~= "-" and " and " .. asked.csv or "")
end

local function warn_of_failed(asked, rows)
    local failed = 0
    for _, row in ipairs(rows) do failed = failed + row.failed end
    if failed == 0 then return end
    io.stderr:write(("sweep.run: %.0f of %.0f readings failed\n"):format(failed,
        asked.count * asked.average * #asked.readings))
end

--- Sets a quantity to each of its values, waits, reads and returns a row for each.
-- @param options see sorel/reference/sweep.lua, where each is described
-- @return a list of rows, each a table by column: what was set ("rx_gain_db"), the mean of each
-- reading ("rtwp_dbm"; not a number where all failed), and `failed`, how many single readings
-- failed. Its field `columns` describes the columns, as sorel.measure's functions expect it.
-- @error for all mistakes in the options together, before the board is touched. When the driver,
-- the file or a function of the script's fails later, the transmitters go off, the file is closed,
-- and a text is raised that says at which point and why; the rows until then are sweep.last().
function sweep.run(options)
    local asked, mistakes = plan.of(options)
    check.raise("sweep.run", mistakes, 2)
    local file = asked.csv and output.open(asked.csv)
    local rows = { columns = asked.columns }
    last_rows = rows
    local state = { point = 0, progress = progress.begin(asked.csv == "-") }
    local done, reason = pcall(walk, asked, rows, file, state)
    local off = not done and switched_off()
    state.progress:clear()
    if file then
        local closed, failure = pcall(file.close, file)
        if done and not closed then done, reason, off = false, failure, switched_off() end
    end
    if not done then
        rows.error = stopped(asked, rows, state.point, text.of_error(reason), off)
        error(rows.error, 0)
    end
    warn_of_failed(asked, rows)
    return rows
end

--- The rows of the latest sweep, whether it ended or was stopped; `error` is then what was raised.
-- @return nil before the first
function sweep.last()
    return last_rows
end

--- The values of a range: from + i * step to 14 digits, without errors that add up.
-- @param range { from = , to = , step = }; `to` belongs to it where a step leads there
-- @return a list of numbers
-- @error where the range is none, or has more than 1000000 values
function sweep.points(range)
    local mistakes = {}
    if type(range) ~= "table" then
        mistakes[1] = "range: { from = , to = , step = } is expected, got " .. type(range)
    end
    local found = #mistakes == 0 and points.of(range, {}, "range", mistakes)
    if found and found.count > points.MOST then
        mistakes[1] = ("range: %.0f points are too many; at most %.0f"):format(found.count,
            points.MOST)
    end
    check.raise("sweep.points", mistakes, 2)
    local values = {}
    for place = 1, found.count do values[place] = found.at(place) end
    return values
end

return sweep
