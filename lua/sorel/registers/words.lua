-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The radio chip's registers as unsigned numbers, 0 to 4294967295, and the bits in them.

local words = {}

words.MOST = 4294967295

-- BitOp and the driver's writes have 32 bits with a sign.
local function unsigned(number)
    return number % 2 ^ 32
end

--- "0xdeadbeef", also of a number beyond 2^31 and on a 32-bit machine.
function words.hexadecimal(word)
    return "0x" .. bit.tohex(word)
end

--- An address, in four digits where they are enough: "0x0010".
function words.address(address)
    return "0x" .. bit.tohex(address, address < 65536 and 4 or 8)
end

function words.read(address)
    return radioSpiRead(address)
end

--- Reads again where all bits are set, since a read that fails gives just that.
function words.read_again(address)
    local word = radioSpiRead(address)
    return word == words.MOST and radioSpiRead(address) or word
end

function words.write(address, word)
    radioSpiWrite(address, bit.tobit(word))
end

local function width(field)
    return field.high - field.low + 1
end

--- The bits of a field, set: of { high = N, low = N }.
function words.mask(field)
    return unsigned(bit.lshift(bit.rshift(-1, 32 - width(field)), field.low))
end

--- The lowest and highest number that fit into a field; with signed = true, two's complement.
function words.range(field)
    local count = 2 ^ width(field)
    if field.signed then return -count / 2, count / 2 - 1 end
    return 0, count - 1
end

--- The number in a field of a word.
function words.extract(word, field)
    local number = unsigned(bit.rshift(bit.band(word, words.mask(field)), field.low))
    local _, most = words.range(field)
    return number > most and number - 2 ^ width(field) or number
end

--- The word with that number, which fits, in a field.
function words.insert(word, field, number)
    local mask = words.mask(field)
    return unsigned(bit.bor(bit.band(word, bit.bnot(mask)),
        bit.band(bit.lshift(number, field.low), mask)))
end

--- The bits of a word that are set in a mask.
function words.masked(word, mask)
    return unsigned(bit.band(word, mask))
end

--- The bits that are set in one of two masks.
function words.joined(one, other)
    return unsigned(bit.bor(one, other))
end

--- What check.fields calls a rule: an unsigned word.
words.rule = { type = "number", integer = true, most = words.MOST, check = function(word)
    if word >= 0 then return word end
    local meant = word >= -2 ^ 31 and ("; without a sign it is %.0f"):format(unsigned(word)) or ""
    return nil, word .. " is below 0" .. meant
end }

return words
