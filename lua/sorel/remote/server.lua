-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The server of sorel.remote: connections, their limits, and the dead man's switch.

local answers = require "sorel.remote.answers"
local clock = require "sorel.remote.clock"
local connection = require "sorel.remote.connection"
local protocol = require "sorel.remote.protocol"
local text = require "sorel.internal.text"
local transmitter = require "sorel.transmitter"
local watch = require "sorel.remote.watch"

local server = {}

-- In seconds: until a new connection has to have said hello, until a wrong token is answered, how
-- long a connection that is closed may take to read what was said to it, and after which a radio
-- that could not be switched off is tried again.
local HELLO = 10
local WRONG_TOKEN = 1
local LEAVING = 2
local AGAIN = 1

local Server = {}
Server.__index = Server

--- A server that listens.
-- @param options those of remote.listen(), checked
-- @error the address cannot be listened on
function server.new(options)
    local listener = socket.tcp()
    listener:setoption("reuseaddr", true)
    local bound, message = listener:bind(options.host, options.port)
    if bound then bound, message = listener:listen(options.connections) end
    if not bound then
        listener:close()
        error(("remote: cannot listen on %s:%.0f: %s"):format(options.host, options.port, message),
            0)
    end
    listener:settimeout(0)
    local host, port = listener:getsockname()
    local self = setmetatable({
        host = host,
        port = tonumber(port),
        options = options,
        listener = listener,
        members = {},   -- the connections, in the order in which they were made
        blocked = 0,    -- seconds that passed in the driver, which count for no limit
        watch = watch.new(),
        offered = answers.offered(),
        greetings = 0,  -- how many connections have said hello
    }, Server)
    self:log(("listening on %s:%.0f"):format(self.host, self.port))
    return self
end

function Server:log(line)
    if self.options.log then self.options.log(line) end
end

--- The time that all limits are measured by.
function Server:time()
    return clock.now() - self.blocked
end

--- Calls a function, whose duration counts for no limit.
function Server:beyond_time(action, ...)
    local before = clock.now()
    local function done(...)
        self.blocked = self.blocked + clock.now() - before
        return ...
    end
    return done(action(...))
end

--- How many connections have said hello and are not closed.
function Server:connections()
    local count = 0
    for _, member in ipairs(self.members) do
        if member.greeted then count = count + 1 end
    end
    return count
end

--- Switches the transmitters off, and tells all that answered for them at their next request.
-- @param reason why, for the log and for them
-- @return whether that has succeeded; if not, it is tried again
function Server:switch_off(reason)
    local off, message = self:beyond_time(transmitter.off)
    local outcome = "the transmitter was switched off, all paths are selected"
    if not off then
        outcome = "the transmitter may still be on: " .. tostring(message)
    elseif message == "reset" then
        outcome = "the radio refused to switch the transmitter off and was reset"
    end
    local news = reason .. ": " .. outcome
    self:log(news)
    for _, member in ipairs(self.members) do
        if self.watch:answers(member) then member.news = news end
    end
    self.watch = watch.new()
    if off then self.watch:all_off() end
    self.again = not off and self:time() + AGAIN or nil
    return off, news
end

-- The dead man's switch, for a connection that can no longer be heard.
function Server:lose(member, reason)
    if self.options.deadman and self.watch:answers(member) then
        self:switch_off(member.name .. " " .. reason)
    end
end

function Server:drop(member)
    member.socket:close()
    for place, one in ipairs(self.members) do
        if one == member then table.remove(self.members, place) end
    end
    if member.greeted then self:log(member.name .. " is gone") end
    self:lose(member, "is gone")
end

--- Closes a connection, once it was told why.
function Server:dismiss(member, why)
    member.held = nil
    member:say(protocol.refused(why))
    member:leave(self:time() + LEAVING)
    self:lose(member, "was dismissed, " .. why)
end

--- Lets a connection wait before it is told that its token is wrong.
function Server:hold(member)
    self:log(member.name .. " gave a wrong token")
    member.held = self:time() + WRONG_TOKEN
end

--- Lets a connection end in good order: what it switched on goes off before it is told.
function Server:part(member)
    local off, news = true, nil
    if self.options.deadman and self.watch:answers(member) then
        off, news = self:switch_off(member.name .. " has closed")
    end
    member:say(off and protocol.ok() or protocol.error(news))
    member:leave(self:time() + LEAVING)
end

function Server:accept()
    local accepted = self.listener:accept()
    if not accepted then return end
    local member = connection.new(accepted, self:time())
    if #self.members >= self.options.connections then
        member:say(protocol.refused(("all %d connections are taken"):format(#self.members)))
        accepted:close()
        return
    end
    self.members[#self.members + 1] = member
    member:say(protocol.greeting())
end

-- What becomes of a connection from which nothing more comes: when, and a function that does it.
function Server:due(member)
    if member.leaving then return member.leaving, Server.drop end
    if member.held then
        return member.held, function() self:dismiss(member, "the token is wrong") end
    end
    local options = self.options
    if options.deadman and options.silence <= options.idle and self.watch:answers(member) then
        return member.last + options.silence, function()
            self:lose(member, ("was silent for %s s"):format(text.number(options.silence)))
        end
    end
    local patience = member.greeted and options.idle or math.min(options.idle, HELLO)
    return member.last + patience, function()
        self:dismiss(member, ("there was no request for %s s"):format(text.number(patience)))
    end
end

-- How long to wait at most.
function Server:patience(seconds)
    local now = self:time()
    local earliest = self.again or math.huge
    for _, member in ipairs(self.members) do earliest = math.min(earliest, (self:due(member))) end
    -- The clock's step is added, so that what is due is over then.
    return math.max(0, math.min(seconds, earliest - now + 0.01))
end

function Server:answer_lines(member)
    repeat
        local line, too_long = member:next_line()
        if too_long then
            self:dismiss(member, ("line %.0f has more than %d bytes"):format(member.count,
                protocol.LINE))
        elseif line then
            answers.answer(self, member, line)
        end
    until not line
end

function Server:check_time(member)
    local at, act = self:due(member)
    if self:time() >= at then act(self, member) end
end

local function step(self, seconds)
    local reading, writing = { self.listener }, {}
    for _, member in ipairs(self.members) do
        if member:listens() then reading[#reading + 1] = member.socket end
        if member.output ~= "" then writing[#writing + 1] = member.socket end
    end
    local readable, writable = socket.select(reading, writing, self:patience(seconds))
    if readable[self.listener] then self:accept() end
    for _, member in ipairs { unpack(self.members) } do
        if writable[member.socket] then member:flush() end
        if readable[member.socket] then member:receive() end
        self:answer_lines(member)
        if member:finished() then
            self:drop(member)
        else
            self:check_time(member)
        end
    end
    if self.again and self:time() >= self.again then self:switch_off("once more") end
end

--- Waits until something comes, but no longer than some seconds, and answers it. Limits are only
-- looked after in here: it has to be called often, once a second or more. An error switches the
-- transmitter off.
function Server:step(seconds)
    if type(seconds) ~= "number" or seconds ~= seconds then
        error("server:step: seconds: a number is expected", 2)
    end
    transmitter.guarded(step, self, seconds)
end

--- Whether there were connections, and nothing is left to do.
function Server:is_over()
    return self.greetings > 0 and self:connections() == 0 and not self.again
end

local function close(self)
    self.listener:close()
    while self.members[1] do self:drop(self.members[1]) end
end

--- Closes all connections, as if the other sides had, and listens no more. An error, of the log's
-- for instance, switches the transmitter off.
function Server:close()
    transmitter.guarded(close, self)
end

return server
