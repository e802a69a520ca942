-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The other side of sorel.remote: a table of functions that are called on a server's board.

local clock = require "sorel.remote.clock"
local keys = require "sorel.internal.keys"
local lines = require "sorel.remote.lines"
local nearest = require "sorel.internal.nearest"
local protocol = require "sorel.remote.protocol"
local text = require "sorel.internal.text"

local client = {}

-- An error of the connection, not of the board.
local function fail(self, what)
    error(("remote: %s:%.0f: %s"):format(self.host, self.port, what), 0)
end

-- An error after which the connection is of no use: every later call raises it again.
local function give_up(self, what)
    self.socket:close()
    self.over = what
    fail(self, what)
end

local function next_line(self)
    local line, too_long = self.input:next()
    if too_long then
        give_up(self, ("a line of more than %d bytes has come"):format(protocol.LINE))
    end
    return line
end

-- The next line, waited for.
local function receive(self)
    local deadline = clock.now() + self.timeout
    while true do
        local line = next_line(self)
        if line then return line end
        local left = deadline - clock.now()
        if left <= 0 then
            give_up(self, ("no answer within %s s, so the connection was closed"):format(
                text.number(self.timeout)))
        end
        if socket.select({ self.socket }, nil, left)[1] and not self.input:fill() then
            -- What has come before the end may be why.
            line = next_line(self)
            if line then return line end
            give_up(self, "the connection was lost")
        end
    end
end

-- What a line says that the server has sent before it closes, or in answer.
local function understood(self, line)
    local verb, content, count = protocol.answer(line)
    if not verb then give_up(self, "the answer is malformed: " .. content) end
    if verb == "refused" then fail(self, content) end
    return verb, content, count
end

-- The answer to a request. A text that the server has sent unasked is why it closes.
local function ask(self, request)
    if self.over then fail(self, self.over) end
    local open = self.input:fill()
    local unasked = next_line(self)
    if unasked then understood(self, unasked) end
    if not open or unasked then give_up(self, "the connection was lost") end
    self.socket:settimeout(self.timeout)
    local sent = self.socket:send(request .. "\n")
    self.socket:settimeout(0)
    if not sent then give_up(self, "the connection was lost") end
    return understood(self, receive(self))
end

-- What the server knows of a userdata is only that it is one.
local function with_type(message, name, ...)
    local head, place = message:match("^(Error in " .. name
        .. " %(arg (%d+)%), expected '[^']*' got ')userdata %(unknown type%)'$")
    local value = place and select(tonumber(place), ...)
    if type(value) ~= "userdata" then return message end
    return head .. swig_type(value) .. "'"
end

local function caller(self, name)
    return function(...)
        local request = protocol.call(name, ...)
        if not request then
            fail(self, ("the arguments of %s() are more than a line of %d bytes, or %d values")
                :format(name, protocol.LINE, protocol.VALUES))
        end
        local verb, content, count = ask(self, request)
        if verb == "error" then error(with_type(content, name, ...), 0) end
        return unpack(content, 1, count)
    end
end

local function refuser(self, name, reason)
    return function()
        fail(self, ("%s() is not offered: %s"):format(name, reason))
    end
end

-- What is there besides the radio's functions and constants. Being in no field of the table, it is
-- not met by a script that copies that.
local function extras(self)
    local more = {}

    function more.ping()
        ask(self, "ping")
    end

    function more.close()
        if self.over then return end
        local verb, content = ask(self, "close")
        self.socket:close()
        self.over = "the connection was closed"
        if verb == "error" then fail(self, content) end
    end

    return more
end

-- The table that a script gets.
local function board_of(self, functions, constants)
    local board = {}
    for _, name in ipairs(functions) do
        board[name] = caller(self, name)
    end
    for place = 1, #constants, 2 do
        board[constants[place]] = constants[place + 1]
    end
    for name, reason in pairs(protocol.withheld) do
        board[name] = refuser(self, name, reason)
    end
    local names = keys.sorted(board)
    local more = extras(self)
    return setmetatable(board, { __index = function(_, name)
        if more[name] then return more[name] end
        local meant = type(name) == "string" and nearest.name(names, name, "radio") or nil
        error(("remote: %s:%.0f: there is no %s%s"):format(self.host, self.port, tostring(name),
            nearest.suggestion(meant)), 2)
    end })
end

-- Whether a server's list can be taken: what goes by other names than the radio's is no part of it.
local function check_list(self, content, count)
    local functions, constants = content[1], content[2]
    local right = count == 2 and type(functions) == "table" and type(constants) == "table"
        and #constants % 2 == 0
    for _, name in ipairs(right and functions or {}) do
        right = right and tostring(name):find("^radio%u%w*$")
    end
    for place, value in ipairs(right and constants or {}) do
        local fits = type(value) == "number"
        if place % 2 == 1 then fits = tostring(value):find("^RADIO_[%u%d_]+$") end
        right = right and fits
    end
    if not right then give_up(self, "what the server offers is malformed") end
    return functions, constants
end

local function greet(self, token)
    local line = receive(self)
    local version = protocol.greeted(line)
    if not version then
        understood(self, line)
        fail(self, "it greets like no server of sorel.remote")
    end
    if version ~= protocol.VERSION then
        fail(self, ("the server speaks version %.0f of the protocol, and only version %d is spoken "
            .. "here"):format(version, protocol.VERSION))
    end
    ask(self, protocol.hello(token))
end

--- A connection to a server.
-- @param options those of remote.connect(), checked
-- @return the table of its functions and constants
function client.new(options)
    local self = { host = options.host, port = options.port, timeout = options.timeout,
        socket = socket.tcp() }
    self.socket:settimeout(options.timeout)
    local connected, message = self.socket:connect(options.host, options.port)
    if not connected then give_up(self, message) end
    self.socket:setoption("tcp-nodelay", true)
    self.input = lines.reader(self.socket, protocol.LINE)
    local function set_up()
        greet(self, options.token)
        local _, content, count = ask(self, "list")
        return board_of(self, check_list(self, content, count))
    end
    local succeeded, result = pcall(set_up)
    if succeeded then return result end
    self.socket:close()
    error(result, 0)
end

return client
