-- SPDX-License-Identifier: LicenseRef-Proprietary
--- How a script ends the process: the transmitter off, the radio closed, all output written.

local text = require "sorel.internal.text"
local transmitter = require "sorel.transmitter"

local ending = {}

-- Lua's own, also where a script has put something in their place.
local pcall, xpcall = pcall, xpcall

--- Writes a line to standard error.
function ending.say(message)
    io.stderr:write(text.printable(message, true), "\n")
end

--- Ends the process. What goes wrong is said on standard error, and the status is then 1: the
-- transmitter cannot be switched off, or standard output cannot be written.
-- @param status 0 to 255
function ending.leave(status)
    local function wrong(message)
        status = 1
        ending.say(message)
    end
    local off, refusal = transmitter.off()
    if not off then wrong("the transmitter may still be on: " .. text.of_error(refusal)) end
    pcall(radioClose)
    local flushed, reason = io.stdout:flush()
    if not flushed then wrong("cannot write standard output: " .. reason) end
    os.exit(status)
end

--- Calls a function whose errors end the process.
-- @return true and its first result; or false and what it raised
function ending.guarded(action)
    local succeeded, result = pcall(action)
    return succeeded, result
end

--- Whether somebody lives on after an error that the caller raises: a pcall of the script, or the
-- prompt. Nobody does in a script (-b) or command (-c) that does not catch it, nor in
-- ending.guarded.
-- @return true or false; and "maybe" after true where that cannot be told
function ending.caught()
    if coroutine.running() then return true end
    local level, outermost = 2, nil
    while true do
        local frame = debug.getinfo(level, "fS")
        if not frame then break end
        if frame.func == pcall or frame.func == xpcall then
            local above = debug.getinfo(level + 1, "f")
            return not above or above.func ~= ending.guarded
        end
        outermost = frame
        level = level + 1
    end
    -- The prompt names its lines "stdin". What called in place of itself (return f()) is not known.
    if outermost.what == "tail" then return true, "maybe" end
    return outermost.what ~= "main" or outermost.source == "stdin"
end

--- The name of the script that runs, as -b or dofile() was told it; nil where there is none.
function ending.script()
    local level, script = 2, nil
    while true do
        local frame = debug.getinfo(level, "S")
        if not frame then return script end
        if frame.what == "main" then script = frame.source:match("^@(.*)") or script end
        level = level + 1
    end
end

return ending
