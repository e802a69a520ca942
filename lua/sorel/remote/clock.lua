-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Seconds that pass evenly, whatever is done to the date: a board may learn it long after it has
-- started, and a limit that is measured with it would then come too early or not at all.

local clock = {}

-- The kernel's count since its start. Without a buffer, or the first reading would be read again.
local uptime = io.open("/proc/uptime")
if uptime then uptime:setvbuf("no") end

local function since_start()
    uptime:seek("set")
    local seconds, hundredths = (uptime:read("*l") or ""):match("^(%d+)%.(%d%d)")
    return seconds and tonumber(seconds) + tonumber(hundredths) / 100
end

local counts = uptime and since_start()

--- The time in seconds, in steps of 0.01, from some moment on. Where the kernel does not tell it,
-- the time of day.
function clock.now()
    return counts and since_start() or socket.gettime()
end

return clock
