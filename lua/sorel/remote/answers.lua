-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What the server of sorel.remote answers to the lines that a connection sends.

local keys = require "sorel.internal.keys"
local nearest = require "sorel.internal.nearest"
local protocol = require "sorel.remote.protocol"

local answers = {}

--- The functions of the radio that may be called, by name: the value is true.
function answers.offered()
    local offered = {}
    for name, value in pairs(radio) do
        if type(value) == "function" and name:find("^radio%u") and not protocol.withheld[name] then
            offered[name] = true
        end
    end
    return offered
end

--- Whether two texts are the same. How long that takes tells only how long the given one is.
-- @param secret not empty
function answers.same(given, secret)
    local difference = bit.bxor(#given, #secret)
    for place = 1, #given do
        local byte = secret:byte((place - 1) % #secret + 1)
        difference = bit.bor(difference, bit.bxor(given:byte(place), byte))
    end
    return difference == 0
end

local respond = {}

function respond.hello(server, member, request)
    if member.greeted then
        return member:say(protocol.refused("hello was said before"))
    end
    if request.version ~= protocol.VERSION then
        return server:dismiss(member, ("version %d of the protocol is spoken here, not %.0f")
            :format(protocol.VERSION, request.version))
    end
    local token = server.options.token
    if token and not request.token then return server:dismiss(member, "a token is needed") end
    if token and not answers.same(request.token, token) then return server:hold(member) end
    member.greeted = true
    server.greetings = server.greetings + 1
    server:log(member.name .. " is connected")
    member:say(protocol.ok())
end

-- The names of the functions; and each constant's name and value.
function respond.list(server, member)
    local constants = {}
    for name, value in pairs(radio) do
        if name:find("^RADIO_") and type(value) == "number" then constants[name] = true end
    end
    local numbers = {}
    for _, name in ipairs(keys.sorted(constants)) do
        numbers[#numbers + 1] = name
        numbers[#numbers + 1] = radio[name]
    end
    member:say(protocol.list(keys.sorted(server.offered), numbers))
end

function respond.ping(_, member)
    member:say(protocol.ok())
end

function respond.close(server, member)
    server:part(member)
end

local function why_not(server, name)
    local reason = protocol.withheld[name]
    if reason then return ("%s() is not offered: %s"):format(name, reason) end
    local meant = nearest.name(keys.sorted(server.offered), name, "radio")
    return ("there is no function %s"):format(name) .. nearest.suggestion(meant)
end

local function cannot_travel(...)
    for place = 1, select("#", ...) do
        local kind = type((select(place, ...)))
        if kind ~= "nil" and kind ~= "boolean" and kind ~= "number" and kind ~= "string" then
            return kind
        end
    end
end

-- The answer to a call that has ended like that.
local function outcome(name, succeeded, ...)
    if not succeeded then return protocol.error(tostring((...))) end
    local kind = cannot_travel(...)
    if kind then
        return protocol.refused(("%s() has returned a %s, which cannot travel"):format(name, kind))
    end
    return protocol.ok(...)
end

function respond.call(server, member, request)
    local name = request.name
    if not server.offered[name] then
        return member:say(protocol.refused(why_not(server, name)))
    end
    local function act()
        -- The global, which a script may have replaced.
        return _G[name](unpack(request.arguments, 1, request.count))
    end
    local function take_notice(succeeded, ...)
        server.watch:called(member, name, request.arguments, succeeded)
        return succeeded, ...
    end
    local answer = outcome(name, take_notice(server:beyond_time(pcall, act)))
    if #answer >= protocol.LINE then
        answer = protocol.refused(name .. "() has answered with more than a line holds")
    end
    member:say(answer)
end

--- Answers a line.
-- @param server from whom
-- @param member the connection that it came from
function answers.answer(server, member, line)
    local request, mistake = protocol.request(line)
    if not request then
        mistake = ("line %.0f, %s"):format(member.count, mistake)
        if not member.greeted then return server:dismiss(member, mistake) end
        return member:say(protocol.refused(mistake))
    end
    if not member.greeted and request.verb ~= "hello" then
        return server:dismiss(member, "hello is expected first")
    end
    member.last = server:time()
    if member.news and request.verb ~= "close" then
        member:say(protocol.refused(member.news))
        member.news = nil
        return
    end
    respond[request.verb](server, member, request)
end

return answers
