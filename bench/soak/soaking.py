# SPDX-License-Identifier: LicenseRef-Proprietary
"""What a shell holds after the first hundredth of a long run, and at its end."""

import math
import tempfile
from dataclasses import dataclass, replace

from calls import calls_body
from failing import KINDS
from lines import LEAVE, good_lines
from process import MARK, Shell

# What a run may grow by for no reason that is known: pages that are touched late, and the gaps
# between blocks.
SLACK = 512 * 1024
LUA_SLACK = 4 * 1024
LINES_AT_ONCE = 10000


@dataclass(frozen=True)
class Run:
    """What a run held at its start, after its first hundredth, before its last one, at its end."""

    what: str
    count: int
    samples: tuple
    lua_bound: int  # what Lua's memory may grow by
    failures: int = 0  # lines that were to fail

    def growth(self, of):
        _, first, _, last = self.samples
        return getattr(last, of) - getattr(first, of)

    @property
    def resident_bound(self):
        # Lua begins to collect garbage when its memory has doubled, and as much again may come by
        # before it is through. What is freed then stays in memory, for what comes next.
        return 3 * self.lua_bound + SLACK

    @property
    def slowdown(self):
        """The processor's time in the last hundredth, to that in the first."""
        start, first, late, last = (sample.seconds for sample in self.samples)
        return (last - late) / (first - start) if first > start else float("nan")

    @property
    def complaints(self):
        grown = {"Lua's memory": (self.growth("lua"), self.lua_bound),
                 "resident memory": (self.growth("resident"), self.resident_bound),
                 "the heap": (self.growth("heap"), 2 * self.resident_bound),
                 "the number of open files": (self.growth("files"), 0)}
        for what, (growth, bound) in grown.items():
            if growth > bound:
                yield f"{self.what}: {what} grew by {growth:,}, and may by {bound:,}"
        failed = self.samples[-1].failures
        if failed != self.failures:
            yield f"{self.what}: {failed:,} lines failed, and {self.failures:,} were to"


def parts(count):
    """Where a run is looked at."""
    return (0, count // 100, count - count // 100, count)


def soak_lines(tree, what, count, kinds=KINDS, good=good_lines):
    """Runs lines at the prompt, a third of them failing where there are kinds of failures."""
    usual = good(1000)
    failing = count // 3 if kinds else 0

    def line(number):
        if kinds and number % 3 == 2:
            return kinds[number // 3 % len(kinds)].lines([number])[0]
        return usual[number % len(usual)]

    with Shell(tree, tree["simulated_board"]) as shell:
        samples = [shell.send_and_sample([*usual, MARK + "\n"])]
        for start, end in zip(parts(count), parts(count)[1:]):
            for some in range(start, end, LINES_AT_ONCE):
                block = [line(number) for number in range(some, min(end, some + LINES_AT_ONCE))]
                sample = shell.send_and_sample([*block, MARK + "\n"])
            samples.append(sample)
        shell.send(LEAVE)
        shell.process.stdout.read()
        shell.process.wait()
        shell.errors.join()
        samples[-1] = replace(samples[-1], failures=shell.failures)
    most = max((kind.most for kind in kinds), default=0)
    bound = sum(kind.most for kind in kinds) * failing // len(kinds) if kinds else 0
    return Run(what, count, tuple(samples), bound + most + LUA_SLACK, failing)


def soak_script(tree, what, count, body, driver=None):
    """Runs the Lua function body(n) in one script; n are the numbers that add up to count."""
    points = parts(count)
    sizes = [0, *(end - start for start, end in zip(points, points[1:]))]
    script = (f"{body}\nfor _, n in ipairs({{{', '.join(map(str, sizes))}}}) do "
              f"body(n) {MARK} io.read() end")
    with Shell(tree, driver or tree["simulated_board"], "-c", script) as shell:
        samples = []
        for _ in sizes:
            samples.append(shell.sample())
            shell.send("\n")
        shell.process.stdout.read()
        if shell.process.wait() != 0:
            raise RuntimeError(f"{what}: the shell ended with status {shell.process.returncode}")
    return Run(what, count, tuple(samples), LUA_SLACK)


CONTEXTS = """
function body(n)
    for _ = 1, n do
        radioClose()
        radioOpen()
    end
end"""


def soak_calls(tree, count, driver=None, extra=""):
    return soak_script(tree, "calls of all wrappers", count, calls_body(extra), driver)


def soak_lines_and_calls(tree, lines, calls):
    """Lines of which a third fail; the others make all those calls, in the same process."""
    each = math.ceil(calls / (lines - lines // 3))
    with tempfile.NamedTemporaryFile("w", suffix=".lua", encoding="utf-8") as script:
        script.write(calls_body())
        script.flush()
        line = f"if not body then dofile('{script.name}') end body({each})\n"
        return soak_lines(tree, "such lines, and calls by the others", lines,
                          good=lambda count: [line] * count)


def soak_contexts(tree, count, driver=None):
    return soak_script(tree, "context closed and opened", count, CONTEXTS, driver)
