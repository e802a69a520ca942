-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Which connection answers for what may be transmitting. In doubt a transmitter counts as on: also
-- when the call that switches it on has failed, and after calls that might have done it.
--
-- What may be on is kept by how it was switched on: the paths that were selected then, the antenna,
-- or "registers". The connection that did so last answers for it, until all paths are switched off,
-- or the same selection or antenna.

local watch = {}

local Watch = {}
Watch.__index = Watch

function watch.new()
    return setmetatable({ answering = {}, selected = "as it was at the start" }, Watch)
end

-- The key of a number or numeral as an argument.
local function key(argument)
    return tostring(tonumber(argument))
end

local function switched_off(state)
    return tonumber(state) == radio.RADIO_STATE_DISABLE
end

-- What a call of a function may have switched: by the function's name.
local calls = {}

function calls.radioSelect(self, _, arguments, succeeded)
    -- After a failure it is not known what is selected; a new table is like no other key.
    self.selected = succeeded and key(arguments[1]) or {}
end

function calls.radioSetTxState(self, connection, arguments, succeeded)
    local all = self.selected == key(radio.RADIO_SELECT_ALL)
    if not switched_off(arguments[1]) then
        if all then self.answering = {} end
        self.answering[self.selected] = connection
    elseif succeeded then
        if all then self.answering = {} end
        self.answering[self.selected] = nil
    end
end

function calls.radioSetTxStateOfAntenna(self, connection, arguments, succeeded)
    local antenna = "antenna " .. key(arguments[1])
    if not switched_off(arguments[2]) then
        self.answering[antenna] = connection
    elseif succeeded then
        self.answering[antenna] = nil
    end
end

function calls.radioSpiWrite(self, connection)
    self.answering.registers = connection
end

calls.radioInitByScript = calls.radioSpiWrite

function calls.radioInit(self, _, _, succeeded)
    if succeeded then self.answering = {} end
end

function calls.radioReset(self, _, _, succeeded)
    if succeeded then self:all_off() else self.selected = {} end
end

--- Takes notice of a call.
-- @param connection who called
-- @param succeeded whether the function has returned
function Watch:called(connection, name, arguments, succeeded)
    if calls[name] then calls[name](self, connection, arguments, succeeded) end
end

--- Takes notice that all transmitters were switched off, and all paths are selected.
function Watch:all_off()
    self.answering = {}
    self.selected = key(radio.RADIO_SELECT_ALL)
end

--- Whether a connection answers for something that may be on.
function Watch:answers(connection)
    for _, one in pairs(self.answering) do
        if one == connection then return true end
    end
    return false
end

return watch
