-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The lines that the two sides of sorel.remote exchange: docs/remote.md documents them.

local values = require "sorel.remote.values"

local protocol = {
    VERSION = 1,
    LINE = 65536, -- bytes that a line may have, with its end
    VALUES = 1000, -- values that a line may have
}

local TAKES = "it takes a native pointer"
local RETURNS = "it returns a native pointer"

--- The functions of the radio that are not offered, and why: an address means nothing elsewhere.
protocol.withheld = {
    RadioHooks = RETURNS,
    radioGetDriverNames = RETURNS,
    radioGetIntegerFromCalibration = TAKES,
    radioGetStringFromCalibration = TAKES,
    radioSetDebugFile = TAKES,
}

-- The only ones that read what is in a table.
local takes_list = { radioSetRxGainRegisters = true, radioSetTxPowerRegisters = true }

local FUNCTION = "^(radio%u%w*)()"
-- Longer than any, and short enough to look for the nearest one.
local LONGEST_NAME = 64

--- The server's first line.
function protocol.greeting()
    return ("sorel-remote %d"):format(protocol.VERSION)
end

--- The version that a greeting names; nil where the line is none.
function protocol.greeted(line)
    return tonumber(line:match("^sorel%-remote (%d+)$"))
end

local function joined(first, count, ...)
    local parts = { first }
    for place = 1, count do parts[place + 1] = values.encode((select(place, ...))) end
    return table.concat(parts, " ")
end

--- The request that says hello.
-- @param token nil without one
function protocol.hello(token)
    return joined("hello", token and 2 or 1, protocol.VERSION, token)
end

-- A table with its elements, read as the functions of the radio read them: by number, as many as it
-- is long, through its metatable, and none after one that is no number; nil when it is too long.
local function list_of(list)
    local elements, length = {}, 0
    for place = 1, #list do
        local element = list[place]
        elements[place] = values.element(element)
        length = length + #elements[place] + 1
        if length > protocol.LINE then return nil end
        if not tonumber(element) then break end
    end
    return "{" .. table.concat(elements, " ") .. "}"
end

--- The request to call a function.
-- @return nil when it would be too long for a line, or have too many values
function protocol.call(name, ...)
    local count = select("#", ...)
    local line = "call " .. name
    if count == 1 and takes_list[name] and type(...) == "table" then
        local list = list_of(...)
        line = list and line .. " " .. list
    else
        line = joined(line, count, ...)
    end
    return line and #line < protocol.LINE and count <= protocol.VALUES and line or nil
end

--- The answer that a call has succeeded. The results have to be such as can travel.
function protocol.ok(...)
    return joined("ok", select("#", ...), ...)
end

--- The answer to a request for what there is.
-- @param functions their names
-- @param constants each one's name and value in turn
function protocol.list(functions, constants)
    local parts = { {}, {} }
    for place, name in ipairs(functions) do parts[1][place] = values.element(name) end
    for place, value in ipairs(constants) do parts[2][place] = values.element(value) end
    return ("ok {%s} {%s}"):format(table.concat(parts[1], " "), table.concat(parts[2], " "))
end

--- The answer that a function has raised an error.
function protocol.error(text)
    return "error " .. values.text(text)
end

--- The answer that nothing was called.
function protocol.refused(text)
    return "refused " .. values.text(text)
end

-- The values from a place of a line to its end, each behind a blank.
-- @return a list and their number; or nil, the place that is wrong and what is expected there
local function read_values(line, at)
    local list, count = {}, 0
    while at <= #line do
        if line:sub(at, at) ~= " " then return nil, at, "a blank or the end" end
        if count == protocol.VALUES then
            return nil, at, ("the end after %d values"):format(protocol.VALUES)
        end
        local stop, value, expected = values.read(line, at + 1)
        if not stop then return nil, value, expected end
        count = count + 1
        list[count] = value
        at = stop
    end
    return list, count
end

-- Of each request: what follows its name; nil, the place that is wrong and what is expected there.
local requests = {}

function requests.hello(line, at)
    local version, stop = line:match("^ (%d+)()", at)
    if not version or #version > 9 then return nil, at, "a blank and the number of a version" end
    local list, count, expected = read_values(line, stop)
    if not list then return nil, count, expected end
    if count > 1 or (count == 1 and type(list[1]) ~= "string") then
        return nil, stop, "a blank and the token, or the end"
    end
    return { version = tonumber(version), token = list[1] }
end

function requests.call(line, at)
    local name, stop = line:match(FUNCTION, at + 1)
    if line:sub(at, at) ~= " " or not name or #name > LONGEST_NAME then
        return nil, at, "a blank and the name of a function of the radio"
    end
    local list, count, expected = read_values(line, stop)
    if not list then return nil, count, expected end
    return { name = name, arguments = list, count = count }
end

local function nothing_more(line, at)
    if at <= #line then return nil, at, "the end" end
    return {}
end

requests.list = nothing_more
requests.ping = nothing_more
requests.close = nothing_more

-- What is wrong at a place of a line.
local function mistake(line, at, expected)
    local found = "the end"
    if at <= #line then
        found = "'" .. values.text(line:sub(at, at + 19)):sub(2, -2) .. "'"
        if #line > at + 19 then found = found .. "..." end
    end
    return ("column %d: %s is expected, got %s"):format(at, expected, found)
end

--- What a request says.
-- @return a table: `verb` and what belongs to that; or nil and a text that tells where it is wrong
function protocol.request(line)
    local verb, stop = line:match("^(%l+)()")
    if not requests[verb] then
        return nil, mistake(line, 1, "call, close, hello, list or ping")
    end
    local request, at, expected = requests[verb](line, stop)
    if not request then return nil, mistake(line, at, expected) end
    request.verb = verb
    return request
end

--- What an answer says.
-- @return "ok", the values and their number; "error" or "refused", and the text; or nil and a text
-- that tells where it is wrong
function protocol.answer(line)
    local verb, stop = line:match("^(%l+)()")
    if verb ~= "ok" and verb ~= "error" and verb ~= "refused" then
        return nil, mistake(line, 1, "ok, error or refused")
    end
    local list, count, expected = read_values(line, stop)
    if not list then return nil, mistake(line, count, expected) end
    if verb == "ok" then return verb, list, count end
    if count ~= 1 or type(list[1]) ~= "string" then
        return nil, mistake(line, stop, "a blank and one text")
    end
    return verb, list[1]
end

return protocol
