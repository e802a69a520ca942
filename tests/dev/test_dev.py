# SPDX-License-Identifier: LicenseRef-Proprietary
"""./dev, as a person uses it."""

import os
import shutil
import subprocess

import pexpect
import pytest

from dev_command import DEV, ROOT, dev, standing_in


@pytest.fixture(scope="module", autouse=True)
def built_tree():
    """Later runs have nothing to do."""
    done = dev("run", "-c", "")
    assert done.returncode == 0, done.stderr


def test_on_a_built_tree_it_prints_what_the_shell_prints_and_nothing_else():
    done = dev("run", "-c", "print(1)")
    assert (done.stdout, done.stderr, done.returncode) == ("1\n", "", 0)


def test_the_shell_stands_on_the_simulated_board():
    assert "simulated" in dev("run", "-c", "print(radioGetPlatformName())").stdout


def test_a_file_is_looked_for_where_the_person_stands(tmp_path):
    folder = tmp_path / "a folder"
    folder.mkdir()
    (folder / "my script.lua").write_text("print('found')")
    assert dev("run", "-b", "my script.lua", cwd=folder).stdout == "found\n"


def test_a_script_finds_the_lua_modules_of_the_tree_wherever_the_person_stands(tmp_path):
    script = "print(require('sorel.constants').name('RADIO_BAND', 7))"
    assert dev("run", "-c", script, cwd=tmp_path).stdout == "RADIO_BAND_7\n"


def test_a_script_finds_lua_modules_where_lua_looks_by_itself_too(tmp_path):
    (tmp_path / "bring_up.lua").write_text("return 'found'")
    assert dev("run", "-c", "print(require 'bring_up')", cwd=tmp_path).stdout == "found\n"


def test_a_script_finds_lua_modules_where_the_person_lets_lua_look_too(tmp_path):
    folder = tmp_path / "modules"
    folder.mkdir()
    (folder / "bring_up.lua").write_text("return 'found'")
    script = "print(require 'bring_up', type(require 'sorel.constants'))"
    done = dev("run", "-c", script, env=os.environ | {"LUA_PATH": f"{folder}/?.lua"})
    assert done.stdout == "found\ttable\n"


def test_it_may_be_called_through_a_link(tmp_path):
    link = tmp_path / "link"
    link.symlink_to(DEV)
    assert dev("run", "-c", "print(1)", program=link).stdout == "1\n"


def test_lines_piped_in_reach_the_prompt():
    done = dev("run", stdin="print(1)\nexit\n")
    assert done.stdout == "sorelapp> 1\nsorelapp> "


def test_the_status_is_that_of_the_shell():
    assert dev("run", "no such argument").returncode == 64


def test_the_prompt_can_be_edited_and_finds_the_modules_of_the_tree(tmp_path):
    terminal = pexpect.spawn(str(DEV), ["edit"], cwd=tmp_path, encoding="utf-8", timeout=60,
                             dimensions=(24, 1000),
                             env=os.environ | {"HOME": str(tmp_path), "TERM": "xterm"})
    terminal.expect_exact("sorelapp> ")
    terminal.send("print(require('sorel.consta\t).name('RADIO_PLATFO\t', 1))\r")
    terminal.expect_exact("\nRADIO_PLATFORM_TALWIN\r")
    terminal.sendeof()
    terminal.expect(pexpect.EOF)
    assert terminal.wait() == 0


def test_the_picture_is_drawn_into_a_folder_and_named(tmp_path):
    folder = tmp_path / "a folder"
    folder.mkdir()
    done = dev("picture", "a folder", cwd=tmp_path, env=os.environ | {"LD_LIBRARY_PATH": "none"})
    assert done.returncode == 0, done.stderr
    assert f"dev: the picture is {folder}/gain_modes.png" in done.stderr
    assert {path.name for path in folder.iterdir()} == {"gain_modes.csv", "gain_modes.png"}
    assert (folder / "gain_modes.png").read_bytes().startswith(b"\x89PNG")


def test_no_picture_is_drawn_where_there_is_no_folder(tmp_path):
    done = dev("picture", tmp_path / "none")
    assert (done.stderr, done.returncode) == (f"dev: there is no folder '{tmp_path}/none'\n", 1)


def test_the_reference_is_made_into_a_folder(tmp_path):
    folder = tmp_path / "a folder"
    folder.mkdir()
    done = dev("reference", "a folder", cwd=tmp_path, env=os.environ | {"LD_LIBRARY_PATH": "none"})
    assert done.returncode == 0, done.stderr
    assert f"dev: made {folder}/docs/reference.md" in done.stderr
    made = [path.relative_to(folder) for path in folder.rglob("*") if path.is_file()]
    assert len(made) > 5
    for path in made:
        assert (folder / path).read_bytes() == (ROOT / path).read_bytes(), path


