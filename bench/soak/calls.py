# SPDX-License-Identifier: LicenseRef-Proprietary
"""Calls of everything that the radio module has."""

from pathlib import Path

from measured_calls import ORDINARY

SOURCE = Path(__file__).resolve().parents[2]

# In place of arguments with which a board prints or does not find a file.
ARGUMENTS = {
    "radioSetDebugLevel": "0",
    "radioLoadCalibrationFile": f"'{SOURCE}/driver/calibration/example.toml'",
    "radioInitByScript": f"1, 7, 7, '{SOURCE}/tests/driver/data/good.script'",
}

# What reads files or starts the board anew comes by now and then.
RARE = ("radioReset", "radioSelectPlatform", "radioInitByScript", "radioInit", "radioCpriInit",
        "radioLoadCalibrationFile")

TABLES = ("radioSetTxPowerRegisters(table)", "radioSetRxGainRegisters(table)")

# The class: a record that the collector frees, and its fields.
CLASS = ("local made = RadioHooks() made.malloc = nil", "local x = hooks.free")


def protected(text):
    """A call that may fail, as the board's state has it."""
    function, _, arguments = text.removesuffix(")").partition("(")
    return f"pcall({function}{', ' if arguments else ''}{arguments})"


def texts(rare):
    return [f"{call.function}({ARGUMENTS.get(call.function, call.arguments)})"
            for call in sorted(ORDINARY, key=lambda call: (RARE + (call.function,)).index(call.function))
            if (call.function in RARE) == rare]


def calls_body(extra=""):
    """The Lua function body(n), which makes n calls, all of them in turn. Extra is done between."""
    rare = [protected(text) for text in texts(True)]
    usual = [protected(text) for text in (*texts(False), *TABLES)] + list(CLASS)
    newline = "\n"
    return f"""
local names = radioGetDriverNames()
local table = {{1, 2, 3, 4}}
local hooks = RadioHooks()
function body(n)
    local count = 0
    while count < n do
        {newline.join(rare)}
        count = count + {len(rare)}
        for _ = 1, 1000 do
            if count >= n then break end
            {newline.join(usual)}
            {extra}
            count = count + {len(usual)}
        end
    end
end"""
