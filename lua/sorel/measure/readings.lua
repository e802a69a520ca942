-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What can be read, by name: the driver's measurements and a script's own functions.

local check = require "sorel.internal.check"
local nearest = require "sorel.internal.nearest"

local readings = {}

-- In the order in which they are listed.
local known = {
    { name = "rtwp", title = "RTWP", unit = "dBm",
        read = function() return radioGetRxRtwpIndBm() end },
    { name = "rtwp_1", title = "RTWP of antenna 1", unit = "dBm",
        read = function() return radioGetRxRtwpOfAntennaIndBm(RADIO_RX_ANTENNA_1) end },
    { name = "rtwp_2", title = "RTWP of antenna 2", unit = "dBm",
        read = function() return radioGetRxRtwpOfAntennaIndBm(RADIO_RX_ANTENNA_2) end },
    { name = "rtwp_raw", title = "RTWP", unit = "0.1 dBm",
        read = function() return radioGetRxRtwp() end },
    { name = "rtwp_raw_1", title = "RTWP of antenna 1", unit = "0.1 dBm",
        read = function() return radioGetRxRtwpOfAntenna(RADIO_RX_ANTENNA_1) end },
    { name = "rtwp_raw_2", title = "RTWP of antenna 2", unit = "0.1 dBm",
        read = function() return radioGetRxRtwpOfAntenna(RADIO_RX_ANTENNA_2) end },
    { name = "gain", title = "receive gain", unit = "dB",
        read = function() return radioGetRxGainIndB() end },
    { name = "gain_1", title = "receive gain of antenna 1", unit = "dB",
        read = function() return radioGetRxGainOfAntennaIndB(RADIO_RX_ANTENNA_1) end },
    { name = "gain_2", title = "receive gain of antenna 2", unit = "dB",
        read = function() return radioGetRxGainOfAntennaIndB(RADIO_RX_ANTENNA_2) end },
    { name = "temperature", title = "temperature", unit = "degC",
        read = function() return radioGetTemperature() end },
}

local by_name, names = {}, {}
for place, reading in ipairs(known) do
    by_name[reading.name], names[place] = reading, reading.name
end

--- The readings of the driver, each with name, title, unit and read.
function readings.known()
    return known
end

--- Whether a text can name a column: value to take, or nil and what is wrong; for check.fields.
function readings.identifier(name)
    if name:find("^[%a_][%w_]*$") then return name end
    return nil, ("%q does not consist of letters, digits and underscores"):format(name)
end

--- The name of the column that a quantity has: "rtwp_dbm" for "rtwp" in dBm. Whatever of a unit is
-- no letter or digit becomes an underscore.
function readings.column(name, unit)
    local suffix = unit:gsub("^0%.1 ", "tenth_"):gsub("[^%w]+", "_"):gsub("^_", ""):gsub("_$", "")
    return suffix == "" and name or name .. "_" .. suffix:lower()
end

local own_rules = {
    { "name", type = "string", required = true, check = readings.identifier },
    { "unit", type = "string", default = "" },
    { "read", type = "function", required = true },
}

-- One reading of a list; or nil, after naming what is wrong with it.
local function reading_of(given, where, mistakes)
    if type(given) == "table" then
        local own, wrong = check.fields(given, own_rules, where .. ".")
        for _, mistake in ipairs(wrong) do mistakes[#mistakes + 1] = mistake end
        own.title = own.name
        return #wrong == 0 and own or nil
    end
    local found = by_name[given]
    if found then return found end
    local meant = type(given) == "string" and nearest.name(names, given) or nil
    mistakes[#mistakes + 1] = ("%s: there is no reading %s%s"):format(where, tostring(given),
        meant and nearest.suggestion(meant) or "; there are: " .. table.concat(names, ", "))
    return nil
end

--- The readings that a caller names.
-- @param given a name, or a list of names and of tables with name, unit and read
-- @param where what mistakes are in, such as "readings"
-- @param mistakes the list that they are added to
-- @return a list as that of readings.known(); without those that are wrong
function readings.of(given, where, mistakes)
    if type(given) == "string" then given = { given } end
    if type(given) ~= "table" or #given == 0 then
        mistakes[#mistakes + 1] = ("%s: a name or a list of names is expected, one of: %s"):format(
            where, table.concat(names, ", "))
        return {}
    end
    local list, columns = {}, {}
    local count, misplaced = check.list(given, where)
    for _, mistake in ipairs(misplaced) do mistakes[#mistakes + 1] = mistake end
    for place = 1, count do
        local one = given[place]
        local here = ("%s[%d]"):format(where, place)
        local reading = reading_of(one, here, mistakes)
        local column = reading and readings.column(reading.name, reading.unit)
        if reading and columns[column] then
            mistakes[#mistakes + 1] = ("%s: %s is there twice"):format(here, reading.name)
        elseif reading then
            columns[column] = true
            list[#list + 1] = reading
        end
    end
    return list
end

local function value_of(reading)
    local value = reading.read()
    if type(value) ~= "number" then
        error(("the reading %s is no number but %s"):format(reading.name, type(value)), 0)
    end
    return value
end

--- Takes all readings in turn, that many times.
-- @return a list for each reading, of its values in the order in which they were taken
function readings.take(list, times)
    local values = {}
    for place = 1, #list do values[place] = {} end
    for time = 1, times do
        for place, reading in ipairs(list) do values[place][time] = value_of(reading) end
    end
    return values
end

return readings
