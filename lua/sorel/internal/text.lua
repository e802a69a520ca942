-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Texts for people: columns, paragraphs of a width, and what is safe to show on a terminal.

local text = {}

--- A number as short as it is exact: 2655000000, -92.34375. Unlike "%d", also beyond 32 bits.
-- Not-a-number is "nan" on every machine, whatever its sign.
function text.number(value)
    if value ~= value then return "nan" end
    return ("%.14g"):format(value)
end

--- How many columns of a terminal a text takes: the characters of UTF-8, one column each.
function text.width(value)
    return select(2, tostring(value):gsub("[^\128-\191]", ""))
end

-- The characters beyond ASCII (RFC 3629), without control characters and those that are none.
local characters = {
    "^\194[\160-\191]", "^[\195-\223][\128-\191]", "^\224[\160-\191][\128-\191]",
    "^[\225-\236\238][\128-\191][\128-\191]", "^\237[\128-\159][\128-\191]",
    "^\239[\128-\190][\128-\191]", "^\239\191[\128-\189]",
    "^\240[\144-\191][\128-\191][\128-\191]", "^[\241-\243][\128-\191][\128-\191][\128-\191]",
    "^\244[\128-\143][\128-\191][\128-\191]",
}

local escapes = { ["\t"] = "\\t", ["\n"] = "\\n", ["\r"] = "\\r" }

local function character_at(value, place)
    for _, pattern in ipairs(characters) do
        local found = value:match(pattern, place)
        if found then return found end
    end
    return nil
end

--- A text with what a terminal cannot show, nor a file of UTF-8 hold, written as \n, \x1b, \xff:
-- control characters, and bytes that are no UTF-8.
-- @param value the text, of any bytes
-- @param lines true: tabs and line breaks (\t, \n) stay as they are
function text.printable(value, lines)
    local plain = lines and "^[\t\n\32-\126]+" or "^[\32-\126]+"
    local pieces, place = {}, 1
    while place <= #value do
        local piece = value:match(plain, place) or character_at(value, place)
        place = place + (piece and #piece or 1)
        if not piece then
            piece = value:sub(place - 1, place - 1)
            piece = escapes[piece] or ("\\x%02x"):format(piece:byte())
        end
        pieces[#pieces + 1] = piece
    end
    return table.concat(pieces)
end

--- What an error says: its text, or what it is where it has none.
-- @param value what was raised, anything
function text.of_error(value)
    if type(value) == "number" then return text.number(value) end
    if value == nil or value == "" then return "an error without a message" end
    if type(value) == "table" or type(value) == "userdata" then
        local metatable = getmetatable(value)
        if type(metatable) == "table" and metatable.__tostring then
            local told, message = pcall(tostring, value)
            if told and type(message) == "string" then return message end
        end
    end
    if type(value) == "string" or type(value) == "boolean" then return tostring(value) end
    return "an error that is a " .. type(value)
end

--- Rows of texts as lines of columns that stand two blanks apart, without blanks at the end.
-- @param rows a list of lists of texts or numbers; a row may end early
-- @param alignment a character a column, "l" or "r"; columns beyond are aligned left
-- @return a list of lines
function text.columns(rows, alignment)
    local widths = {}
    for _, row in ipairs(rows) do
        for column, cell in ipairs(row) do
            widths[column] = math.max(widths[column] or 0, text.width(cell))
        end
    end
    local lines = {}
    for _, row in ipairs(rows) do
        local cells = {}
        for column, cell in ipairs(row) do
            local padding = (" "):rep(widths[column] - text.width(cell))
            local right = alignment and alignment:sub(column, column) == "r"
            cells[column] = right and padding .. cell or cell .. padding
        end
        lines[#lines + 1] = (table.concat(cells, "  "):gsub(" +$", ""))
    end
    return lines
end

--- A paragraph in lines of at most a width, broken at blanks; a longer word has a line of its own.
-- @param paragraph the text
-- @param width in characters, the indentation included
-- @param indentation what each line begins with; nothing where it is nil
-- @return a list of lines
function text.wrap(paragraph, width, indentation)
    indentation = indentation or ""
    local lines, line = {}, nil
    for word in paragraph:gmatch("%S+") do
        if line and text.width(line) + 1 + text.width(word) <= width then
            line = line .. " " .. word
        else
            lines[#lines + 1] = line
            line = indentation .. word
        end
    end
    lines[#lines + 1] = line
    return lines
end

--- As text.wrap, but a longer word is broken too: no line is wider.
function text.fold(paragraph, width, indentation)
    local room = width - text.width(indentation or "")
    local function broken(word)
        if text.width(word) <= room then return word end
        local pieces, length = {}, 0
        for character in word:gmatch("[^\128-\191][\128-\191]*") do
            if length == room then
                pieces[#pieces + 1] = " "
                length = 0
            end
            pieces[#pieces + 1] = character
            length = length + 1
        end
        return table.concat(pieces)
    end
    return text.wrap(paragraph:gsub("%S+", broken), width, indentation)
end

--- The lines of a text.
-- @return a list
function text.lines(whole)
    local lines = {}
    for line in (whole .. "\n"):gmatch("(.-)\n") do lines[#lines + 1] = line end
    return lines
end

return text
