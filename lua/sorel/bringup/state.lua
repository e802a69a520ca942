-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What can be read back of a radio, and how it is printed.

local constants = require "sorel.constants"
local settings = require "sorel.bringup.settings"
local text = require "sorel.internal.text"

local state = {}

-- What stands for a reading that failed.
local failed = { [-2147483648] = true, [4294967295] = true }

-- nil where the reading failed.
local function reading(value)
    if value ~= value or failed[value] then return nil end
    return value
end

local rx_antenna = { RADIO_RX_ANTENNA_1, RADIO_RX_ANTENNA_2 }

--- Reads what one receive antenna has.
function state.receiver(antenna)
    return {
        rtwp_dbm = reading(radioGetRxRtwpOfAntennaIndBm(rx_antenna[antenna])),
        gain_db = reading(radioGetRxGainOfAntennaIndB(rx_antenna[antenna])),
    }
end

--- Reads what can be read, with these receivers; a failed reading is nil.
-- @param receivers a list of what state.receiver() returned
function state.read(receivers)
    return {
        driver = radioVersion(),
        platform = radioGetPlatformName(),
        chips = reading(radioGetPlatformChipCount()),
        temperature_c = reading(radioGetTemperature()),
        oscillator_dac = reading(radioGetOscillatorDacValue()),
        oscillator_dac_width = reading(radioGetOscillatorDacWidth()),
        debug_level = reading(radioGetDebugLevel()),
        receivers = receivers,
    }
end

local function told(value, form)
    return value and (form or "%s"):format(value) or "-"
end

-- Where a direction, "tx" or "rx", is tuned to; the other one of time division may say it.
local function tuned(set, way)
    local other = way == "tx" and "rx" or "tx"
    local ways = settings.time_division(set.mode) and { way, other } or { way }
    for _, one in ipairs(ways) do
        local frequency, channel = set[one .. "_frequency_hz"], set[one .. "_channel"]
        if frequency then return ("%.0f Hz"):format(frequency) end
        if channel then return "channel " .. channel end
    end
    return set.script and "as the script says" or "middle of the band"
end

-- Of the antennas' values one where they are the same.
local function each(values, form)
    local cells = {}
    for antenna, value in ipairs(values) do cells[antenna] = form(value) end
    return cells[1] == cells[2] and cells[1] or table.concat(cells, " and ")
end

local function settings_rows(set, add)
    add("set up", constants.name("RADIO_CONF", set.configuration) .. ", "
        .. constants.name("RADIO_MODE", set.mode) .. ", " .. constants.name("RADIO_BAND", set.band))
    local transmit = { tuned(set, "tx") }
    if set.tx_max_power_dbm then
        transmit[2] = "at most " .. each(set.tx_max_power_dbm, function(power)
            return ("%.1f dBm"):format(power)
        end)
    end
    transmit[#transmit + 1] = each(set.tx_state or { RADIO_STATE_DISABLE }, function(on)
        return on == RADIO_STATE_ENABLE and "on" or "off"
    end)
    add("transmit", table.concat(transmit, ", "))
    local receive = { tuned(set, "rx") }
    if set.rx_gain_mode or not set.script then
        receive[2] = constants.name("RADIO_RX_GAIN", set.rx_gain_mode or RADIO_RX_GAIN_MGC)
    end
    add("receive", table.concat(receive, ", "))
end

--- A state as lines, with a dash for what could not be read.
function state.lines(read)
    local rows = {}
    local function add(...) rows[#rows + 1] = { ... } end
    add("platform", ("%s, chips: %s"):format(told(read.platform), told(read.chips)))
    add("driver", told(read.driver))
    if read.settings then settings_rows(read.settings, add) end
    for antenna, receiver in ipairs(read.receivers) do
        add("antenna " .. antenna, ("RTWP %s dBm, gain %s dB"):format(
            told(receiver.rtwp_dbm, "%.1f"), told(receiver.gain_db)))
    end
    add("temperature", told(read.temperature_c, "%.1f") .. " degrees Celsius")
    add("oscillator",
        told(read.oscillator_dac) .. " of 2^" .. told(read.oscillator_dac_width))
    return text.columns(rows)
end

return state
