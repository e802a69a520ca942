# SPDX-License-Identifier: LicenseRef-Proprietary
"""The examples, run as their page shows."""

import pytest
from sessions import replay, sessions_of
from shell import SOURCE

DOCUMENT = "examples/README.md"
SESSIONS = sessions_of(DOCUMENT)
SCRIPTS = sorted(path.name for path in (SOURCE / "examples").glob("*.lua"))


@pytest.mark.parametrize("session", SESSIONS, ids=lambda session: session.splitlines()[0])
def test_an_example_prints_what_its_page_says(session, tmp_path):
    for folder in ("driver", "examples"):
        (tmp_path / folder).symlink_to(SOURCE / folder)
    assert replay(session, tmp_path) == session + "\n"


@pytest.mark.parametrize("script", SCRIPTS)
def test_every_example_is_shown(script):
    assert any(script in session for session in SESSIONS)
