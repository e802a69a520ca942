# SPDX-License-Identifier: LicenseRef-Proprietary
"""What ./dev reference makes: the reference, the files for editors, the words for completion."""

import json
import re
import subprocess

import pytest
from shell import SIMULATION, SOURCE, run

EDITOR = SOURCE / "packaging/editor"
MADE = ("docs/reference.md", "packaging/editor/luacheck.lua", "packaging/rlwrap/sorelapp.words")
LIBRARY = "packaging/editor/library"
REFERENCE = (SOURCE / "docs/reference.md").read_text()
WORDS = (SOURCE / "packaging/rlwrap/sorelapp.words").read_text().splitlines()


def made_in(folder):
    """The files there that are made, by their paths."""
    paths = [*MADE, *(str(path.relative_to(folder)) for path in (folder / LIBRARY).rglob("*.lua"))]
    return {path: (folder / path).read_bytes() for path in sorted(paths)}


def test_what_is_checked_in_is_what_is_made_now(tmp_path):
    for path in ("docs", f"{LIBRARY}/sorel", "packaging/rlwrap"):
        (tmp_path / path).mkdir(parents=True)
    ran = run("-b", str(SOURCE / "docs/generate/main.lua"), driver=SIMULATION,
              REFERENCE_FOLDER=str(tmp_path))
    assert (ran.status, ran.err) == (0, "")
    now = made_in(tmp_path)
    assert len(now) > 5
    assert made_in(SOURCE).keys() == now.keys()
    for path, content in now.items():
        assert (SOURCE / path).read_bytes() == content, f"{path}: run ./dev reference"


def test_every_link_of_the_reference_leads_to_a_heading_and_no_two_headings_are_one():
    headings = re.findall(r"^#+ (.*)$", REFERENCE, re.MULTILINE)
    anchors = [re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-") for heading in headings]
    assert len(anchors) == len(set(anchors))
    links = re.findall(r"\]\(#([^)]*)\)", REFERENCE)
    assert len(links) > 150
    assert set(links) <= set(anchors)


def test_the_words_are_sorted_each_a_word_of_its_own():
    assert WORDS == sorted(set(WORDS))
    assert [word for word in WORDS if not re.fullmatch(r"[\w.]+", word)] == []


@pytest.mark.parametrize(
    "word",
    ["radioInit", "RADIO_BAND_7", "bit.band", "socket.dns.toip", "settimeout", "transmitter.off",
     "sorel.transmitter", "help", "while", "string.format", "print", "exit"],
)
def test_a_word_that_is_typed_at_the_prompt_is_among_them(word):
    assert word in WORDS


def blocks(document):
    """The indented blocks of a document of Markdown."""
    return [re.sub("^    ", "", block, flags=re.MULTILINE)
            for block in document.split("\n\n") if block.startswith("    ")]


INSTALLED = "/usr/share/sorelapp/editor"
SETTINGS = blocks((EDITOR / "README.md").read_text())


def luacheck(folder, script):
    """What luacheck warns of in a script, with the settings that the page shows."""
    (rules,) = [block for block in SETTINGS if block.startswith("stds.")]
    (folder / ".luacheckrc").write_text(rules.replace(INSTALLED, str(EDITOR)))
    (folder / "script.lua").write_text(script)
    done = subprocess.run(
        ["luacheck", "--codes", "--no-color", "--formatter", "plain", "script.lua"],
        cwd=folder, capture_output=True, text=True, check=False,
    )
    assert done.stderr == ""
    return done.stdout.splitlines()


def test_a_script_with_everything_that_the_shell_has_is_clean_to_luacheck(tmp_path):
    ran = run("-c", """
        local function tell(name, value)
            print("print(" .. name .. ")")
            if type(value) ~= "table" then return end
            for field, inner in pairs(value) do tell(name .. "." .. field, inner) end
        end
        for name, value in pairs(radio) do tell(name, value) end
        for _, name in ipairs { "radio", "bit", "socket", "radioOpen", "radioClose", "radioNative",
            "radioInternal", "swig_type", "swig_equals" } do tell(name, _G[name]) end
        """, driver=SIMULATION)
    assert ran.out.count("\n") > 350
    assert luacheck(tmp_path, ran.out + 'require "sorel.help"\nhelp()\n') == []


@pytest.mark.parametrize(
    "script, code",
    [
        ("radioSetTxGian(1)", "W113"),
        ("print(RADIO_BND_7)", "W113"),
        ("RADIO_BAND_7 = 8", "W121"),
        ("radioInit = print", "W121"),
        ("radio.RADIO_BAND_7 = 8", "W122"),
        ("print(radio.radioInt)", "W143"),
        ("print(bit.hex(1))", "W143"),
    ],
)
def test_a_mistake_is_warned_of(tmp_path, script, code):
    (warning,) = luacheck(tmp_path, script + "\n")
    assert warning.startswith("script.lua:1:")
    assert f"({code})" in warning


def test_the_settings_of_the_language_server_are_json_and_name_the_definitions():
    (settings,) = [json.loads(block) for block in SETTINGS if block.startswith("{")]
    (folder,) = settings["workspace.library"]
    assert (EDITOR / folder.removeprefix(INSTALLED + "/") / "sorelapp.lua").is_file()
