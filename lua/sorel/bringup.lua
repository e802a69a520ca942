-- SPDX-License-Identifier: LicenseRef-Proprietary
--- A board brought up from one table.
--
--     local bringup = require "sorel.bringup"
--     local state = bringup.run {
--         platform = "RADIO_PLATFORM_TALWIN", configuration = "RADIO_CONF_MIMO",
--         mode = "RADIO_MODE_4GENODEB_FDD_20MHZ", band = "RADIO_BAND_7",
--         tx_frequency_hz = 2655e6, rx_frequency_hz = 2535e6, tx_max_power_dbm = 10,
--     }
--     bringup.print(state)
--
-- The radio is reset first, and what the table does not name is as radioInit() leaves it; but the
-- platform selected, the calibration data and the debug settings stay. Write constants as texts: a
-- misspelt text is a mistake, a misspelt global is nil, as if the key were not there. What the keys
-- are, and in which order they are set, is told in sorel/reference/bringup.lua.

local check = require "sorel.internal.check"
local settings = require "sorel.bringup.settings"
local state = require "sorel.bringup.state"
local steps = require "sorel.bringup.steps"
local transmitter = require "sorel.transmitter"

local bringup = {}

local function take(list)
    for number, step in ipairs(list) do
        local succeeded, message = pcall(step.action)
        if not succeeded then
            error(("bringup: step %d of %d, %s: %s"):format(number, #list, step.text,
                tostring(message)), 0)
        end
    end
end

-- The receivers of a board that has just been tuned; RTWP can be read when they have settled.
local function settled_receivers(values)
    local receivers = {}
    for antenna = 1, values.antennas do
        local on = not values.rx_state or values.rx_state[antenna] == RADIO_STATE_ENABLE
        steps.repeated(values.settle_s, function()
            receivers[antenna] = state.receiver(antenna)
            return receivers[antenna].rtwp_dbm or not on
        end)
    end
    return receivers
end

--- Says what is wrong with a table, without a call of the driver.
-- @param given the table
-- @return a list of texts, each beginning with its key; empty where the table is right
function bringup.check(given)
    local _, mistakes = settings.checked(given)
    return mistakes
end

--- Says what bringup.run() would do, in its order. Of the driver it asks only whether a radio is
-- open: that is then reset, else one is opened.
-- @param given the table
-- @return a list of texts
-- @error the mistakes in the table
function bringup.steps(given)
    local values, mistakes = settings.checked(given)
    check.raise("bringup.steps", mistakes, 2)
    local texts = {}
    for number, step in ipairs(steps.of(values)) do texts[number] = step.text end
    return texts
end

--- Brings the board up. Every mistake in the table is told at once, before the board is touched.
-- When a step fails, the transmitters go off.
-- @param given the table
-- @return what bringup.read() returns, with `settings`: what the table says, constants as numbers,
-- and of what antennas have a list of a value each
-- @error the mistakes; or the step that failed, and why
function bringup.run(given)
    local values, mistakes = settings.checked(given)
    check.raise("bringup.run", mistakes, 2)
    return transmitter.guarded(function()
        take(steps.of(values))
        local read = state.read(settled_receivers(values))
        read.settings = values
        return read
    end)
end

--- Reads what can be read; what fails is nil.
-- @return a table: driver and platform (texts), chips, temperature_c, oscillator_dac,
-- oscillator_dac_width (bits), debug_level (RADIO_DEBUG), receivers (a list: rtwp_dbm, gain_db)
-- @error the driver's, when no radio is open
function bringup.read()
    return state.read { state.receiver(1), state.receiver(2) }
end

--- Prints a state, in lines for a person.
-- @param read what bringup.run() or bringup.read() returned
-- @error when it is none
function bringup.print(read)
    if type(read) ~= "table" or type(read.receivers) ~= "table" then
        error("bringup.print: what bringup.run() or bringup.read() returned is expected", 2)
    end
    for _, line in ipairs(state.lines(read)) do print(line) end
end

return bringup
