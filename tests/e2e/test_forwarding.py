# SPDX-License-Identifier: LicenseRef-Proprietary
"""The library in front of another driver: what it hands on, traces, and says when it cannot."""

import re
from signal import SIGABRT

import pytest
from catalogue import (FLOAT, FUNCTIONS, IGNORED, INT32, NAMES, STATUS, STRING, UNSIGNED, call,
                       logged, names)
from shell import FORWARDING, ODD_DRIVERS, RECORDING, SIMULATION, in_front_of, run

# What the recording driver answers, as the trace has it.
ANSWERS = {STATUS: "RADIO_ESUCCESS", IGNORED: "RADIO_ESUCCESS", FLOAT: "0.00", INT32: "0",
           UNSIGNED: "0", STRING: '"recording driver"', NAMES: "a list"}


@pytest.fixture(name="trace")
def trace_fixture(tmp_path):
    return tmp_path / "trace"


def recorded(text, trace, **more):
    """Runs Lua text on the recording driver with the library in front of it."""
    variables = in_front_of(RECORDING) | {"SOREL_SIM_TRACE": str(trace)}
    return run("-c", text, driver=None, **variables, **more)


def argument(function, kind):
    """An argument of call(function) as the trace has it."""
    if function.name.startswith("radioSpi"):
        return hex(int(kind.logged) % 2**32)
    return kind.good if kind.good.startswith("RADIO_") else kind.logged


def traced(function):
    """The line that call(function) leaves in the trace."""
    arguments = ", ".join(argument(function, kind) for kind in function.kinds)
    result = "0x0" if function.name == "radioSpiRead" else ANSWERS[function.result]
    return f"{function.name}({arguments}) = {result}"


@pytest.mark.parametrize("function", FUNCTIONS, ids=names(FUNCTIONS))
def test_each_call_is_handed_on_as_it_is_and_traced_once(function, trace):
    ran = recorded(call(function), trace)
    assert (ran.out, ran.err, ran.status) == ("", "", 0)
    assert ran.calls == [logged(function)]
    assert trace.read_text().splitlines() == [
        "radioOpen() = context 1", traced(function), "radioClose() = RADIO_ESUCCESS"
    ]


def test_results_come_back_as_the_driver_gives_them(trace):
    ran = recorded(
        "print(radioGetTemperature(), radioGetRxRtwp(), radioGetPlatformName(), radioVersion(), "
        "radioSpiRead(1), (pcall(radioReset)))",
        trace,
        answers='radioGetTemperature 36.504\nradioGetRxRtwp -929\nradioVersion null\n'
                'radioGetPlatformName "Talwin"\nradioSpiRead 4294967295\nradioReset 6',
    )
    assert ran.out.split() == ["36.504001617432", "-929", "Talwin", "nil", "4294967295", "false"]
    assert trace.read_text().splitlines()[1:-1] == [
        "radioGetTemperature() = 36.50",
        "radioGetRxRtwp() = -929",
        'radioGetPlatformName() = "Talwin"',
        "radioVersion() = null",
        "radioSpiRead(0x1) = 0xffffffff",
        "radioReset() = 6",
    ]


def test_long_register_tables_are_listed_up_to_65536_words(trace):
    recorded("local words = {} for i = 1, 65537 do words[i] = i end "
             "radioSetRxGainRegisters(words) words[65537] = nil radioSetRxGainRegisters(words)",
             trace)
    _, longer, long, _ = trace.read_text().splitlines()
    assert longer == "radioSetRxGainRegisters([65537 words], 65537) = RADIO_ESUCCESS"
    listed = ", ".join(str(word) for word in range(1, 65537))
    assert long == f"radioSetRxGainRegisters([{listed}], 65536) = RADIO_ESUCCESS"


def test_the_call_in_which_the_driver_ends_the_process_is_the_last_in_the_trace(trace):
    ran = recorded("radioReset() radioSetTxFrequency(5)", trace,
                   answers="radioSetTxFrequency#1 nonsense")
    assert ran.status == -SIGABRT
    assert trace.read_text() == ("radioOpen() = context 1\nradioReset() = RADIO_ESUCCESS\n"
                                 "radioSetTxFrequency(5)")


def test_without_a_file_the_trace_goes_to_standard_error():
    for unset in ({}, {"SOREL_SIM_TRACE": ""}, {"SOREL_SIM_TRACE": "-"}):
        ran = run("-c", "radioReset()", driver=None, **in_front_of(RECORDING), **unset)
        assert (ran.out, ran.status) == ("", 0)
        assert ran.err == ("radioOpen() = context 1\nradioReset() = RADIO_ESUCCESS\n"
                           "radioClose() = RADIO_ESUCCESS\n")


