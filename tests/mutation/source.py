# SPDX-License-Identifier: LicenseRef-Proprietary
"""The text of a C++ source file, seen as code."""

import re

TOKEN = re.compile(r"""//[^\n]*|/\*.*?\*/|"(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)+'""", re.DOTALL)


class Source:
    """code is the text with blanks in place of comments, and with nothing that looks like code
    within texts and characters; strings and characters are where those stand. Lines of which
    is_left_out() is true are left alone."""

    def __init__(self, file, text, is_left_out):
        self.file = file
        self.text = text
        self.strings, self.characters = [], []
        self.code = TOKEN.sub(self.masked, text)
        self.lines = []
        start = 0
        for line in text.split("\n"):
            self.lines.append((start, start + len(line)))
            start += len(line) + 1
        self.left_out = {i for i, (start, end) in enumerate(self.lines, 1)
                         if is_left_out(self.code[start:end]) or is_left_out(text[start:end])}
        self.leave_out_continuations()
        self.statements = list(self.find_statements())

    def masked(self, token):
        if token[0].startswith("/"):
            return re.sub(r"[^\n]", " ", token[0])
        (self.strings if token[0][0] == '"' else self.characters).append(token.span())
        return token[0][0] + "x" * (len(token[0]) - 2) + token[0][0]

    def leave_out_continuations(self):
        """The lines that a macro's definition, or an assertion of the compiler's, goes on for."""
        going_on = None
        for i, (start, end) in enumerate(self.lines, 1):
            line = self.code[start:end].strip()
            if going_on:
                self.left_out.add(i)
            if going_on is None and re.match(r"#\s*define", line):
                going_on = "\\"
            elif going_on is None and line.startswith("static_assert"):
                going_on = ";"
            if going_on == "\\" and not line.endswith("\\"):
                going_on = None
            elif going_on == ";" and line.endswith(";"):
                going_on = None

    def line_of(self, position):
        return self.text.count("\n", 0, position) + 1

    def line_at(self, position):
        start, end = self.lines[self.line_of(position) - 1]
        return self.code[start:end]

    def is_statement_at(self, position):
        return self.line_of(position) not in self.left_out

    def is_call_at(self, position):
        """Not the declaration or definition of that function."""
        line = self.text.rfind("\n", 0, position) + 1
        return self.is_statement_at(position) and not re.search(
            r"(void|int|bool|char|\*) \*?$", self.text[line:position])

    def find_statements(self):
        """Where each statement that stands on lines of its own begins and ends."""
        begin = None
        for i, (start, end) in enumerate(self.lines, 1):
            line = self.code[start:end].rstrip()
            if i in self.left_out or not line.strip() or not line.startswith(" "):
                begin = None
                continue
            if begin is None:
                begin = start
            if line.endswith(";"):
                yield begin, start + len(line)
            if line.endswith((";", "{", "}", ":")):
                begin = None


def closing(code, opening):
    """The position of the parenthesis that closes the one at opening."""
    depth = 0
    for i in range(opening, len(code)):
        depth += (code[i] in "([{") - (code[i] in ")]}")
        if depth == 0:
            return i
    raise ValueError(f"no parenthesis closes the one at {opening}")


def end_of_expression(code, start):
    """Where a semicolon, a comma or a parenthesis that closes another ends what begins there."""
    depth = 0
    for i in range(start, len(code)):
        depth += (code[i] in "([{") - (code[i] in ")]}")
        if depth < 0 or (depth == 0 and code[i] in ",;"):
            return i
    raise ValueError(f"the expression at {start} has no end")


def arguments(code, opening):
    """Where the arguments of the call whose parenthesis opens there begin and end."""
    spans, depth, start = [], 0, opening + 1
    for i in range(opening, closing(code, opening) + 1):
        depth += (code[i] in "([{") - (code[i] in ")]}")
        if (depth == 1 and code[i] == ",") or depth == 0:
            begin = start + len(code[start:i]) - len(code[start:i].lstrip())
            spans.append((begin, i))
            start = i + 1
    return spans
