# SPDX-License-Identifier: LicenseRef-Proprietary
"""The form of the manual page, and that it is found where it is installed."""

import pytest
from installation import install
from manual import PAGE, formatted, output
from shell import SOURCE, VERSION


@pytest.fixture(name="shared", scope="module")
def shared_folder(tmp_path_factory):
    return install(tmp_path_factory.mktemp("a prefix"), "--component", "sorelapp")


def test_man_finds_nothing_to_warn_of():
    output("man", "--warnings", "--encoding=UTF-8", "--local-file", PAGE)


def test_the_macros_are_used_as_they_are_meant():
    # Of what man passes over, another formatter of these macros minds more.
    assert output("mandoc", "-Tlint", "-Wwarning", PAGE) == ""


def test_80_columns_are_enough():
    assert max(len(line) for line in formatted(80).splitlines()) <= 80


def test_whatis_and_apropos_find_the_name_and_what_it_is():
    assert output("lexgrog", PAGE) == (
        f'{PAGE}: "sorelapp - Lua shell over the radio driver library libsorel"\n'
    )


def test_the_version_is_that_of_the_program():
    last = formatted(80).splitlines()[-1]
    assert last.startswith(f"sorelapp {VERSION} ") and last.endswith(f" sorelapp {VERSION}")


def test_man_finds_the_installed_page(shared):
    pages = shared / "man"
    assert output("man", "--manpath", pages, "--where", "sorelapp") == (
        f"{pages}/man1/sorelapp.1\n"
    )


@pytest.mark.parametrize("document", ["LICENSE", "README.md"])
def test_a_document_is_installed(document, shared):
    assert (shared / "doc/sorelapp" / document).read_text() == (
        (SOURCE / document).read_text()
    )
