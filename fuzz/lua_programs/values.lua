-- SPDX-License-Identifier: LicenseRef-Proprietary
-- The kinds of value that programs pass: returns their names, and for each a function that makes a
-- new one. A program may have changed every table by then, so nothing is looked up in one.
local makePointer, makePacked, typeNames = ...

local error, getmetatable, newproxy, pcall, rawset, setmetatable, unpack =
    error, getmetatable, newproxy, pcall, rawset, setmetatable, unpack
local collectgarbage, loadstring, print = collectgarbage, loadstring, print
local create, resume, running, wrap, yield =
    coroutine.create, coroutine.resume, coroutine.running, coroutine.wrap, coroutine.yield
local concat, rep = table.concat, string.rep
local char = string.char
local open, popen, stdout = io.open, io.popen, io.stdout
local radioOpen, radioClose = radioNative.radioOpen, radioNative.radioClose
local getNames, getTemperature, RadioHooks = radioGetDriverNames, radioGetTemperature, RadioHooks
local tcp, udp = socket.tcp, socket.udp

local names, makers = {}, {}

local function kind(name, make)
    names[#names + 1] = name
    makers[#makers + 1] = make
end

local function constant(name, value)
    kind(name, function() return value end)
end

-- Of these there is one kind each, and a maker that is asked for another value each time.
for _, number in ipairs {
    "0", "-0", "1", "-1", "2", "0.5", "-0.5", "2.9", "2^15", "-2^15", "2^16", "2^31-1", "2^31",
    "2^31+1", "-2^31", "-2^31-1", "2^32-1", "2^32", "2^32+1", "2^53", "2^63", "-2^63", "1e308",
    "-1e308", "1/0", "-1/0", "0/0", "5e-324",
} do
    constant(number, loadstring("return " .. number)())
end

local all = {}
for byte = 0, 255 do
    all[#all + 1] = char(byte)
end
for name, text in pairs { -- in no order, so they are sorted below
    ["''"] = "", ["'5'"] = "5", ["'-1'"] = "-1", ["'0x10'"] = "0x10", ["' 12 '"] = " 12 ",
    ["'1e308'"] = "1e308", ["'nan'"] = "nan", ["zero byte"] = "a\0b", ["all bytes"] = concat(all),
    ["long text"] = rep("a", 100000), ["field"] = "malloc", ["format"] = "%d %5.2f %q %s %c",
    ["pattern"] = "(.-)%f[%w](a*)%1", ["mode"] = "rw", ["all of it"] = "*a",
    ["compiled code"] = "\27Lua", ["file name"] = "file", ["host"] = "127.0.0.1",
    ["option"] = "tcp-nodelay", ["module"] = "socket", ["code"] = "return ...",
} do
    all[name] = text
end
for _, name in ipairs {
    "''", "'5'", "'-1'", "'0x10'", "' 12 '", "'1e308'", "'nan'", "zero byte", "all bytes",
    "long text", "field", "format", "pattern", "mode", "all of it", "compiled code", "file name",
    "host", "option", "module", "code",
} do
    constant(name, all[name])
end

kind("nothing", false) -- a call with fewer arguments
constant("nil", nil)
constant("true", true)
constant("false", false)

-- Not without end: a collection takes long, and some functions call until there is an end.
local collections = 0
local function collect()
    collections = collections + 1
    if collections < 100 then
        collectgarbage()
    end
    return 1
end

-- What happens in metamethods, functions and finalisers.
local effects = {
    { "raises", function() error("raised") end },
    { "raises a table", function() error {} end },
    { "yields", function(...) return yield(...) end },
    { "changes it", function(object)
        for key = 1, 40 do
            pcall(rawset, object, key, key)
        end
        for key = 5, 40 do
            pcall(rawset, object, key, nil)
        end
        return 7
    end },
    { "closes the radio", function() pcall(radioClose) return 3 end },
    { "opens the radio", function() radioOpen() return "4" end },
    { "collects", collect },
    { "gives itself", function(object) return object end },
}

local events = {
    "__index", "__newindex", "__call", "__add", "__sub", "__mul", "__div", "__mod", "__pow", "__unm",
    "__concat", "__len", "__eq", "__lt", "__le", "__tostring", "__gc", "getfd", "dirty",
}

local function addEvents(metatable, effect)
    for event = 1, #events do
        metatable[events[event]] = effect
    end
    return metatable
end

-- Tables.
kind("empty table", function() return {} end)
kind("list", function() return { 1, 2, 3 } end)
kind("list of texts", function() return { "a", "b", "3" } end)
kind("long list", function()
    local list = {}
    for i = 1, 3000 do
        list[i] = i
    end
    return list
end)
kind("sparse list", function() return { 1, nil, 3, [2 ^ 31] = 1, [-1] = 1, [0.5] = 2, x = 3 } end)
kind("list of itself", function()
    local list = {}
    list[1], list[2], list.x = list, list, list
    return list
end)
kind("weak table", function() return setmetatable({ {}, {} }, { __mode = "kv" }) end)
kind("date", function() return { year = 2026, month = 1e308, day = "1", hour = -2 ^ 31 } end)
kind("chain of tables", function()
    local chain = {}
    for _ = 1, 150 do
        chain = setmetatable({}, { __index = chain, __newindex = chain })
    end
    return chain
end)
constant("_G", _G)
constant("radio", radio)
constant("radio's metatable", getmetatable(radio))
constant("hooks' metatable", getmetatable(RadioHooks()))
constant("files' metatable", getmetatable(stdout))
for _, effect in ipairs(effects) do
    kind("table " .. effect[1], function()
        return setmetatable({ 1, 2 }, addEvents({}, effect[2]))
    end)
end

-- Functions.
kind("Lua function", function() return function(...) return ... end end)
for _, effect in ipairs(effects) do
    constant("function " .. effect[1], effect[2])
end
local numbers = {}
for i = 1, 3000 do
    numbers[i] = i
end
constant("many results", function() return unpack(numbers, 1, 3000) end)
constant("C function", print)
constant("driver function", getTemperature)
local function pause(...)
    return yield(...)
end
kind("coroutine function", function() return wrap(pause) end)

-- Threads.
kind("fresh thread", function() return create(pause) end)
kind("suspended thread", function()
    local thread = create(pause)
    resume(thread)
    return thread
end)
kind("dead thread", function()
    local thread = create(effects[1][2])
    resume(thread)
    return thread
end)
kind("running thread", function() return (running()) or create(pause) end)

-- Files.
local closeFile = getmetatable(stdout).__index.close
kind("open file", function() return (open("file", "w+")) end)
kind("closed file", function()
    local file = open("file", "w")
    pcall(closeFile, file)
    return file
end)
constant("standard file", stdout)
kind("pipe", function() return (popen("true")) end)

-- Sockets.
local tcpMethods, udpMethods = getmetatable(tcp()).__index, getmetatable(udp()).__index
local bind, connect, listen = tcpMethods.bind, tcpMethods.connect, tcpMethods.listen
local close, getsockname = tcpMethods.close, tcpMethods.getsockname
local closeUdp, connectUdp = udpMethods.close, udpMethods.setpeername

local function server()
    local socket = tcp()
    bind(socket, "127.0.0.1", 0)
    listen(socket, 32)
    return socket
end

kind("master socket", function() return (tcp()) end)
kind("server socket", server)
local peer, uses
kind("client socket", function()
    if uses == nil or uses > 20 then
        peer, uses = server(), 0
    end
    uses = uses + 1
    local socket = tcp()
    local _, port = getsockname(peer)
    connect(socket, "127.0.0.1", port)
    return socket
end)
kind("closed socket", function()
    local socket = tcp()
    close(socket)
    return socket
end)
kind("udp socket", function() return (udp()) end)
kind("connected udp socket", function()
    local socket = udp()
    connectUdp(socket, "127.0.0.1", 9)
    return socket
end)
kind("closed udp socket", function()
    local socket = udp()
    closeUdp(socket)
    return socket
end)

-- Proxies.
kind("proxy", function() return newproxy() end)
kind("proxy with metatable", function() return newproxy(true) end)
for _, effect in ipairs(effects) do
    kind("proxy " .. effect[1], function()
        local proxy = newproxy(true)
        addEvents(getmetatable(proxy), effect[2])
        return proxy
    end)
end

-- Pointer objects.
for position = 1, #typeNames do
    kind(typeNames[position], function() return makePointer(position, false) end)
end
kind("owned _p_int", function() return makePointer(20, true) end)
kind("packed", makePacked)
kind("driver names", function()
    local _, driverNames = pcall(getNames)
    return driverNames
end)
kind("hooks", function() return RadioHooks() end)
local destruct = getmetatable(RadioHooks()).__gc
kind("released hooks", function()
    local hooks = RadioHooks()
    pcall(destruct, hooks)
    return hooks
end)
kind("twice released hooks", function()
    local hooks = RadioHooks()
    pcall(destruct, hooks)
    pcall(destruct, hooks)
    return hooks
end)
local setters = getmetatable(RadioHooks())[".set"]
local setMalloc, setFree = setters.malloc, setters.free
kind("set hooks", function()
    local hooks = RadioHooks()
    pcall(setMalloc, hooks, makePointer(19, false))
    pcall(setFree, hooks, makePointer(18, false))
    return hooks
end)

return names, makers
