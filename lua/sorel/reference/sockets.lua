-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The methods of sockets, for the subject "socket".

local sockets = {}

local LATER = " Not in LuaSocket 2.0.2."
local HOST = { name = "host", type = "string", text = "a name or an address" }
local PORT = { name = "port", type = "number", text = "the port" }
local OWN_HOST = { name = "host", type = "string", text = [[an own address; "*" for all of them]] }
local OWN_PORT = { name = "port", type = "number", text = "the port; 0 for a free one" }
local MESSAGE = { name = "message", type = "string", optional = true,
    text = "after nil, what is wrong" }
local DONE = { { name = "done", type = "number", text = "1; nil: failed" }, MESSAGE }
local UNKNOWN_OPTION = { "an option that there is not" }

-- The address and port of an end.
local function name_of(text)
    return {
        { name = "address", type = "string", text = text .. "; nil: failed" },
        { name = "port", type = "number", text = "its port; after nil the message" },
        { name = "family", type = "string", text = [["inet" or "inet6"; not in LuaSocket 2.0.2]] },
    }
end

-- What sockets of both kinds have. `example` is the name of one of that kind.
local function common(kind, example, options)
    local function method(name, text, entry, shown)
        entry.name, entry.text = kind .. ":" .. name, text
        entry.example = shown:gsub("SOCKET", example)
        return entry
    end
    return {
        method("close", "Closes the socket.", { results = DONE }, "SOCKET:close()"),
        method("settimeout", "Says how long a method may wait.", {
            arguments = {
                { name = "time", type = "number", unit = "s", optional = true,
                    text = "0: not at all; nil or negative: for ever" },
                { name = "mode", type = "string", optional = true, default = '"b"',
                    text = [["b": for each wait of a call; "t": for the call in all]] },
            },
            results = DONE,
            errors = { "a mode that there is not" },
        }, "SOCKET:settimeout(5)"),
        method("gettimeout", "How long a method may wait." .. LATER, {
            results = {
                { name = "time", type = "number", unit = "s", text = "in mode b; -1: for ever" },
                { name = "total", type = "number", unit = "s", text = "in mode t; -1: for ever" },
            },
        }, "print(SOCKET:gettimeout())"),
        method("setoption", "Sets an option: " .. options .. " and others.", {
            arguments = {
                { name = "option", type = "string", text = "its name" },
                { name = "value", type = "any", optional = true, text = "mostly true or false" },
            },
            results = DONE,
            errors = UNKNOWN_OPTION,
        }, 'SOCKET:setoption("reuseaddr", true)'),
        method("getoption", "The value of an option." .. LATER, {
            arguments = { { name = "option", type = "string", text = "its name" } },
            results = { { name = "value", type = "any", text = "nil: failed" }, MESSAGE },
            errors = UNKNOWN_OPTION,
        }, 'print(SOCKET:getoption("reuseaddr"))'),
        method("getsockname", "The own end.", { results = name_of "the address" },
            "print(SOCKET:getsockname())"),
        method("getfamily", "The family of addresses." .. LATER, {
            results = { { name = "family", type = "string", text = [["inet4" or "inet6"]] } },
        }, "print(SOCKET:getfamily())"),
        method("getfd", "The number of the file that the socket is to the system.", {
            results = { { name = "fd", type = "number", text = "-1: closed" } },
        }, "print(SOCKET:getfd())"),
        method("setfd", "Takes another file of the system for the socket.", {
            arguments = { { name = "fd", type = "number", text = "the number of the file" } },
        }, "SOCKET:setfd(SOCKET:getfd())"),
        method("dirty", "Whether data that have been received wait in the socket, which "
            .. "socket.select knows.", {
                results = { { name = "dirty", type = "boolean", text = "true: they wait" } },
            }, "print(SOCKET:dirty())"),
        { name = kind .. ".class", value = "string", example = ("print(%s.class)"):format(example),
            text = "The kind of the socket, such as " .. kind
                .. (kind == "tcp" and "{client}." or "{connected}.") },
    }
end

