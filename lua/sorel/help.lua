-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Help at the prompt, the only module that makes a global: help. At the prompt its name alone is
-- enough.
--
--     require "sorel.help"
--     help                        an overview
--     help "radioSetTxDcOffset"   a function, a constant, a group of them, a subject, by name
--     help "rtwp"                 whatever mentions it
--     help(radioSetTxDcOffset)    a function or table itself
--
-- As a script it does the same: sorelapp -b .../sorel/help.lua -i

local find = require "sorel.help.find"
local page = require "sorel.help.page"

local function answer(...)
    local asked = ...
    if select("#", ...) == 0 then return page.overview() end
    if type(asked) == "string" then
        local things = find.named(asked)
        if #things > 0 then return page.of_all(things) end
        things = find.mentioning(asked)
        if #things > 0 then return page.list(asked, things) end
        return { find.nothing(asked) }
    end
    if asked == nil then return { page.NIL } end
    local thing = find.value(asked)
    return thing and page.of_all { thing } or { find.nothing(asked) }
end

--- Prints help; see the top of this file.
-- @param ... nothing, or one text, function or table
local function help(...)
    for _, line in ipairs(answer(...)) do print(line) end
end

-- To luacheck, help is a global that scripts find and do not set; this one place sets it.
_G.help = help -- luacheck: ignore 122 142

return help
