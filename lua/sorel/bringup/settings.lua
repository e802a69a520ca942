-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The table that sorel.bringup takes: what its keys may be, alone and together.

local check = require "sorel.internal.check"
local constants = require "sorel.constants"

local settings = {}

local function readable(path)
    local file, message = io.open(path, "rb")
    if not file then return nil, "cannot be read: " .. message end
    local byte, reason = file:read(1) -- a folder can be opened, but not be read
    file:close()
    if not byte and reason then return nil, ("cannot be read: %s: %s"):format(path, reason) end
    return path
end

-- No band begins below 10 MHz, and what is below it there, meant in MHz, kHz or GHz, is above.
local LOWEST_HZ, HIGHEST_HZ = 10e6, 4294967295

local function frequency(hertz)
    if hertz >= LOWEST_HZ then
        if hertz <= HIGHEST_HZ and hertz % 1 == 0 then return hertz end
        return nil, hertz % 1 == 0 and ("%.0f Hz is above %.0f Hz"):format(hertz, HIGHEST_HZ)
            or hertz .. " is not a whole number"
    end
    local message = hertz .. " Hz is below 10 MHz"
    for _, unit in ipairs { 1e3, 1e6, 1e9 } do
        if hertz * unit >= 100e6 and hertz * unit <= HIGHEST_HZ then
            return nil, ("%s; did you mean %.0f?"):format(message, hertz * unit)
        end
    end
    return nil, message
end

-- Some tenths have no exact binary form, so what is very near to one is meant to be it.
local function tenths(dbm)
    if math.abs(dbm * 10 - math.floor(dbm * 10 + 0.5)) > 1e-6 then
        return nil, dbm .. " dBm is no multiple of 0.1 dBm"
    end
    return dbm
end

local function integer(least, most)
    return { type = "number", integer = true, least = least, most = most }
end

local function part(key)
    return { key, type = "number", integer = true, least = -32768, most = 32767, required = true }
end

local function offset(value)
    local _, mistakes = check.fields(value, { part "in_phase", part "quadrature" })
    if #mistakes > 0 then return nil, table.concat(mistakes, "; ") end
    return { in_phase = value.in_phase, quadrature = value.quadrature }
end

-- Beside what check.fields knows: `antennas` is the rule for one antenna's value; the key takes a
-- value for all, unless `listed`, or a list of one for each. `words`: a list of register words.
local rules = {
    { "platform", group = "RADIO_PLATFORM" },
    { "configuration", group = "RADIO_CONF", required = true },
    { "mode", group = "RADIO_MODE", required = true },
    { "band", group = "RADIO_BAND", required = true },
    { "script", type = "string", check = readable },
    { "calibration_file", type = "string", check = readable },
    { "cpri_rate", group = "RADIO_CPRI_RATE" },
    { "oscillator_dac", type = "number", integer = true, least = 0, most = 65535 },
    { "rx_gain_registers", words = true },
    { "tx_power_registers", words = true },
    { "tx_frequency_hz", type = "number", check = frequency },
    { "tx_channel", type = "number", integer = true, least = 0, most = 65535 },
    { "rx_frequency_hz", type = "number", check = frequency },
    { "rx_channel", type = "number", integer = true, least = 0, most = 65535 },
    { "loopback", group = "RADIO_LOOPBACK" },
    { "rx_gain_mode", group = "RADIO_RX_GAIN" },
    { "rx_gain_db", antennas = integer(-32768, 32767) },
    { "tx_max_power_dbm",
        antennas = { type = "number", least = -3276.8, most = 3276.7, check = tenths } },
    { "tx_dc_offsets", antennas = { check = offset }, listed = true },
    { "rx_state", antennas = { group = "RADIO_STATE" } },
    { "selected_paths", group = "RADIO_SELECT" },
    { "tx_state", antennas = { group = "RADIO_STATE" } },
    { "debug_level", group = "RADIO_DEBUG" },
    { "settle_s", type = "number", least = 0, most = 60, default = 1 },
}

