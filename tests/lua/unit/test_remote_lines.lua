-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local lines = require "sorel.remote.lines"
local check = kit.check

-- A reader of a socket on which these pieces arrive, and then its end.
local function reader(limit, ...)
    local pieces = { ... }
    local from = { settimeout = function(_, seconds) check.assertEquals(seconds, 0) end }
    function from.receive()
        local piece = table.remove(pieces, 1)
        if not piece then return nil, "closed", "" end
        return nil, "timeout", piece
    end
    return lines.reader(from, limit)
end

-- All lines, in the order in which they are there, as soon as they are.
local function all_lines(from)
    local found = {}
    repeat
        local more = from:fill()
        for line in function() return from:next() end do found[#found + 1] = line end
    until not more
    return found
end

TestLines = {}

function TestLines.test_lines_are_the_same_in_whatever_pieces_they_arrive()
    local text = "call radioReset\nping\n\n\r\nlist\r\n\0\255\nend"
    local expected = { "call radioReset", "ping", "", "", "list", "\0\255" }
    for first = 1, #text do
        for second = first, #text do
            local from = reader(100, text:sub(1, first), text:sub(first + 1, second),
                text:sub(second + 1))
            check.assertEquals(all_lines(from), expected)
        end
    end
end

function TestLines.test_a_line_of_the_limit_is_one_and_a_longer_one_is_none()
    local from = reader(5, "1234\n", "12345", "\n")
    check.assertTrue(from:fill())
    check.assertEquals({ from:next() }, { "1234" })
    from:fill()
    check.assertNil((from:next()))
    check.assertNil((select(2, from:next())))
    from:fill()
    check.assertNil((from:next()))
    check.assertTrue((select(2, from:next())))
end

function TestLines.test_a_line_that_does_not_end_is_too_long_before_it_is_whole()
    local from = reader(5, "123456")
    from:fill()
    check.assertTrue((select(2, from:next())))
    from:clear()
    check.assertEquals({ from:next() }, {})
    check.assertFalse(from:fill())
end

kit.run()
