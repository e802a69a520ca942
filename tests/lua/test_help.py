# SPDX-License-Identifier: LicenseRef-Proprietary
"""sorel.help at the prompt, as someone begins with it."""

import pytest
from sessions import replay
from shell import PROMPT, SIMULATION, SOURCE, run

FOUND = {"LUA_PATH": f"{SOURCE}/lua/?.lua"}


def shown(text):
    """What a script prints that has help."""
    ran = run("-c", f"require 'sorel.help' {text}", driver=SIMULATION, **FOUND)
    assert (ran.status, ran.err) == (0, "")
    return ran.out


def test_the_first_session_goes_as_it_is_shown(tmp_path):
    lines = shown("help 'first session'").splitlines()
    first = lines.index("") + 1
    session = "\n".join(["$ ./dev run", *lines[first:lines.index("", first)]])
    assert session.count(PROMPT) >= 10
    assert replay(session, tmp_path) == session + "\n"


def test_the_word_help_alone_is_the_overview(tmp_path):
    overview = shown("help()").rstrip("\n")
    session = "\n".join([
        "$ ./dev run", f"{PROMPT}require 'sorel.help'", f"{PROMPT}help", overview, f"{PROMPT}exit",
    ])
    assert replay(session, tmp_path) == session + "\n"


@pytest.mark.parametrize("prefix", ["", "copied "])
def test_as_a_script_it_leaves_help_at_the_prompt(tmp_path, prefix):
    folder = tmp_path / f"{prefix}modules"
    folder.symlink_to(SOURCE / "lua")
    ran = run(
        "-b", str(folder / "sorel/help.lua"), "-i",
        stdin="help 'RADIO_BAND_7'\nprint(help == require 'sorel.help')\nexit\n",
        driver=SIMULATION, LUA_PATH=f"{folder}/?.lua",
    )
    assert ran.out.startswith(f"{PROMPT}RADIO_BAND_7 = 7\n")
    assert ran.status == 0
