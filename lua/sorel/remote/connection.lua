-- SPDX-License-Identifier: LicenseRef-Proprietary
--- A connection as the server has it: lines that come in, and lines that go out as fast as the
-- other side takes them.

local lines = require "sorel.remote.lines"
local protocol = require "sorel.remote.protocol"

local connection = {}

local Connection = {}
Connection.__index = Connection

--- A connection of a socket that was accepted. Its fields:
--   name      address and port of the other side
--   input     the reader of its lines
--   output    what the other side has not taken yet
--   count     how many lines were read
--   last      when the last request came; until then, when the connection was made
--   greeted   whether the other side has said hello
--   held      when it will hear that its token is wrong
--   leaving   when it is closed at the latest; nothing more is read from it
--   ended     whether nothing more will come
--   broken    whether nothing more can be sent
--   news      what it has to hear before anything else is called for it
function connection.new(accepted, now)
    accepted:setoption("tcp-nodelay", true)
    accepted:setoption("keepalive", true)
    local address, port = accepted:getpeername()
    return setmetatable({
        socket = accepted,
        name = ("%s:%s"):format(address or "?", port or "?"),
        input = lines.reader(accepted, protocol.LINE),
        output = "",
        count = 0,
        last = now,
    }, Connection)
end

--- Sends what the other side takes now.
function Connection:flush()
    local sent, message, before = self.socket:send(self.output)
    self.output = self.output:sub((sent or before or 0) + 1)
    if message and message ~= "timeout" then self.broken = true end
    if self.leaving and self.output == "" then self.socket:shutdown("send") end
end

--- Sends a line, in part later where the other side does not take it now.
function Connection:say(line)
    self.output = self.output .. line .. "\n"
    self:flush()
end

--- Begins to close it: what is left goes out until a time, and what comes in is ignored. Closed at
-- once, it might take the last answer from the other side.
function Connection:leave(deadline)
    self.leaving = self.leaving or deadline
    if self.output == "" then self.socket:shutdown("send") end
end

--- Whether something is to be read from it: not before the other side has taken its answers.
function Connection:listens()
    if self.ended or self.held then return false end
    return self.leaving ~= nil or self.output == ""
end

--- Takes what has arrived.
function Connection:receive()
    if not self.input:fill() then self.ended = true end
    if self.leaving then self.input:clear() end
end

--- The next line to answer; nil where there is none, or not yet; nil and true when it is too long.
function Connection:next_line()
    if self.leaving or self.held or self.broken or self.output ~= "" then return nil end
    local line, too_long = self.input:next()
    if line or too_long then self.count = self.count + 1 end
    return line, too_long
end

--- Whether nothing is left to do but to close it. Every line that has come was asked for before.
function Connection:finished()
    return self.broken or (self.ended and self.output == "" and not self.held)
end

return connection
