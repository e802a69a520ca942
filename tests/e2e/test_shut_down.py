# SPDX-License-Identifier: LicenseRef-Proprietary
"""What happens after the last command, and in which order."""

import pytest
from catalogue import NO_CONTEXT
from shell import PRELOAD, lua, run

FINALISER = PRELOAD / "finaliser.so"


def test_the_radio_is_closed_before_the_lua_state():
    ran = lua(
        "local last = newproxy(true) "
        "getmetatable(last).__gc = function() print(pcall(radioReset)) end "
        "kept = last"
    )
    assert ran.out == f"false\t{NO_CONTEXT}\n"
    assert ran.log == ["radioOpen() = context1", "radioClose(context1)"]


def test_the_radio_open_at_the_end_is_the_one_that_is_closed():
    assert lua("radioOpen() radioOpen()").log[-1] == "radioClose(context3)"


def test_a_radio_closed_by_a_script_is_not_closed_again():
    assert lua("radioClose()").log == ["radioOpen() = context1", "radioClose(context1)"]


@pytest.mark.parametrize("loaded", ["before", "after"])
def test_a_library_of_a_script_stays_until_its_objects_are_collected(loaded):
    load = f"local finalise = assert(package.loadlib('{FINALISER}', 'finalise'))"
    make = "kept = newproxy(true)"
    order = [load, make] if loaded == "before" else [make, load]
    ran = lua(" ".join(order) + " getmetatable(kept).__gc = finalise")
    assert ran.out == "finalised\n"


def test_output_that_is_still_buffered_is_written():
    assert run("-c", "io.stdout:setvbuf('full') io.write('buffered')").out == "buffered"


def test_a_finaliser_that_fails_changes_neither_status_nor_radio():
    ran = run(
        "-c",
        "kept = newproxy(true) getmetatable(kept).__gc = function() error('broken') end",
    )
    assert (ran.out, ran.err, ran.status) == ("", "", 0)
    assert ran.log == ["radioOpen() = context1", "radioClose(context1)"]


def test_the_radio_is_closed_after_a_batch_file(tmp_path):
    script = tmp_path / "script.lua"
    script.write_text("radioReset()")
    ran = run("-b", str(script))
    assert (ran.status, ran.log[-1]) == (0, "radioClose(context1)")


def test_a_radio_opened_by_a_finaliser_after_the_end_stays_open():
    ran = lua("kept = newproxy(true) getmetatable(kept).__gc = radioOpen")
    assert ran.log == [
        "radioOpen() = context1",
        "radioClose(context1)",
        "radioOpen() = context2",
    ]
