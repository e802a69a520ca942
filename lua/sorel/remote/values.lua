-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Lua's values as texts of printable ASCII, and back: docs/remote.md has the grammar.

local values = {}

-- What stands for a value of which only the type travels, and for an element of a list that is
-- neither a number nor a text. Functions of the radio refuse them as they refuse the original.
local stand_ins = {
    ["<function>"] = function() end,
    ["<thread>"] = coroutine.create(function() end),
    ["<userdata>"] = newproxy(),
}
local NO_ELEMENT = false

local words = { ["nil"] = true, ["true"] = true, ["false"] = true, inf = true, nan = true }

-- What separates the decimals, by the locale that a script may have set.
local function decimal_point()
    return ("%.1f"):format(0.5):sub(2, -2)
end

local function is_negative(number)
    return tostring(number):sub(1, 1) == "-"
end

--- A number, exactly.
function values.number(number)
    if number ~= number then return is_negative(number) and "-nan" or "nan" end
    if number == math.huge then return "inf" end
    if number == -math.huge then return "-inf" end
    return (("%.17g"):format(number):gsub("[^%de+-]+", "."))
end

--- A text in quotes.
function values.text(text)
    local escaped = text:gsub('[%z\1-\31"\\\127-\255]', function(character)
        if character == '"' or character == "\\" then return "\\" .. character end
        return ("\\x%02x"):format(character:byte())
    end)
    return '"' .. escaped .. '"'
end

--- A value. Of a table nothing travels but that it is one; its elements are values.element().
function values.encode(value)
    local kind = type(value)
    if kind == "nil" or kind == "boolean" then return tostring(value) end
    if kind == "number" then return values.number(value) end
    if kind == "string" then return values.text(value) end
    if kind == "table" then return "{}" end
    return "<" .. kind .. ">"
end

--- An element of a list.
function values.element(value)
    if type(value) == "number" or type(value) == "string" then return values.encode(value) end
    return "?"
end

local function read_number(line, at)
    local stop = line:match("^%-?%d+()", at)
    if not stop then return nil end
    stop = line:match("^%.%d+()", stop) or stop
    stop = line:match("^e[+-]?%d+()", stop) or stop
    return stop, tonumber((line:sub(at, stop - 1):gsub("%.", decimal_point())))
end

local IN_TEXT = [[a printable character, \", \\, \xHH or a quote]]

local function read_text(line, at)
    local parts, place = {}, at + 1
    while true do
        local plain, stop = line:match('^([^%z\1-\31"\\\127-\255]*)()', place)
        parts[#parts + 1] = plain
        if line:sub(stop, stop) == '"' then return stop + 1, table.concat(parts) end
        local character, after = line:match('^\\(["\\])()', stop)
        if not character then
            local code
            code, after = line:match("^\\x(%x%x)()", stop)
            if not code then return nil, stop, IN_TEXT end
            character = string.char(tonumber(code, 16))
        end
        parts[#parts + 1] = character
        place = after
    end
end

local function not_a_number(negative)
    local number = 0 / 0
    return is_negative(number) == negative and number or -number
end

local function read_word(line, at)
    local sign, word, stop = line:match("^(%-?)(%l+)()", at)
    if not words[word] then return nil end
    if word == "inf" then return stop, sign == "-" and -math.huge or math.huge end
    if word == "nan" then return stop, not_a_number(sign == "-") end
    if sign == "-" then return nil end
    if word == "nil" then return stop, nil end
    return stop, word == "true"
end

local function read_element(line, at)
    if line:sub(at, at) == '"' then return read_text(line, at) end
    if line:sub(at, at) == "?" then return at + 1, NO_ELEMENT end
    local stop, number = read_number(line, at)
    if not stop then stop, number = read_word(line, at) end
    if stop and type(number) == "number" then return stop, number end
    return nil, at, "a number, a text or ?"
end

local function read_list(line, at)
    local list, place = {}, at + 1
    if line:sub(place, place) == "}" then return place + 1, list end
    while true do
        local stop, element, expected = read_element(line, place)
        if not stop then return nil, element, expected end
        list[#list + 1] = element
        local following = line:sub(stop, stop)
        if following == "}" then return stop + 1, list end
        if following ~= " " then return nil, stop, "a blank or }" end
        place = stop + 1
    end
end

--- The value that a line has at a place.
-- @return the place behind it, and the value; or nil, the place where the line is wrong, and what
-- is expected there
function values.read(line, at)
    local first = line:sub(at, at)
    if first == '"' then return read_text(line, at) end
    if first == "{" then return read_list(line, at) end
    if first == "<" then
        local name, stop = line:match("^(<%l+>)()", at)
        if stand_ins[name] then return stop, stand_ins[name] end
        return nil, at, "<function>, <thread> or <userdata>"
    end
    local stop, value = read_number(line, at)
    if not stop then stop, value = read_word(line, at) end
    if not stop then return nil, at, "a value" end
    return stop, value
end

return values
