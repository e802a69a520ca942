# SPDX-License-Identifier: LicenseRef-Proprietary
"""The traces of one script in the ready scenarios, compared with what they were when they were
looked at: byte by byte, and so the same on every machine.

After a change that is meant: SCENARIO_TRACES=write ./dev test -R e2e.scenario_traces
"""

import os

import pytest
from shell import SIMULATION, SOURCE, run

FOLDER = SOURCE / "tests/e2e/scenario_traces"
SCENARIOS = sorted((SOURCE / "driver/scenarios").glob("*.toml"))


def trace_of(scenario, folder):
    trace = folder / "trace"
    ran = run("-b", str(FOLDER / "tour.lua"), driver=SIMULATION, cwd=folder,
              SOREL_SIM_SCENARIO=str(scenario), SOREL_SIM_TRACE=str(trace))
    assert (ran.out, ran.err, ran.status) == ("", "", 0)
    return trace.read_text()


@pytest.mark.parametrize("scenario", SCENARIOS, ids=lambda path: path.stem)
def test_the_trace_is_as_it_was(scenario, tmp_path):
    kept = FOLDER / f"{scenario.stem}.trace"
    trace = trace_of(scenario, tmp_path)
    if os.environ.get("SCENARIO_TRACES") == "write":
        kept.write_text(trace)
    assert trace.splitlines() == kept.read_text().splitlines()


@pytest.mark.parametrize("scenario", SCENARIOS, ids=lambda path: path.stem)
def test_two_runs_leave_the_same_trace(scenario, tmp_path):
    assert trace_of(scenario, tmp_path) == trace_of(scenario, tmp_path)


def test_there_are_five_ready_scenarios():
    assert [path.stem for path in SCENARIOS] == [
        "busy_band", "failing_synthesiser", "flaky_bus", "hot_board", "quiet_band"]
