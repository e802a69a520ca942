-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The script for gnuplot that draws the rows of a sweep.

local output = require "sorel.internal.output"
local row_text = require "sorel.measure.rows"
local text = require "sorel.internal.text"

local gnuplot = {}

-- Told apart by people who are colour-blind too.
local colours = { "#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00", "#56b4e9", "#000000",
    "#7f7f7f" }

-- In a file's name and in texts anything may stand: single quotes let gnuplot replace nothing.
local function quoted(what)
    what = what:gsub("'", "''"):gsub("%c+", function(control)
        return "'.\"" .. control:gsub(".", function(byte)
            return ("\\%03o"):format(byte:byte())
        end) .. "\".'"
    end)
    return "'" .. what .. "'"
end

-- As one argument of gnuplot, which takes other beginnings for an option or a command to read from.
local function shell_quoted(path)
    if not path:find("^[%w_/.]") then path = "./" .. path end
    if path:find("^[%w%./_-]+$") then return path end
    return "'" .. path:gsub("'", "'\\''") .. "'"
end

-- The values of the outer quantity, in the order in which they were set.
local function values_of(column, rows)
    local values, there = {}, {}
    for _, row in ipairs(rows) do
        local value = row[column.key]
        if not there[value] then
            there[value] = true
            values[#values + 1] = value
        end
    end
    return values
end

-- Units of the columns, each with its columns; the panels of the picture.
local function panels_of(columns)
    local panels, by_unit = {}, {}
    for _, column in ipairs(columns) do
        local unit = column.unit or ""
        if not by_unit[unit] then
            by_unit[unit] = { unit = unit }
            panels[#panels + 1] = by_unit[unit]
        end
        table.insert(by_unit[unit], column)
    end
    return panels
end

local function with_unit(title, unit)
    return unit == "" and title or ("%s [%s]"):format(title, unit)
end

-- What the values of a column that was set are shown in, and how many of its unit that is.
local function scale(column)
    if column.unit == "Hz" then return "MHz", 1e6 end
    return column.unit, 1
end

-- The curves of a panel, each with what follows `using` and its name.
local function curves_of(panel, request)
    local _, divisor = scale(request.x)
    local x = ("$%d/%.0f"):format(request.places[request.x.key], divisor)
    local curves = {}
    for _, column in ipairs(panel) do
        local y = ("reading(%d)"):format(request.places[column.key])
        if not request.outer then
            curves[#curves + 1] = { using = ("(%s):(%s)"):format(x, y), title = column.title }
        else
            local place = request.places[request.outer.key]
            local unit, outer_divisor = scale(request.outer)
            for _, value in ipairs(values_of(request.outer, request.rows)) do
                local title = ("%s %s"):format(text.number(value / outer_divisor), unit)
                if #panel > 1 then title = column.title .. ", " .. title end
                local here = ("$%d == %s"):format(place, text.number(value))
                curves[#curves + 1] = { title = title,
                    using = ("(%s):(%s ? %s : NaN)"):format(x, here, y) }
            end
        end
    end
    return curves
end

-- The range of an axis where all its values are the same, which gnuplot would warn of.
local function range(axis, columns, rows, divisor)
    local least, most = math.huge, -math.huge
    for _, column in ipairs(columns) do
        for _, row in ipairs(rows) do
            local value = row[column.key]
            if row_text.finite(value) then
                least, most = math.min(least, value), math.max(most, value)
            end
        end
    end
    if least < most then return ("set %srange [*:*]"):format(axis) end
    local middle = least / divisor
    local margin = math.max(1, math.abs(middle) / 100)
    return ("set %srange [%s:%s]"):format(axis, text.number(middle - margin),
        text.number(middle + margin))
end

local function style_lines()
    local lines = { "set style data linespoints" }
    for place, colour in ipairs(colours) do
        lines[#lines + 1] = ("set style line %d linewidth 2 pointtype 7 pointsize 0.6 "
            .. "linecolor rgb '%s'"):format(place, colour)
    end
    return table.concat(lines, "\n")
end

local function panel_lines(panel, request)
    local curves = curves_of(panel, request)
    local label = #panel == 1 and with_unit(panel[1].title, panel.unit) or panel.unit
    local lines = {
        "set ylabel " .. quoted(label),
        range("y", panel, request.rows, 1),
        #curves > 1 and "set key outside right top" or "unset key",
    }
    for place, curve in ipairs(curves) do
        lines[#lines + 1] = ("%s data skip 1 using %s linestyle %d title %s%s"):format(
            place == 1 and "plot" or "    ", curve.using, (place - 1) % #colours + 1,
            quoted(curve.title), place < #curves and ", \\" or "")
    end
    return lines
end

local head = [[
# Draws %s.png beside this script, from whatever folder it is run.
folder = exists("ARG0") ? ARG0 : ''
while (strlen(folder) > 0 && folder[strlen(folder):strlen(folder)] ne '/') {
    folder = folder[1:strlen(folder)-1]
}
if (strlen(folder) == 0) { folder = './' }
data = folder.%s
reading(place) = valid(place) ? column(place) : NaN

set encoding utf8
set terminal pngcairo noenhanced size 1000,%d font 'sans,12'
set output folder.%s
set datafile separator comma
set grid linetype 1 linewidth 0.8 linecolor rgb '#e0e0e0'
set offsets graph 0, graph 0, graph 0.05, graph 0.05
%s
set lmargin at screen 0.1
set rmargin at screen %s
set xlabel %s
%s
set multiplot layout %d,1 title %s
]]

--- Writes the script of a plot.request().
-- @return the command that runs it
function gnuplot.write(request)
    local panels = panels_of(request.columns)
    local unit, divisor = scale(request.x)
    local keyed = request.outer ~= nil
    for _, panel in ipairs(panels) do keyed = keyed or #panel > 1 end
    local lines = { head:format(
        request.name:gsub("%c", "?"), quoted(request.name .. ".csv"), 100 + 400 * #panels,
        quoted(request.name .. ".png"), style_lines(), keyed and "0.72" or "0.96",
        quoted(with_unit(request.x.title, unit)), range("x", { request.x }, request.rows, divisor),
        #panels, quoted(request.title)) }
    for _, panel in ipairs(panels) do
        for _, line in ipairs(panel_lines(panel, request)) do lines[#lines + 1] = line .. "\n" end
    end
    lines[#lines + 1] = "unset multiplot\nunset output\n"
    output.whole(request.script, function(file) file:write(table.concat(lines)) end)
    return "gnuplot " .. shell_quoted(request.script)
end

return gnuplot
