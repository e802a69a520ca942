-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Lines that arrive on a socket, in whatever pieces.

local lines = {}

-- How much is taken at once, in bytes.
local PIECE = 4096

local Reader = {}
Reader.__index = Reader

--- A reader of the lines of a socket, which no longer waits.
-- @param limit how many bytes a line may have, with its end
function lines.reader(from, limit)
    from:settimeout(0)
    return setmetatable({ socket = from, limit = limit, text = "", searched = 0 }, Reader)
end

--- Takes what has arrived.
-- @return whether more may come
function Reader:fill()
    local whole, message, part = self.socket:receive(PIECE)
    self.text = self.text .. (whole or part or "")
    return whole ~= nil or message == "timeout"
end

--- The next line, without its end, which is LF or CR LF.
-- @return the line; nil while there is none; nil and true when it is longer than the limit
function Reader:next()
    local stop = self.text:find("\n", self.searched + 1, true)
    if (stop or #self.text) > self.limit then return nil, true end
    if not stop then
        self.searched = #self.text
        return nil
    end
    local line = self.text:sub(1, stop - 1):gsub("\r$", "")
    self.text = self.text:sub(stop + 1)
    self.searched = 0
    return line
end

--- Forgets what has arrived and is not taken.
function Reader:clear()
    self.text = ""
    self.searched = 0
end

return lines
