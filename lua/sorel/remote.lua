-- SPDX-License-Identifier: LicenseRef-Proprietary
--- A board driven from another machine over TCP. docs/remote.md tells what is safe, and documents
-- the protocol.
--
--     require("sorel.remote").serve { port = 4400 }            -- on the board
--
--     local remote = require "sorel.remote"                    -- on the PC
--     local board = remote.connect { port = 4400 }
--     board.radioSetTxFrequency(2655000000)
--     print(board.radioGetTemperature())
--     board.close()

local check = require "sorel.internal.check"
local client = require "sorel.remote.client"
local server = require "sorel.remote.server"
local text = require "sorel.internal.text"

local remote = {}

local SHORTEST_TOKEN = 16

local function token(given)
    if #given >= SHORTEST_TOKEN then return given end
    return nil, ("it has %d characters, and %d are the least; `openssl rand -hex 16` makes one")
        :format(#given, SHORTEST_TOKEN)
end

local function above_zero(number)
    if number > 0 then return number end
    return nil, text.number(number) .. " is not above 0"
end

local function seconds(key, default)
    return { key, type = "number", check = above_zero, default = default }
end

local LISTEN = {
    { "host", type = "string", default = "127.0.0.1" },
    { "port", type = "number", integer = true, least = 0, most = 65535, default = 0 },
    { "token", type = "string", check = token },
    { "connections", type = "number", integer = true, least = 1, most = 64, default = 8 },
    seconds("idle", 600),
    { "deadman", type = "boolean", default = true },
    seconds("silence", 5),
    { "log", type = "function" },
}

local SERVE = { { "once", type = "boolean", default = false }, unpack(LISTEN) }

local CONNECT = {
    { "host", type = "string", default = "127.0.0.1" },
    { "port", type = "number", integer = true, least = 1, most = 65535, required = true },
    { "token", type = "string" },
    seconds("timeout", 30),
}

local function is_local(host)
    local parts = { host:match("^127%.(%d+)%.(%d+)%.(%d+)$") }
    for _, part in ipairs(parts) do
        if tonumber(part) > 255 then return false end
    end
    return #parts == 3
end

-- The options of a server, checked; an error is raised at the level of the caller's caller.
local function listening(subject, options, rules)
    local values, mistakes = check.fields(options or {}, rules)
    -- Not left to the name service, which might know another address.
    if values.host == "localhost" then values.host = "127.0.0.1" end
    if values.host and not is_local(values.host) and type(options.token) ~= "string" then
        mistakes[#mistakes + 1] = ("token: is missing; without one a server only listens on "
            .. "127.0.0.1, not on %s"):format(values.host)
    end
    check.raise(subject, mistakes, 3)
    return values
end

local function print_line(line)
    io.stdout:write(line, "\n")
    io.stdout:flush()
end

--- Listens, for a script that does something of its own in between.
-- @param options a table, or nil, of
--   host         the address to listen on, "127.0.0.1"; another than 127.x.x.x needs a token
--   port         0: one that the system chooses
--   token        a text of at least 16 characters that every client has to give
--   connections  how many there may be at once, 8
--   idle         seconds without a request after which a connection is closed, 600
--   deadman      whether the transmitter goes off when the connection that switched it on ends or
--                falls silent, true
--   silence      after how many seconds it has, 5
--   log          a function that gets a line for each event; nil for none
-- @return an object with the fields `host` and `port`, and the methods `step(seconds)`, which waits
-- that long at most for something to answer, and has to be called again and again; `connections()`,
-- how many there are; and `close()`
-- @error an option that is wrong; an address that cannot be listened on
function remote.listen(options)
    return server.new(listening("remote.listen", options, LISTEN))
end

--- Serves until the process ends. An error switches the transmitter off.
-- @param options those of remote.listen(); `log` is standard output where it is nil; and
--   once         whether to return when there is no connection any more, after there was one; false
-- @error as remote.listen()
function remote.serve(options)
    local values = listening("remote.serve", options, SERVE)
    values.log = values.log or print_line
    local serving = server.new(values)
    repeat serving:step(60) until values.once and serving:is_over()
    serving:close()
end

--- Connects to a server.
-- @param options a table of
--   host     the server's name or address, "127.0.0.1"
--   port     the server's port
--   token    the server's token, if it has one
--   timeout  seconds to wait for the connection, and for each answer, 30
-- @return a table with the functions and constants of the server's radio, and with `ping()`, which
-- tells the server that this side lives, and `close()`
-- @error an option that is wrong; "remote: HOST:PORT: ..." when there is no connection, and later
-- from each function when it is lost
function remote.connect(options)
    local values, mistakes = check.fields(options or {}, CONNECT)
    check.raise("remote.connect", mistakes, 2)
    return client.new(values)
end

return remote