-- The elements by a rule; wrong() is told of each mistake.
local function elements(list, rule, key, wrong)
    local taken = {}
    for place, given in ipairs(list) do
        local value, message = check.value(given, rule)
        taken[place] = value
        if message then wrong(("%s[%d]"):format(key, place), message) end
    end
    return taken
end

local function words(given, key, wrong)
    if not check.length(given) then return wrong(key, "a list of words is expected") end
    return elements(given, integer(-2147483648, 4294967295), key, wrong)
end

-- A value of each antenna; count is nil where their number is not known.
local function antennas(given, rule, count, wrong)
    local key = rule[1]
    if type(given) ~= "table" and not rule.listed then
        local value, message = check.value(given, rule.antennas)
        if message then return wrong(key, message) end
        return { value, count == 2 and value or nil }
    end
    local listed = check.length(given)
    if not listed or count and listed ~= count then
        return wrong(key, ("a list of %s is expected, one for each antenna%s"):format(
            count == 1 and "1 value" or count and count .. " values" or "values",
            listed and ", got " .. listed or ""))
    end
    return elements(given, rule.antennas, key, wrong)
end

local function named(group, value)
    return (constants.name(group, value))
end

--- Whether both directions have one frequency in a mode, a number.
function settings.time_division(mode)
    local name = named("RADIO_MODE", mode)
    return (name:find("_TDD_") or name:find("TD_SCDMA")) ~= nil
end

-- What keys have to do with each other; what is wrong by itself is nil in values.
local function together(values, given, wrong)
    for _, way in ipairs { "tx", "rx" } do
        if values[way .. "_frequency_hz"] and values[way .. "_channel"] then
            wrong(way .. "_channel", way .. "_frequency_hz is given too; give one of them")
        end
    end
    local tx = values.tx_frequency_hz or values.tx_channel
    local rx = values.rx_frequency_hz or values.rx_channel
    local same = values.tx_frequency_hz == values.rx_frequency_hz
        and values.tx_channel == values.rx_channel
    if tx and rx and not same and values.mode and settings.time_division(values.mode) then
        wrong(values.rx_channel and "rx_channel" or "rx_frequency_hz",
            ("in %s both directions have one frequency; give that of one of them"):format(
                named("RADIO_MODE", values.mode)))
    end
    if values.rx_gain_db and (values.rx_gain_mode or RADIO_RX_GAIN_MGC) ~= RADIO_RX_GAIN_MGC then
        wrong("rx_gain_db", ("in %s the gain sets itself; it is set in RADIO_RX_GAIN_MGC"):format(
            named("RADIO_RX_GAIN", values.rx_gain_mode)))
    end
    if values.antennas == 1 and values.selected_paths == RADIO_SELECT_1 then
        wrong("selected_paths", "RADIO_CONF_SISO has only path 0, RADIO_SELECT_0")
    end
    local on = values.tx_state or {}
    local switched_on = on[1] == RADIO_STATE_ENABLE or on[2] == RADIO_STATE_ENABLE
    if switched_on and given.tx_max_power_dbm == nil then
        wrong("tx_max_power_dbm", "is missing; without it tx_state would switch on at full power")
    end
end

--- What a table says, and every mistake in it.
-- @param given the caller's table
-- @return a new table: constants as numbers, what antennas have as a list of one value each,
-- `antennas` their number; and a list of mistakes, with which the table is of no use
function settings.checked(given)
    local values, mistakes = check.fields(given, rules)
    if type(given) ~= "table" then return values, mistakes end
    local function wrong(key, message)
        mistakes[#mistakes + 1] = ("%s: %s"):format(key, message)
    end
    if values.configuration then
        values.antennas = values.configuration == RADIO_CONF_SISO and 1 or 2
    end
    for _, rule in ipairs(rules) do
        local key = rule[1]
        if rule.words and values[key] ~= nil then values[key] = words(values[key], key, wrong) end
        if rule.antennas and values[key] ~= nil then
            values[key] = antennas(values[key], rule, values.antennas, wrong)
        end
    end
    together(values, given, wrong)
    return values, mistakes
end

return settings
