# SPDX-License-Identifier: LicenseRef-Proprietary
"""The form of the manual pages, and that they are found where they are installed."""

import pytest
from installation import install
from manual import PAGES, formatted, output
from shell import SOURCE, VERSION


@pytest.fixture(name="shared", scope="module")
def shared_folder(tmp_path_factory):
    return install(tmp_path_factory.mktemp("a prefix"), "--component", "sorelapp")


each_page = pytest.mark.parametrize("page", PAGES, ids=lambda page: page.name)

WHAT_IT_IS = {
    "sorelapp": "Lua shell over the radio driver library libsorel",
    "sorelapp-edit": "the prompt of sorelapp with editing, history and completion",
    "sorelapp-guard": "runs sorelapp, and switches the transmitter off after an abnormal end",
}


@each_page
def test_man_finds_nothing_to_warn_of(page):
    output("man", "--warnings", "--encoding=UTF-8", "--local-file", page)


@each_page
def test_the_macros_are_used_as_they_are_meant(page):
    # Of what man passes over, another formatter of these macros minds more.
    assert output("mandoc", "-Tlint", "-Wwarning", page) == ""


@each_page
def test_80_columns_are_enough(page):
    assert max(len(line) for line in formatted(80, page=page).splitlines()) <= 80


def test_whatis_and_apropos_find_the_names_and_what_they_are():
    assert output("lexgrog", *PAGES) == "".join(
        f'{page}: "{page.stem} - {WHAT_IT_IS[page.stem]}"\n' for page in PAGES
    )


@each_page
def test_the_version_is_that_of_the_program(page):
    last = formatted(80, page=page).splitlines()[-1]
    assert last.startswith(f"sorelapp {VERSION} ") and last.endswith(f" sorelapp {VERSION}")


def test_man_finds_the_installed_pages(shared):
    pages = shared / "man"
    for name in WHAT_IT_IS:
        assert output("man", "--manpath", pages, "--where", name) == f"{pages}/man1/{name}.1\n"


@pytest.mark.parametrize("document", ["LICENSE", "README.md"])
def test_a_document_is_installed(document, shared):
    assert (shared / "doc/sorelapp" / document).read_text() == (
        (SOURCE / document).read_text()
    )
