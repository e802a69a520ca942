# SPDX-License-Identifier: LicenseRef-Proprietary
"""The native arrays behind register tables: each is freed once, however the call ends."""

import pytest
from shell import lua, preloading, run

SETTERS = ["radioSetRxGainRegisters", "radioSetTxPowerRegisters"]
both = pytest.mark.parametrize("setter", SETTERS)

# No other block of the process is as large as the array of that many registers.
ELEMENTS = 4093
ARRAY = {"COUNTED_MALLOC": str(4 * ELEMENTS)} | preloading("counted_blocks.so")

TABLE = f"local t = {{}} for i = 1, {ELEMENTS} do t[i] = i end "


def arrays(setter, before="", after="", **more):
    """What becomes of the array of a call, up to the end of the process; and what is printed."""
    text = f"{TABLE} {before} print(pcall({setter}, t)) {after}"
    ran = run("-c", text, **ARRAY, **more)
    assert ran.status == 0, ran
    return ran.err.split(), ran.out.strip().split("\t", 1)


def missing(index):
    """Lua text that lets a metamethod give the element 5."""
    return f"t[5] = nil setmetatable(t, {{__index = {index}}})"


RAISING = missing("function() error('mine', 0) end")
COLLECT = "collectgarbage() io.stderr:write('end ')"


@both
@pytest.mark.parametrize("before", ["", missing("function() return 5 end")])
def test_an_array_is_freed_when_the_driver_has_taken_it(setter, before):
    assert arrays(setter, before, "io.stderr:write('end ')") == (["made", "freed", "end"], ["true"])


@both
@pytest.mark.parametrize("before", ["", missing("function() return 5 end")])
def test_an_array_is_freed_when_the_driver_refuses_it(setter, before):
    seen, (success, message) = arrays(setter, before, "io.stderr:write('end ')",
                                      answers=f"{setter} 1")
    assert (seen, success) == (["made", "freed", "end"], "false")
    assert message == f"{setter}() did not return success"


@both
@pytest.mark.parametrize("before", ["t[7] = true", missing("function() return true end")])
def test_an_array_is_freed_when_an_element_is_no_number(setter, before):
    seen, result = arrays(setter, before, "io.stderr:write('end ')")
    assert (seen, result) == (
        ["made", "freed", "end"], ["false", "Expected integer values in data"])


@both
@pytest.mark.parametrize("before", ["", missing("function() return 5 end")])
def test_an_array_is_freed_when_no_radio_is_open(setter, before):
    seen, (success, _) = arrays(setter, f"radioClose() {before}", "io.stderr:write('end ')")
    assert (seen, success) == (["made", "freed", "end"], "false")


@both
def test_an_array_is_freed_once_when_a_metamethod_raises(setter):
    assert arrays(setter, RAISING, COLLECT) == (["made", "freed", "end"], ["false", "mine"])


@both
def test_an_array_is_freed_at_the_end_when_a_metamethod_raises_and_nothing_is_collected(setter):
    seen, result = arrays(setter, f"collectgarbage('stop') {RAISING}", "io.stderr:write('end ')")
    assert (seen, result) == (["made", "end", "freed"], ["false", "mine"])


@both
def test_an_array_is_freed_when_a_metamethod_yields(setter):
    before = missing("coroutine.yield")
    text = (f"{TABLE} {before} print(coroutine.resume(coroutine.create(function() {setter}(t) end))) "
            "collectgarbage() io.stderr:write('end ')")
    ran = run("-c", text, **ARRAY)
    assert ran.out == "false\tattempt to yield across metamethod/C-call boundary\n"
    assert ran.err.split() == ["made", "freed", "end"]


@both
def test_an_array_is_freed_when_its_coroutine_is_dropped(setter):
    before = missing("function() error({}) end")
    text = (f"{TABLE} {before} coroutine.resume(coroutine.create(function() {setter}(t) end)) "
            "collectgarbage() io.stderr:write('end ')")
    assert run("-c", text, **ARRAY).err.split() == ["made", "freed", "end"]


@both
def test_a_call_inside_a_metamethod_has_an_array_of_its_own(setter):
    index = (f"function(_, key) local u = {{}} for i = 1, {ELEMENTS} do u[i] = i end {setter}(u) "
             "return key end")
    seen, result = arrays(setter, missing(index), "io.stderr:write('end ')")
    assert (seen, result) == (["made", "made", "freed", "freed", "end"], ["true"])


# Prints whether the collector, which rests, was set to work meanwhile.
NOTICING = ("collectgarbage('stop') local collected = false local p = newproxy(true) "
            "getmetatable(p).__gc = function() collected = true end p = nil {} print(collected)")


@both
@pytest.mark.parametrize("calls, collected", [(1, "false"), (30, "false"), (300, "true")])
def test_only_arrays_of_many_failing_calls_set_the_collector_to_work(setter, calls, collected):
    failing = f"for _ = 1, {calls} do pcall({setter}, t) end"
    assert lua(f"{TABLE} {RAISING} {NOTICING.format(failing)}").out == f"{collected}\n"


@both
def test_arrays_of_calls_that_succeed_do_not_set_the_collector_to_work(setter):
    passing = f"for _ = 1, 300 do {setter}(t) end"
    table = missing("function() return 5 end")
    assert lua(f"{TABLE} {table} {NOTICING.format(passing)}").out == "false\n"


@both
def test_what_looks_after_arrays_is_made_once(setter):
    ran = lua(f"""
        {TABLE} {RAISING}
        pcall({setter}, t)
        local before = {{}}
        for key, value in pairs(debug.getregistry()) do before[key] = value end
        pcall({setter}, t)
        for key, value in pairs(debug.getregistry()) do assert(rawequal(value, before[key])) end
        print("same")
    """)
    assert ran.out == "same\n"


@both
def test_arrays_of_failing_calls_do_not_pile_up(setter):
    text = f"{TABLE} {RAISING} for _ = 1, 900 do pcall({setter}, t) end"
    kept = most = 0
    for line in run("-c", text, **ARRAY).err.split():
        kept += 1 if line == "made" else -1
        most = max(most, kept)
    assert (kept, 0 < most * 4 * ELEMENTS < 1.1 * 2 ** 20) == (0, True), most
