-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What sweep.run is asked for, checked: what is set, what is read, and the columns of its rows.

local check = require "sorel.internal.check"
local points = require "sorel.sweep.points"
local quantities = require "sorel.sweep.quantities"
local readings = require "sorel.measure.readings"
local statistics = require "sorel.measure.statistics"

local plan = {}

local settle_rules = {
    { "seconds", type = "number", least = 0, most = 86400, default = 0 },
    { "readings", type = "number", integer = true, least = 0, most = 100000, default = 0 },
}

local custom_rules = {
    { "name", type = "string", required = true, check = readings.identifier },
    { "unit", type = "string", default = "" },
    { "set", type = "function", required = true },
}

-- A table that sets something has one of these keys.
local quantity_rules, quantity_keys = {}, {}
for _, quantity in ipairs(quantities) do
    quantity_rules[#quantity_rules + 1] = { quantity.key, type = "table" }
    quantity_keys[#quantity_keys + 1] = quantity.key
end
quantity_rules[#quantity_rules + 1] = { "custom", type = "table" }
quantity_keys[#quantity_keys + 1] = "custom"

local option_rules = {
    { "inner", type = "table" },
    { "readings", required = true },
    { "average", type = "number", integer = true, least = 1, most = 100000, default = 1 },
    { "settle", type = "table", default = {} },
    { "statistics", type = "boolean", default = false },
    { "select", group = "RADIO_SELECT" },
    { "csv", type = "string" },
    { "progress", type = "boolean", default = true },
}
for place = #quantity_rules, 1, -1 do table.insert(option_rules, 1, quantity_rules[place]) end

local function add(mistakes, more)
    for _, mistake in ipairs(more) do mistakes[#mistakes + 1] = mistake end
end

-- A script's own quantity, and what its table says of points.
local function custom_quantity(given, where, mistakes)
    local own, rest = {}, {}
    for key, value in pairs(given) do rest[key] = value end
    for _, rule in ipairs(custom_rules) do own[rule[1]], rest[rule[1]] = given[rule[1]], nil end
    local quantity, wrong = check.fields(own, custom_rules, where .. ".")
    add(mistakes, wrong)
    if #wrong > 0 then return nil, rest end
    quantity.key = readings.column(quantity.name, quantity.unit)
    quantity.title = quantity.name
    return quantity, rest
end

-- What a table sets: { quantity = , points = }; or nil where something is wrong.
local function axis_of(given, where, mistakes)
    local there = {}
    for _, key in ipairs(quantity_keys) do
        if given[key] ~= nil then there[#there + 1] = key end
    end
    if #there ~= 1 then
        mistakes[#mistakes + 1] = #there == 0
            and ("%swhat to set is missing, one of: %s"):format(where,
                table.concat(quantity_keys, ", "))
            or ("%s%s: only one of them; a second one goes into inner = { }"):format(where,
                table.concat(there, ", "))
        return nil
    end
    local key = there[1]
    local description = given[key]
    if type(description) ~= "table" then return nil end -- which check.fields has told
    local quantity
    if key == "custom" then
        quantity, description = custom_quantity(description, where .. key, mistakes)
    else
        for _, known in ipairs(quantities) do
            if known.key == key then quantity = known end
        end
    end
    local found = points.of(description, quantity or {}, where .. key, mistakes)
    return quantity and found and { quantity = quantity, points = found } or nil
end

local function statistics_columns(reading)
    local function column(name, unit)
        return { key = readings.column(reading.name .. "_" .. name, unit),
            title = reading.title .. ", " .. name, unit = unit, of = name }
    end
    return { column("minimum", reading.unit), column("maximum", reading.unit),
        column("deviation", statistics.unit_of_deviation(reading.unit)), column("failed", "") }
end

-- The columns of the rows; and those of each reading, of whose statistics each is that named `of`.
local function columns_of(axes, list, with_statistics)
    local columns, reading_columns = {}, {}
    for _, axis in ipairs(axes) do
        local quantity = axis.quantity
        columns[#columns + 1] = { key = quantity.key, title = quantity.title, unit = quantity.unit,
            swept = true }
    end
    for place, reading in ipairs(list) do
        local its = { { key = readings.column(reading.name, reading.unit),
            title = reading.title, unit = reading.unit, reading = true, of = "mean" } }
        if with_statistics then add(its, statistics_columns(reading)) end
        add(columns, its)
        reading_columns[place] = its
    end
    columns[#columns + 1] = { key = "failed", title = "failed readings", unit = "" }
    return columns, reading_columns
end

local function check_columns(columns, mistakes)
    local there = {}
    for _, column in ipairs(columns) do
        if there[column.key] then
            mistakes[#mistakes + 1] = ("two columns would be called %s"):format(column.key)
        end
        there[column.key] = true
    end
end

--- What a table of options asks for.
-- @return a table: axes, count (of points), columns, reading_columns (a list for each reading), and
-- readings, average, settle, select, csv and progress as asked for; and a list of mistakes
function plan.of(options)
    local values, mistakes = check.fields(options, option_rules)
    if type(options) ~= "table" then return values, mistakes end
    local axes = { axis_of(options, "", mistakes) }
    if values.inner then
        local _, wrong = check.fields(values.inner, quantity_rules, "inner.")
        add(mistakes, wrong)
        axes[#axes + 1] = axis_of(values.inner, "inner.", mistakes)
    end
    values.axes = axes
    if values.readings ~= nil then
        values.readings = readings.of(values.readings, "readings", mistakes)
    end
    if values.settle then
        local settle, wrong = check.fields(values.settle, settle_rules, "settle.")
        add(mistakes, wrong)
        values.settle = settle
    end
    values.count = 1
    for _, axis in ipairs(axes) do values.count = values.count * axis.points.count end
    if values.count > points.MOST then
        mistakes[#mistakes + 1] = ("%.0f points are too many; at most %.0f"):format(values.count,
            points.MOST)
    end
    if #mistakes == 0 then
        values.columns, values.reading_columns =
            columns_of(axes, values.readings, values.statistics)
        check_columns(values.columns, mistakes)
    end
    return values, mistakes
end

return plan
