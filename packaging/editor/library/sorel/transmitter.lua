---@meta sorel.transmitter
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

---The transmitter switched off, whatever has gone wrong before.
local transmitter = {}

---Switches the transmitters of all paths off, which are then the selected ones. Where the driver
---refuses that, resets the radio, which is then switched off and not initialised. Raises nothing.
---
---```lua
---print(transmitter.off())
---```
---@return boolean off true when off, also where no radio is open; false: a transmitter may still be on
---@return string? how "reset" where the radio was reset; after false what the driver said
function transmitter.off() end

---Calls a function. If it raises an error, the transmitters go off before that is raised again.
---
---Errors:
---* the function's error as it is; where the transmitters could not be switched off, a text that says so with it
---
---```lua
---transmitter.guarded(function()
---    radioSetTxState(RADIO_STATE_ENABLE)
---    print(radioGetRxRtwpIndBm())
---    radioSetTxState(RADIO_STATE_DISABLE)
---end)
---```
---@param action function what to call
---@param ... any its arguments
---@return any ... the function's
function transmitter.guarded(action, ...) end

return transmitter
