-- SPDX-License-Identifier: LicenseRef-Proprietary
--- A line on standard error that says how far a sweep is, where that is a terminal.

local progress = {}

local SECONDS_BETWEEN = 0.25
local WIDTH = 79 -- a full line would move some terminals to the next

local Progress = {}
Progress.__index = Progress

-- Asked only when there is something to show, and once: a shell has to be started for it. Where
-- there is no shell, the answer is no.
local function is_terminal(self)
    if self.terminal == nil then self.terminal = os.execute(self.question) == 0 end
    return self.terminal
end

local function duration(seconds)
    if seconds < 120 then return ("%.0f s"):format(seconds) end
    return ("%.0f min"):format(seconds / 60)
end

local function show(self, line)
    line = line:sub(1, WIDTH)
    io.stderr:write("\r", line, (" "):rep(self.shown - #line))
    self.shown = #line
end

--- Shows, at most four times a second, how many points are done and what comes next.
function Progress:tell(done, total, point)
    local now = socket.gettime()
    if math.abs(now - self.told) < SECONDS_BETWEEN or not is_terminal(self) then return end
    self.told = now
    local left = ""
    if done > 0 and now > self.began then
        left = (", %s left"):format(duration((now - self.began) / done * (total - done)))
    end
    show(self, ("point %.0f of %.0f%s: %s"):format(done + 1, total, left, point))
end

--- Takes the line away.
function Progress:clear()
    if self.shown == 0 then return end
    show(self, "")
    io.stderr:write("\r")
end

--- Begins.
-- @param rows_on_output whether rows go to standard output: where that is a terminal too, they are
-- themselves what shows the progress
function progress.begin(rows_on_output)
    local now = socket.gettime()
    return setmetatable({ began = now, told = now, shown = 0,
        question = rows_on_output and "test -t 2 && ! test -t 1" or "test -t 2" }, Progress)
end

return progress
