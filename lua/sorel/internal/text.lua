-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Texts for a terminal: columns, and paragraphs of a width.

local text = {}

--- A number as short as it is exact: 2655000000, -92.34375. Unlike "%d", also beyond 32 bits.
-- Not-a-number is "nan" on every machine, whatever its sign.
function text.number(value)
    if value ~= value then return "nan" end
    return ("%.14g"):format(value)
end

--- Rows of texts as lines of columns that stand two blanks apart, without blanks at the end.
-- @param rows a list of lists of texts or numbers; a row may end early
-- @param alignment a character a column, "l" or "r"; columns beyond are aligned left
-- @return a list of lines
function text.columns(rows, alignment)
    local widths = {}
    for _, row in ipairs(rows) do
        for column, cell in ipairs(row) do
            widths[column] = math.max(widths[column] or 0, #tostring(cell))
        end
    end
    local lines = {}
    for _, row in ipairs(rows) do
        local cells = {}
        for column, cell in ipairs(row) do
            local padding = (" "):rep(widths[column] - #tostring(cell))
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
        if line and #line + 1 + #word <= width then
            line = line .. " " .. word
        else
            lines[#lines + 1] = line
            line = indentation .. word
        end
    end
    lines[#lines + 1] = line
    return lines
end

return text