def test_a_trace_that_cannot_be_opened_leaves_the_calls_alone(tmp_path):
    path = tmp_path / "nowhere" / "trace"
    ran = recorded("radioReset()", path)
    assert ran.status == 0
    assert ran.err.splitlines() == [
        f"libsorel: SOREL_SIM_TRACE: cannot open '{path}': No such file or directory"
    ]
    assert ran.calls == ["radioReset(context1)"]


def test_the_board_behind_does_not_trace_too(trace):
    variables = in_front_of(SIMULATION) | {"SOREL_SIM_TRACE": str(trace)}
    ran = run("-c", "io.write(radioGetPlatformName())", driver=None, **variables)
    assert (ran.out, ran.err, ran.status) == ("simulated board", "", 0)
    assert trace.read_text().splitlines() == [
        "radioOpen() = context 1",
        'radioGetPlatformName() = "simulated board"',
        "radioClose() = RADIO_ESUCCESS",
    ]


def test_the_traces_of_the_board_and_of_the_library_in_front_differ_in_the_times_only(tmp_path):
    text = ("radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7) "
            "radioGetTemperature() radioGetRxRtwpIndBm() radioSpiRead(0x40) radioOpen() "
            "pcall(radioSetTxFrequency, 1) radioVersion()")
    own, other = tmp_path / "own", tmp_path / "other"
    run("-c", text, driver=SIMULATION, SOREL_SIM_TRACE=str(own))
    run("-c", text, driver=None, SOREL_SIM_TRACE=str(other), **in_front_of(SIMULATION))
    assert re.sub(r"(?m)^\[\d+\.\d{6}\] ", "", own.read_text()) == other.read_text()


def assert_without_a_driver(reason, **variables):
    """The library says why it has no driver, once, and every call fails."""
    ran = run("-c", "print((pcall(radioSelectPlatform, 1)))", driver=FORWARDING,
              SOREL_SIM_TRACE="/dev/null", **variables)
    assert ran.out == "false\n"
    said, opening = ran.err.splitlines()
    assert re.fullmatch(rf"libsorel: SOREL_TRACE_DRIVER: {reason}", said), said
    assert opening == "radioOpen() failed"


@pytest.mark.parametrize("unset", [{}, {"SOREL_TRACE_DRIVER": ""}], ids=["unset", "empty"])
def test_the_driver_has_to_be_named(unset):
    assert_without_a_driver("not set; it has to name the driver's file", **unset)


def test_a_driver_that_does_not_exist(tmp_path):
    assert_without_a_driver(
        f"cannot load the driver: {tmp_path}/nowhere.so: .*No such file or directory",
        SOREL_TRACE_DRIVER=f"{tmp_path}/nowhere.so",
    )


def test_a_file_that_is_no_library(tmp_path):
    (tmp_path / "text.so").write_text("no library")
    assert_without_a_driver(f"cannot load the driver: {tmp_path}/text.so: .+",
                            SOREL_TRACE_DRIVER=f"{tmp_path}/text.so")


def test_a_driver_that_lacks_a_function():
    library = ODD_DRIVERS / "lacking_driver.so"
    assert_without_a_driver(rf"'{library}' lacks radioSelectPlatform\(\)",
                            SOREL_TRACE_DRIVER=str(library))


def test_calls_inside_the_driver_do_not_come_back(trace):
    variables = {"SOREL_TRACE_DRIVER": str(ODD_DRIVERS / "self_calling_driver.so"),
                 "SOREL_SIM_TRACE": str(trace)}
    ran = run("-c", "radioReset()", driver=FORWARDING, **variables)
    assert ran.calls == ["radioGetDebugLevel(context1)", "recordedReset(context1)"]
    assert trace.read_text().splitlines()[1:-1] == ["radioReset() = RADIO_ESUCCESS"]


def test_the_library_itself_is_no_driver(tmp_path):
    own = FORWARDING / "libsorel.so.1"
    link = tmp_path / "link.so"
    link.symlink_to(own)
    for path in (own, link):
        assert_without_a_driver(f"'{path}' is the tracing library itself, not a driver",
                                SOREL_TRACE_DRIVER=str(path))


def test_without_a_driver_readings_fail_and_the_trace_shows_it(trace):
    run("-c", "radioVersion()", driver=FORWARDING, SOREL_SIM_TRACE=str(trace))
    assert trace.read_text() == "radioOpen() = null\n"
    run("-c", "pcall(radioSelectPlatform, 1)", driver=FORWARDING, SOREL_SIM_TRACE=str(trace))
    assert trace.read_text() == (
        "radioOpen() = null\nradioSelectPlatform(RADIO_PLATFORM_TALWIN) = RADIO_EIO\n"
    )
