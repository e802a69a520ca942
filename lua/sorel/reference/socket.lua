-- SPDX-License-Identifier: LicenseRef-Proprietary
local sockets = require "sorel.reference.sockets"

local LATER = " Not in LuaSocket 2.0.2."
local HOST = { name = "host", type = "string", text = "a name or an address" }
local PORT = { name = "port", type = "number", text = "the port" }

local function socket(text)
    return {
        { name = "socket", type = text, text = "nil: failed" },
        { name = "message", type = "string", optional = true, text = "after nil, what is wrong" },
    }
end

local entries = {
    {
        name = "socket.tcp",
        text = "Makes a TCP socket for IPv4: what is then bound and listens is a server, what is "
            .. "connected a client.",
        results = socket "tcp",
        example = "local client = assert(socket.tcp())\nclient:settimeout(5)",
    },
    {
        name = "socket.udp",
        text = "Makes a UDP socket for IPv4.",
        results = socket "udp",
        example = "local radio_log = assert(socket.udp())",
    },
    {
        name = "socket.tcp4",
        text = "The same as socket.tcp." .. LATER,
        results = socket "tcp",
        example = "print(socket.tcp4())",
    },
    {
        name = "socket.udp4",
        text = "The same as socket.udp." .. LATER,
        results = socket "udp",
        example = "print(socket.udp4())",
    },
    {
        name = "socket.tcp6",
        text = "Makes a TCP socket for IPv6." .. LATER,
        results = socket "tcp",
        example = "print(socket.tcp6())",
    },
    {
        name = "socket.udp6",
        text = "Makes a UDP socket for IPv6." .. LATER,
        results = socket "udp",
        example = "print(socket.udp6())",
    },
    {
        name = "socket.connect",
        text = "Makes a TCP socket and connects it." .. LATER,
        arguments = {
            { name = "host", type = "string", text = "a name or an address" },
            PORT,
            { name = "local_host", type = "string", optional = true, text = "the own address" },
            { name = "local_port", type = "number", optional = true, text = "the own port" },
            { name = "family", type = "string", optional = true, text = '"inet" or "inet6"' },
        },
        results = socket "tcp",
        example = "print(socket.connect(server:getsockname()))",
    },
    {
        name = "socket.select",
        text = "Waits until sockets can be read from or written to.",
        arguments = {
            { name = "readers", type = "table", optional = true,
                text = "a list of sockets to read from, or nil" },
            { name = "writers", type = "table", optional = true,
                text = "a list of sockets to write to, or nil" },
            { name = "timeout", type = "number", unit = "s", optional = true,
                text = "how long at most; without it for ever" },
        },
        results = {
            { name = "readable", type = "table",
                text = "a list of those that can be read from, with the sockets as keys too" },
            { name = "writable", type = "table", text = "likewise those that can be written to" },
            { name = "message", type = "string", optional = true,
                text = '"timeout" when none can' },
        },
        example = "local readable = socket.select({ client }, nil, 0.1)\nprint(#readable)  --> 0",
    },
    {
        name = "socket.sleep",
        text = "Waits. The radio's controls go on meanwhile.",
        arguments = { { name = "time", type = "number", unit = "s", text = "how long" } },
        errors = { "an argument that is no number" },
        example = "socket.sleep(0.01)",
    },
    {
        name = "socket.gettime",
        text = "The time of the machine's clock, with fractions.",
        results = { { name = "time", type = "number", unit = "s", text = "since 1970" } },
        example = "local start = socket.gettime()\nprint(socket.gettime() - start)",
    },
    {
        name = "socket.newtry",
        text = "Makes a function that hands its arguments on, unless the first is nil or false: "
            .. "then it calls the finaliser and raises the second, for socket.protect to catch.",
        arguments = { { name = "finaliser", type = "function", optional = true,
            text = "what tidies up" } },
        results = { { name = "try", type = "function", text = "that function" } },
        example = "local try = socket.newtry(function() client:close() end)\n"
            .. "print(try(7))  --> 7",
    },
    {
        name = "socket.protect",
        text = "Makes a function that calls another, and returns nil and the message where that "
            .. "raises what a function of socket.newtry raises, or any table.",
        arguments = { { name = "action", type = "function", text = "what to call" } },
        results = { { name = "protected", type = "function", text = "that function" } },
        example = "local ask = socket.protect(function() error { \"no answer\" } end)\n"
            .. "print(ask())  --> nil no answer",
    },
    {
        name = "socket.skip",
        text = "Drops the first of its arguments.",
        arguments = {
            { name = "count", type = "number", text = "how many of those that follow" },
            { name = "...", type = "any", optional = true, text = "what to drop from" },
        },
        results = { { name = "...", type = "any", optional = true, text = "the rest" } },
        errors = { "a count that is no number" },
        example = 'print(socket.skip(1, "dropped", "kept"))  --> kept',
    },
    {
        name = "socket.__unload",
        text = "Does what is to be done before the library is unloaded. On Linux nothing.",
        example = "socket.__unload()",
    },
    {
        name = "socket.dns.toip",
        text = "The IPv4 address of a host.",
        arguments = { HOST },
        results = {
            { name = "address", type = "string", text = "nil: failed" },
            { name = "details", type = "any", optional = true,
                text = "a table with the lists alias and ip, and name; after nil the message" },
        },
        example = 'print((socket.dns.toip("127.0.0.1")))',
    },
    {
        name = "socket.dns.tohostname",
        text = "The name of a host.",
        arguments = { HOST },
        results = {
            { name = "name", type = "string", text = "nil: failed" },
            { name = "details", type = "any", optional = true,
                text = "a table with the lists alias and ip, and name; after nil the message" },
        },
        example = 'print((socket.dns.tohostname("127.0.0.1")))',
    },
    {
        name = "socket.dns.gethostname",
        text = "The name of this machine.",
        results = { { name = "name", type = "string", text = "the name" } },
        example = "print(socket.dns.gethostname())",
    },
    {
        name = "socket.dns.getaddrinfo",
        text = "The addresses of a host." .. LATER,
        arguments = { HOST },
        results = {
            { name = "addresses", type = "table",
                text = "a list of tables with family and addr; nil: failed" },
            { name = "message", type = "string", optional = true, text = "after nil" },
        },
        example = 'print(socket.dns.getaddrinfo("127.0.0.1")[1].addr)  --> 127.0.0.1',
    },
    {
        name = "socket.dns.getnameinfo",
        text = "The names of an address and of the service at a port." .. LATER,
        arguments = {
            HOST,
            { name = "port", type = "string", optional = true, text = "a number or a service" },
        },
        results = {
            { name = "names", type = "table", text = "a list; nil: failed" },
            { name = "service", type = "string", optional = true,
                text = "the service; after nil the message" },
        },
        example = 'print(socket.dns.getnameinfo("127.0.0.1", "80"))',
    },
    {
        name = "socket.dns", value = "table",
        text = "The functions that look names and addresses up.",
        example = "print(socket.dns.gethostname())",
    },
    {
        name = "socket._VERSION", value = "string",
        text = "The interface that scripts are promised: LuaSocket 2.0.2. What is linked is named "
            .. "by sorelapp -v.",
        example = "print(socket._VERSION)  --> LuaSocket 2.0.2",
    },
    {
        name = "socket._SETSIZE", value = "number",
        text = "How many sockets socket.select takes." .. LATER,
        example = "print(socket._SETSIZE)",
    },
    {
        name = "socket._DATAGRAMSIZE", value = "number",
        text = "How many bytes udp:receive reads at most when it is not told." .. LATER,
        example = "print(socket._DATAGRAMSIZE)",
    },
    {
        name = "socket._SOCKETINVALID", value = "number",
        text = "What getfd gives of a closed socket." .. LATER,
        example = "print(socket._SOCKETINVALID)",
    },
}
for _, entry in ipairs(sockets.tcp()) do entries[#entries + 1] = entry end
for _, entry in ipairs(sockets.udp()) do entries[#entries + 1] = entry end

return {
    name = "socket",
    title = "TCP, UDP, names of hosts, waiting (the core of LuaSocket 2.0.2)",
    text = "What fails raises nothing: functions return nil and a message, and assert makes an "
        .. "error of that. Methods are called with a colon. Without settimeout they wait for "
        .. "ever.",
    prepare = [[
server = assert(socket.tcp())
assert(server:bind("127.0.0.1", 0))
assert(server:listen())
client = assert(socket.tcp())
assert(client:connect(server:getsockname()))
receiver = assert(socket.udp())
assert(receiver:setsockname("127.0.0.1", 0))
sender = assert(socket.udp())
assert(sender:sendto("rtwp?", receiver:getsockname()))]],
    entries = entries,
}
