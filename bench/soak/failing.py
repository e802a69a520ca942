# SPDX-License-Identifier: LicenseRef-Proprietary
"""Lines that fail, and what each leaves behind: its error value, on the Lua stack. Sizes are those
of Lua 5.1 and the GNU C library on machines with 64-bit addresses."""

from dataclasses import dataclass

SLOT = 16  # of the stack, which Lua makes twice as large when it is full
STRING = 25  # beside its bytes
TABLE = 64
LIST = 8  # of all strings, one entry each, which Lua makes twice as large when it is full


@dataclass(frozen=True)
class Kind:
    """A kind of failing line."""

    name: str
    line: str  # {} is the number of the line, in seven digits
    kept: str  # what the error value is: "shared" by all lines, a "table", or its own "string"
    length: int = 0  # of that string

    def lines(self, numbers):
        return [self.line.format(f"{number:07}") + "\n" for number in numbers]

    @property
    def least(self):
        """Bytes of Lua's memory that a line keeps in use."""
        return SLOT + {"shared": 0, "table": TABLE, "string": STRING + self.length + LIST}[self.kept]

    @property
    def most(self):
        """Likewise, right after what grows by doubling has grown."""
        return self.least + SLOT + (LIST if self.kept == "string" else 0)


def own_string(name, line, message):
    return Kind(name, line, "string", len(message.format("0000000")))


KINDS = (
    own_string("syntax error", "a x{}", "[string \"stdin\"]:1: '=' expected near 'x{}'"),
    own_string("message of its own", "error('lost lock {}', 0)", "lost lock {}"),
    own_string("call of nil", "f{}()", "[string \"stdin\"]:1: attempt to call global 'f{}' (a nil value)"),
    Kind("wrapper's error", "radioSetTxFrequency(-1)", "shared"),
    Kind("the same error", "nothing()", "shared"),
    Kind("table", "error({{}})", "table"),
)
