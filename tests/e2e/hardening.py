# SPDX-License-Identifier: LicenseRef-Proprietary
"""How well an executable or library, and the memory of a process, are guarded against misuse."""

import re
import subprocess

from elf import undefined_symbols


def readelf(option, file):
    return subprocess.run(
        ["readelf", "--wide", option, str(file)], capture_output=True, text=True, check=True
    ).stdout


def segments(file):
    """The program headers of a file as (type, flags), such as ("LOAD", "RE")."""
    lines = re.findall(r"^  (\w+) +(?:0x[0-9a-f]+ +){5}([R W][ W][ E])",
                       readelf("--program-headers", file), re.M)
    return [(kind, flags.replace(" ", "")) for kind, flags in lines]


def missing_in_file(file, fortified):
    """What an executable or library lacks, one phrase each. Only code that was optimised can be
    fortified. A program shows that it guards its stack, and that it was fortified, only where it has
    a function to which either applies."""
    headers = segments(file)
    dynamic = readelf("--dynamic", file)
    flags = " ".join(re.findall(r"\(FLAGS(?:_1)?\)(.*)", dynamic))
    undefined = undefined_symbols(file)
    is_program = any(kind == "INTERP" for kind, _ in headers)
    wanted = {
        "an address that is not fixed": not is_program or "PIE" in flags,
        "code that needs no change when it is loaded": "TEXTREL" not in dynamic,
        "all symbols bound at the start": re.search(r"NOW", flags),
        "tables that are read-only after the start": any(k == "GNU_RELRO" for k, _ in headers),
        "a stack that is not executable": ("GNU_STACK", "RW") in headers,
        "no segment that is writable and executable":
            all(not {"W", "E"} <= set(flags) for kind, flags in headers if kind == "LOAD"),
        "a guarded stack": "__stack_chk_fail" in undefined,
        "fortified calls of the C library":
            not fortified or any(re.fullmatch(r"__(?!stack).*_chk", name) for name in undefined),
    }
    return [what for what, there in wanted.items() if not there]


def writable_code(maps):
    """The lines of a /proc/PID/maps whose memory a process can both write and execute."""
    lines = maps.splitlines()
    assert any("libc" in line and " r-xp " in line for line in lines), maps
    return [line for line in lines if re.search(r" .wx. ", line)]
