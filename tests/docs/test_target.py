# SPDX-License-Identifier: LicenseRef-Proprietary
"""The page about the board."""

import re

import pytest
from installation import install
from manual import section
from sessions import replay, sessions_of
from shell import SOURCE

DOCUMENT = "docs/target.md"
PAGE = (SOURCE / DOCUMENT).read_text()


def test_what_it_shows_is_what_the_terminal_shows(tmp_path):
    (session,) = sessions_of(DOCUMENT)
    assert replay(session, tmp_path) == session + "\n"


def test_it_tells_of_verbs_that_there_are():
    verbs = re.findall(r"\./dev (\w+)", PAGE)
    listed = re.findall(r"^  (\w+) ", (SOURCE / "dev").read_text(), re.MULTILINE)
    assert len(verbs) >= 4 and set(verbs) <= set(listed)


@pytest.fixture(name="prefix", scope="module")
def installed_prefix(tmp_path_factory):
    return install(tmp_path_factory.mktemp("prefix")).parent


def test_the_files_that_the_manual_page_names_are_installed(prefix):
    names = re.findall(r"\b(?:share|sorelapp-trace)/[\w./-]+", section("FILES") + section("SEE ALSO"))
    assert len(names) == 5
    for name in names:
        assert list(prefix.glob(name)) or list(prefix.glob(f"lib/**/{name}")), name