-- The methods of one kind before those of both.
local function with(own, others)
    for _, entry in ipairs(others) do own[#own + 1] = entry end
    return own
end

--- Entries of TCP sockets.
function sockets.tcp()
    return with({
        {
            name = "tcp:connect",
            text = "Connects to a server; the socket is a client then.",
            arguments = { HOST, PORT }, results = DONE,
            example = "local other = assert(socket.tcp())\n"
                .. "assert(other:connect(server:getsockname()))",
        },
        {
            name = "tcp:bind",
            text = "Gives the socket an own address and port.",
            arguments = { OWN_HOST, OWN_PORT }, results = DONE,
            example = 'local other = assert(socket.tcp())\nassert(other:bind("127.0.0.1", 0))',
        },
        {
            name = "tcp:listen",
            text = "Lets clients connect to a bound socket; it is a server then.",
            arguments = { { name = "backlog", type = "number", optional = true, default = "32",
                text = "how many may wait for accept" } },
            results = DONE,
            example = 'local other = assert(socket.tcp())\nassert(other:bind("127.0.0.1", 0))\n'
                .. "assert(other:listen(1))",
        },
        {
            name = "tcp:accept",
            text = "Waits for a client to connect to the server.",
            results = { { name = "client", type = "tcp",
                text = "the connection to it; nil: failed" }, MESSAGE },
            example = "local peer = assert(server:accept())",
        },
        {
            name = "tcp:send",
            text = "Sends bytes.",
            arguments = {
                { name = "data", type = "string", text = "the bytes" },
                { name = "first", type = "number", optional = true, default = "1",
                    text = "from which on" },
                { name = "last", type = "number", optional = true, default = "the last",
                    text = "up to which" },
            },
            results = {
                { name = "last", type = "number", text = "which was sent last; nil: failed" },
                MESSAGE,
                { name = "sent", type = "number", optional = true,
                    text = "after a message, which was sent last" },
            },
            example = 'assert(client:send("rtwp?\\n"))',
        },
        {
            name = "tcp:receive",
            text = "Receives bytes.",
            arguments = {
                { name = "pattern", type = "any", optional = true, default = '"*l"',
                    text = [["*l": a line, without its end; "*a": all until the other side ]]
                        .. "closes; a number: that many bytes" },
                { name = "prefix", type = "string", optional = true,
                    text = "what to put in front" },
            },
            results = {
                { name = "data", type = "string", text = "the bytes; nil: failed" },
                MESSAGE,
                { name = "part", type = "string", optional = true,
                    text = "after a message, what had come" },
            },
            example = 'local peer = assert(server:accept())\npeer:send("-92.3\\n")\n'
                .. "print((client:receive()))  --> -92.3",
        },
        {
            name = "tcp:shutdown",
            text = "Ends a direction of a connection, or both.",
            arguments = { { name = "mode", type = "string", optional = true, default = '"both"',
                text = [["send", "receive" or "both"]] } },
            results = { { name = "done", type = "number", text = "1" } },
            errors = { "a mode that there is not" },
            example = 'client:shutdown("send")',
        },
        {
            name = "tcp:getpeername",
            text = "The other end of a connection.",
            results = name_of "the address",
            example = "print(client:getpeername())",
        },
        {
            name = "tcp:setpeername",
            text = "The same as connect.",
            arguments = { HOST, PORT }, results = DONE,
            example = "local other = assert(socket.tcp())\n"
                .. "assert(other:setpeername(server:getsockname()))",
        },
        {
            name = "tcp:setsockname",
            text = "The same as bind.",
            arguments = { OWN_HOST, OWN_PORT }, results = DONE,
            example = 'local other = assert(socket.tcp())\nassert(other:setsockname("*", 0))',
        },
        {
            name = "tcp:getstats",
            text = "How much has gone through a connection.",
            results = {
                { name = "received", type = "number", unit = "bytes", text = "received" },
                { name = "sent", type = "number", unit = "bytes", text = "sent" },
                { name = "age", type = "number", unit = "s", text = "how old the socket is" },
            },
            example = "print(client:getstats())",
        },
        {
            name = "tcp:setstats",
            text = "Lets getstats count from other values on.",
            arguments = {
                { name = "received", type = "number", unit = "bytes", optional = true,
                    default = "0", text = "received" },
                { name = "sent", type = "number", unit = "bytes", optional = true,
                    default = "0", text = "sent" },
                { name = "age", type = "number", unit = "s", optional = true, default = "0",
                    text = "how old the socket is" },
            },
            results = { { name = "done", type = "number", text = "1" } },
            example = "client:setstats()",
        },
    }, common("tcp", "client", "keepalive, linger, reuseaddr, tcp-nodelay"))
end

--- Entries of UDP sockets.
function sockets.udp()
    return with({
        {
            name = "udp:setsockname",
            text = "Gives the socket an own address and port.",
            arguments = { OWN_HOST, OWN_PORT }, results = DONE,
            example = 'local other = assert(socket.udp())\nassert(other:setsockname("*", 0))',
        },
        {
            name = "udp:sendto",
            text = "Sends a datagram from a socket that is not connected.",
            arguments = { { name = "data", type = "string", text = "its bytes" }, HOST, PORT },
            results = DONE,
            example = 'assert(sender:sendto("rtwp?", receiver:getsockname()))',
        },
        {
            name = "udp:receivefrom",
            text = "Receives a datagram and where it came from, with a socket that is not "
                .. "connected.",
            arguments = { { name = "size", type = "number", unit = "bytes", optional = true,
                text = "how much of it at most" } },
            results = {
                { name = "data", type = "string", text = "its bytes; nil: failed" },
                { name = "address", type = "string", text = "the sender's; after nil the message" },
                { name = "port", type = "number", optional = true, text = "the sender's" },
            },
            example = "print(receiver:receivefrom())",
        },
        {
            name = "udp:setpeername",
            text = "Connects the socket: it sends to one place only, and receives from there only. "
                .. [[With "*" in place of the host it is not connected any more.]],
            arguments = { HOST,
                { name = "port", type = "number", optional = true, text = "the port" } },
            results = DONE,
            example = 'assert(sender:setpeername(receiver:getsockname()))\n'
                .. 'assert(sender:send("rtwp?"))\nassert(sender:setpeername("*"))',
        },
        {
            name = "udp:send",
            text = "Sends a datagram from a connected socket.",
            arguments = { { name = "data", type = "string", text = "its bytes" } },
            results = DONE,
            example = "assert(sender:setpeername(receiver:getsockname()))\n"
                .. 'assert(sender:send("rtwp?"))',
        },
        {
            name = "udp:receive",
            text = "Receives a datagram.",
            arguments = { { name = "size", type = "number", unit = "bytes", optional = true,
                text = "how much of it at most" } },
            results = {
                { name = "data", type = "string", text = "its bytes; nil: failed" }, MESSAGE,
            },
            example = "print((receiver:receive()))  --> rtwp?",
        },
        {
            name = "udp:getpeername",
            text = "The other end of a connected socket.",
            results = name_of "the address",
            example = "assert(sender:setpeername(receiver:getsockname()))\n"
                .. "print(sender:getpeername())",
        },
    }, common("udp", "receiver", "broadcast, dontroute, reuseaddr, ip-multicast-loop"))
end

return sockets
