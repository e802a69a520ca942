-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The transmitter switched off, whatever has gone wrong before.
--
--     local transmitter = require "sorel.transmitter"
--     transmitter.off()
--     transmitter.guarded(function() ... end)

local text = require "sorel.internal.text"

local transmitter = {}

local function packed(...)
    return { count = select("#", ...), ... }
end

local NO_CONTEXT = "No radio context, call radioOpen() first"

--- Switches the transmitters of all paths off, which are then the selected ones. Where the driver
-- refuses that, resets the radio, which is then switched off and not initialised. Raises nothing.
-- @return true, and "reset" where it was that; or false and the driver's message: a transmitter may
-- still be on. Without an open radio there is none to switch off: true.
function transmitter.off()
    local selected, message = pcall(radioSelect, RADIO_SELECT_ALL)
    if message == NO_CONTEXT then return true end
    if selected and pcall(radioSetTxState, RADIO_STATE_DISABLE) then return true end
    selected, message = pcall(radioReset)
    if selected then return true, "reset" end
    return false, message
end

--- Calls a function. If it raises an error, the transmitters go off before that is raised again.
-- @param action the function
-- @param ... its arguments
-- @return its results
-- @error the function's own, as it is; where the transmitters could not be switched off, a text
-- that says so with it
function transmitter.guarded(action, ...)
    local results = packed(pcall(action, ...))
    if results[1] then return unpack(results, 2, results.count) end
    local off, message = transmitter.off()
    if off then error(results[2], 0) end
    error(("%s; the transmitter may still be on: %s"):format(text.of_error(results[2]),
        text.of_error(message)), 0)
end

return transmitter
