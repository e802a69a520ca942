-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Which name a misspelt one may stand for.

local nearest = {}

-- How many characters to replace, insert or remove to make one text of the other (Levenshtein).
local function distance(one, other)
    local row = {}
    for column = 0, #other do row[column] = column end
    for place = 1, #one do
        local diagonal = row[0]
        row[0] = place
        for column = 1, #other do
            local changed = one:byte(place) == other:byte(column) and 0 or 1
            local best = math.min(row[column] + 1, row[column - 1] + 1, diagonal + changed)
            diagonal, row[column] = row[column], best
        end
    end
    return row[#other]
end

--- The element of a list for which a function gives the smallest number, the first of several.
-- @return nil where the list is empty or the function gives no number
function nearest.by(list, farness)
    local best, least = nil, math.huge
    for _, element in ipairs(list) do
        local far = farness(element)
        if far < least then best, least = element, far end
    end
    return best
end

--- The name that a text most likely stands for. Case makes no difference, nor whether the text
-- lacks what the names begin with, whole or its first words: BAND_7 is RADIO_BAND_7.
-- @param names a list of texts
-- @param text what stands where one of them should
-- @param prefix what the names begin with and the text may lack, words that end in "_"; nothing
-- where it is nil
-- @return nil where more than half of the text, and more than two characters, would have to change
function nearest.name(names, text, prefix)
    text = text:upper()
    local function farness(name)
        name = name:upper()
        local least = distance(text, name)
        if not prefix or name:sub(1, #prefix) ~= prefix then return least end
        for word_end in prefix:gmatch("_()") do
            least = math.min(least, distance(text, name:sub(word_end)))
        end
        return least
    end
    local name = nearest.by(names, farness)
    return name and farness(name) <= math.max(#text / 2, 2) and name or nil
end

--- What to add to a message: "; did you mean NAME?", or nothing where there is no name.
function nearest.suggestion(name)
    return name and "; did you mean " .. tostring(name) .. "?" or ""
end

return nearest
