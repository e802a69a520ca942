-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Closing the state takes the objects with finalisers off the list that the collector goes through, at
-- whatever object that is. If a finaliser lets it go on from there, it goes round among them for ever.
local proxies = {}
for i = 1, 10000 do
    proxies[i] = newproxy(proxies[1] or true)
end
local collected = false
getmetatable(proxies[1]).__gc = function()
    if not collected then
        collected = true
        collectgarbage()
    end
end
collectgarbage()
local steps = 0
repeat
    steps = steps + 1
until collectgarbage("step", 0)
for _ = 1, steps * 0.9 do
    collectgarbage("step", 0)
end