def test_no_reference_is_made_where_there_is_no_folder(tmp_path):
    done = dev("reference", tmp_path / "none")
    assert (done.stderr, done.returncode) == (f"dev: there is no folder '{tmp_path}/none'\n", 1)


def test_only_what_is_there_is_fuzzed():
    done = dev("fuzz", "nothing")
    assert done.returncode == 1
    assert done.stderr.startswith("dev: there is no target 'nothing'; there are: ")
    assert " prompt " in done.stderr


def test_fuzzing_takes_a_number_of_seconds():
    for arguments in (("prompt", "long"), ("prompt", "0"), ("prompt", "1", "2")):
        done = dev("fuzz", *arguments)
        assert (done.stderr, done.returncode) == (
            "dev: fuzz takes a target and a number of seconds\n", 1)


def test_without_a_verb_it_lists_them():
    done = dev()
    assert done.returncode == 0
    verbs = ("run", "edit", "test", "arm", "asan", "valgrind", "board", "coverage", "mutate", "fuzz",
             "lint", "picture", "reference", "package", "bench", "size", "soak")
    assert all(f"\n  {verb} " in done.stdout for verb in verbs)


def test_packages_are_made_on_no_machine_that_they_are_not_for(tmp_path):
    done = dev("package", env=standing_in(tmp_path, dpkg="echo arm64"))
    assert (done.stderr, done.returncode) == ("dev: packages are made on amd64\n", 1)


def test_an_unknown_verb_is_refused_with_the_list():
    done = dev("dance")
    assert done.returncode == 1
    assert "\n  run " in done.stderr
    assert done.stderr.endswith("dev: there is no verb 'dance'\n")


def test_a_tree_of_another_driver_is_set_up_for_the_simulated_board_again(tmp_path):
    other = tmp_path / "libsorel.so"
    shutil.copy(ROOT / "build/release/driver/libsorel.so.1", other)
    subprocess.run(
        ["cmake", "--preset", "release", f"-DSOREL_LIBRARY={other}"],
        cwd=ROOT, stdout=subprocess.DEVNULL, check=True,
    )
    done = dev("run", "-c", "print(radioGetPlatformName())")
    assert "simulated" in done.stdout
    assert "it was for another driver\n" in done.stderr


def test_a_package_that_cannot_be_installed_is_named_with_what_to_do(tmp_path):
    env = standing_in(tmp_path, dpkg_query="echo installed cmake", id="echo 1000", sudo="exit 1")
    done = dev("run", "-c", "print(1)", env=env)
    assert (done.stdout, done.returncode) == ("", 1)
    assert "dev: missing packages, and sudo refused; install by hand" in done.stderr
    assert "apt-get install g++ ninja-build " in done.stderr
    assert " cmake" not in done.stderr


def test_missing_packages_are_named_and_installed_as_root(tmp_path):
    log = tmp_path / "log"
    env = standing_in(
        tmp_path,
        dpkg_query="printf 'installed %s\\n' cmake g++ ninja-build pkg-config liblua5.1-0-dev "
                   "lua-bitop-dev libtomlplusplus-dev",
        id="echo 1000",
        sudo=f'echo "$@" >>{log}',
    )
    done = dev("run", "-c", "print(1)", env=env)
    assert (done.stdout, done.stderr) == ("1\n", "dev: installing packages: lua-socket-dev\n")
    calls = log.read_text().splitlines()
    assert calls[0] == "-v"
    assert calls[1].endswith("apt-get -q update")
    assert calls[2].endswith("install lua-socket-dev")


def test_a_failed_installation_says_what_to_do(tmp_path):
    env = standing_in(tmp_path, dpkg_query="exit 1", id="echo 0", apt_get="echo no network; exit 1")
    done = dev("run", "-c", "print(1)", env=env)
    assert (done.stdout, done.returncode) == ("", 1)
    assert "no network\n" in done.stderr
    assert "dev: apt-get update failed; install by hand, then try again" in done.stderr


def test_checks_that_were_left_out_are_named_with_the_reason(tmp_path):
    program = shutil.copy(DEV, tmp_path)
    shutil.copytree(ROOT / "scripts", tmp_path / "scripts")
    log = "build/test/Testing/Temporary/LastTest.log"
    env = standing_in(
        tmp_path,
        dpkg_query="shift 3; printf 'installed %s\\n' \"$@\"",
        cmake=":",
        ninja="echo no work to do",
        ctest=f"mkdir -p $(dirname {log}); exit 8",
    )
    assert dev("test", program=program, env=env).returncode == 8
    reason = "tests/link/test_refusals.py:144: there is no compiler"
    standing_in(tmp_path, ctest=f"""echo 'all passed'
        printf 'SKIPPED [1] ../../../%s\\n.. [100%%]\\n' '{reason}' '{reason}' >{log}""")
    done = dev("test", program=program, env=env)
    assert done.stdout == f"all passed\nskipped: {reason}\n"
    assert done.returncode == 0
