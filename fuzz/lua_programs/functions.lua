-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Finds every function that a script can reach: walks the globals, the loaded modules and the
-- metatables of all kinds of object. Returns the Lua expressions of the functions, those of the
-- tables on the way, and for each function the kind of value that it works on, if it is a method.
-- The expressions find the objects in the table Sample.
local samples, kinds = {
    -- name, expression, kind of value
    { "text", "''", "format" },
    { "file", "io.stdout", "open file" },
    { "hooks", "RadioHooks()", "hooks" },
    { "master", "socket.tcp()", "master socket" },
    { "server", "(function() local s = socket.tcp() s:bind('127.0.0.1', 0) s:listen() return s end)()",
        "server socket" },
    { "udp", "socket.udp()", "udp socket" },
    { "connected", "(function() local s = socket.udp() s:setpeername('127.0.0.1', 9) return s end)()",
        "connected udp socket" },
    { "iterator", "(ipairs({}))" },
    { "matches", "string.gmatch('abc', '.')" },
    { "lines", "io.lines('/dev/null')" },
    { "coroutine", "coroutine.wrap(function(...) while true do coroutine.yield(...) end end)" },
    { "try", "socket.newtry(function() end)" },
    { "protected", "socket.protect(function(...) return ... end)" },
    { "loader", "package.loaders[5]('socket')" },
}, {}

local setup = { "local Sample = {" }
for _, sample in ipairs(samples) do
    setup[#setup + 1] = ("%s = %s,"):format(sample[1], sample[2])
end
setup[#setup + 1] = "}\n"
setup[#setup + 1] = [[
Sample.client = (function()
    local s = socket.tcp()
    local _, port = Sample.server:getsockname()
    s:connect("127.0.0.1", port)
    return s
end)()
]]
setup = table.concat(setup)

local functions, tables, seen = {}, {}, {}

local function byText(a, b)
    return tostring(a) < tostring(b)
end

local function field(expression, key)
    if type(key) == "string" and key:find("^[%a_][%w_]*$") then
        return expression .. "." .. key
    end
    return ("%s[%s]"):format(expression, type(key) == "string" and ("%q"):format(key) or tostring(key))
end

local function visit(value, expression, kind)
    if type(value) == "function" and not seen[value] then
        seen[value] = true
        functions[#functions + 1] = expression
        kinds[#functions] = kind
    elseif type(value) == "table" and not seen[value] then
        seen[value] = true
        tables[#tables + 1] = expression
        local keys = {}
        for key in pairs(value) do
            keys[#keys + 1] = key
        end
        table.sort(keys, byText)
        for _, key in ipairs(keys) do
            visit(value[key], field(expression, key), kind)
        end
        visit(getmetatable(value), ("getmetatable(%s)"):format(expression), kind)
    end
end

-- The order gives names: a function is named where it is first met.
local Sample = assert(loadstring(setup .. "return Sample"))()
seen[_G] = true
for _, library in ipairs {
    { "radio" }, { "radioNative" }, { "radioInternal" }, { "bit" }, { "coroutine", "fresh thread" },
    { "io" }, { "math" }, { "os" }, { "socket" }, { "string", "format" }, { "table", "list" },
    { "package" },
} do
    visit(_G[library[1]], library[1], library[2])
end
for _, sample in ipairs(samples) do
    local name = "Sample." .. sample[1]
    visit(Sample[sample[1]], name)
    visit(getmetatable(Sample[sample[1]]), ("getmetatable(%s)"):format(name), sample[3])
end
visit(getmetatable(Sample.client), "getmetatable(Sample.client)", "client socket")
seen[_G] = nil
visit(_G, "_G")

return setup, functions, tables, kinds
