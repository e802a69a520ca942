-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Making the text of why a library cannot be loaded sets the collector to work, and that a finaliser,
-- which loads another: the C library then frees the message that is being read.
local function finalise()
    getmetatable(newproxy(true)).__gc = finalise
    package.loadlib("/other/library.so", "f")
end
collectgarbage("setpause", 0)
collectgarbage("setstepmul", 0)
finalise()
local _, why = package.loadlib("/one.so", "f")
collectgarbage("setpause", 200)
io.write(why)
