# SPDX-License-Identifier: LicenseRef-Proprietary
"""The small mistakes that are put into a source file, one at a time. They are found in the text of
the code as clang-format leaves it: comparisons and binary operators have blanks on both sides,
template brackets and pointers do not."""

import hashlib
import re
from dataclasses import dataclass, field

from source import Source, arguments, closing, end_of_expression

FLIPPED = {"==": "!=", "!=": "==", "<": ">=", "<=": ">", ">": "<=", ">=": "<"}
MOVED = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
JOINED = {"&&": "||", "||": "&&"}
COMPUTED = {"+": "-", "-": "+", "*": "/", "/": "*"}

# Functions that put their arguments into a message.
WORDING = ("raiseArgumentType", "raiseArgumentCount", "lua_pushfstring", "checkInvariant",
           "assertThat", "__assert_fail", "checkUserdataOrNil", "toNativePointer", "fprintf")

# Of a table's rows, which are many and alike, the first, the middle and the last one are changed.
ROW = re.compile(r'^ +(?:(?:MEMBER|PLAIN|OWN|pointerType)\(.*\),|".*",)$'
                 r"|^template <> struct ArgumentKind<.*$")

NOT_CODE = re.compile(r"^\s*(#|static_assert|using |namespace|extern|template|$)")

# What a function of Lua's leaves on its stack is dropped by Lua itself, and what is not reached is
# not missed.
CLEARING = re.compile(r"^ +(lua_(pop|settop)|__builtin_unreachable)\(")

STATEMENT = re.compile(
    r"^ +(?:(?!return\b|delete\b|static_assert\b)"
    r"(?:static_cast<void>\(.*\)|\(.*\)|[\w:<>.\->*]+\(.*\))"
    r"|\*?[\w\->\[\].*]+ [+\-]?= .*|(?:\+\+|--).*|break|continue|return);$", re.DOTALL)


@dataclass(frozen=True)
class Mutation:
    file: str
    line: int  # from 1
    operator: str
    before: str  # the changed lines, joined, without the blanks around them
    after: str
    text: str = field(repr=False)  # the whole file
    behind: str = ""  # the line before

    @property
    def key(self):
        return hashlib.sha256(f"{self.file}\0{self.text}".encode()).hexdigest()

    def __str__(self):
        return f"{self.file}:{self.line}: {self.operator}: {self.before}  ->  {self.after}"


def one_line(text):
    return " ".join(text.split())


def changed(source, start, end, by, operator):
    """The mutation that replaces the characters from start up to end."""
    text = source.text[:start] + by + source.text[end:]
    first = source.text.rfind("\n", 0, start) + 1
    last = source.text.find("\n", end - 1 if end > start else end)
    before = source.text[first:last]
    after = text[first:last + len(text) - len(source.text)]
    behind = source.text[:first].rstrip().rpartition("\n")[2].strip()
    return Mutation(source.file, source.line_of(start), operator, one_line(before),
                    one_line(after), text, behind)


def replaced_tokens(source, operator, tokens):
    choice = "|".join(re.escape(token) for token in sorted(tokens, key=len, reverse=True))
    for found in re.finditer(rf"(?<= )(?:{choice})(?= |\n)", source.code):
        if source.is_statement_at(found.start()):
            yield changed(source, *found.span(), tokens[found[0]], operator)


# Statements of which nothing but the whole is changed: they only move values on Lua's stack.
STACK = re.compile(r"^\s*(lua_\w+|push\w+|set\w+Field|addField)\(")


def changed_numbers(source):
    for found in re.finditer(r"(?<![\w.\"'])(\d+)(\.\d+)?(U?)(?![\w.\"'])", source.code):
        if (source.is_statement_at(found.start()) and
                not STACK.match(source.line_at(found.start()))):
            whole, fraction, suffix = found.groups()
            by = str(int(whole) + 1) + (fraction or "") + suffix
            yield changed(source, *found.span(), by, "number changed")


def changed_literals(source):
    for found in re.finditer(r"\b(true|false)\b", source.code):
        if source.is_statement_at(found.start()):
            by = "false" if found[0] == "true" else "true"
            yield changed(source, *found.span(), by, "truth changed")
    for start, end in source.characters:
        yield changed(source, start, end, "'#'", "character changed")
    for start, end in source.strings:
        if source.is_statement_at(start):
            yield changed(source, end - 1, end - 1, "~", "text changed")


def conditions(source):
    """The condition of every if and while: where it begins and ends."""
    for found in re.finditer(r"\b(if|while) \(", source.code):
        if not source.is_statement_at(found.start()):
            continue
        start, end = found.end(), closing(source.code, found.end() - 1)
        initialiser = source.code.rfind("; ", start, end)
        if initialiser >= 0:
            start = initialiser + 2
        yield found[1], start, end


def settled_conditions(source):
    for keyword, start, end in conditions(source):
        condition = source.code[start:end]
        declares = re.search(r" = ", condition)
        if declares:
            yield changed(source, start + declares.end(), end, "nullptr", "check removed")
            continue
        yield changed(source, start, end, "false", "check removed")
        if keyword == "if" and not re.search(r" [=!<>]=? ", condition):
            # A comparison that is flipped does the same.
            yield changed(source, start, end, "true", "check always met")


def dropped_negations(source):
    for found in re.finditer(r"!(?=[\w(])", source.code):
        if source.is_statement_at(found.start()):
            yield changed(source, *found.span(), "", "negation dropped")


def swapped_choices(source):
    for found in re.finditer(r" \? ", source.code):
        if not source.is_statement_at(found.start()):
            continue
        end = end_of_expression(source.code, found.end())
        colon = source.code.rfind(" : ", found.end(), end)
        if colon >= 0:
            by = source.text[colon + 3:end] + " : " + source.text[found.end():colon]
            yield changed(source, found.end(), end, by, "choice swapped")


def deleted_statements(source):
    for start, end in source.statements:
        if CLEARING.match(source.code[start:end]):
            continue
        if STATEMENT.match(source.code[start:end]):
            first = start + len(source.code[start:end]) - len(source.code[start:end].lstrip())
            yield changed(source, first, end, ";", "statement deleted")


def swapped_arguments(source):
    for found in re.finditer(r"\b(" + "|".join(WORDING) + r")\(", source.code):
        if not source.is_call_at(found.start()):
            continue
        spans = arguments(source.code, found.end() - 1)
        for (a, b), (c, d) in zip(spans[1:], spans[2:]):
            by = source.text[c:d] + source.text[b:c] + source.text[a:b]
            left, right = source.text[a:b], source.text[c:d]
            are_alike = left[0].isdigit() == right[0].isdigit() and "line" not in (left, right)
            if left != right and are_alike:
                yield changed(source, a, d, by, "arguments swapped")


def deleted_rows(source):
    blocks, before = [], None
    for start, end in source.lines:
        if ROW.match(source.text[start:end]):
            if before != start - 1:
                blocks.append([])
            blocks[-1].append((start, end))
            before = end
    for rows in blocks:
        for position in sorted({0, len(rows) // 2, len(rows) - 1}):
            yield changed(source, *rows[position], "", "row deleted")
            start, end = rows[position]
            quote = source.text.find('"', start, end)
            if quote >= 0:
                yield changed(source, quote + 1, quote + 1, "~", "text changed")


# Of a line that decides something, two of these are tried; of every other of the rest, one. All of
# them would be three times as many, most of them noticed by the same test.
DECIDING = ("comparison flipped", "bound moved", "conditions joined otherwise", "check removed",
            "check always met", "arguments swapped", "negation dropped", "choice swapped",
            "arithmetic changed")


def draw(mutation):
    """A number that is always the same one for a mutation, wherever its line stands."""
    text = f"{mutation.operator} {mutation.before} {mutation.after}"
    return hashlib.sha256(text.encode()).digest()


def chosen(found):
    lines = {}
    for mutation in found:
        lines.setdefault(mutation.line, []).append(mutation)
    for of_line in lines.values():
        of_line.sort(key=draw)
        deciding = [mutation for mutation in of_line if mutation.operator in DECIDING]
        if deciding:
            yield from deciding[:2]
        elif draw(of_line[0])[-1] % 2 == 0 or len(lines) < 20:
            yield of_line[0]


def mutations(file, text):
    """The mutations of a file, in the order of its lines."""
    source = Source(file, text, lambda line: NOT_CODE.match(line) or ROW.match(line))
    found = {}
    for mutation in (
            *replaced_tokens(source, "comparison flipped", FLIPPED),
            *replaced_tokens(source, "bound moved", MOVED),
            *replaced_tokens(source, "conditions joined otherwise", JOINED),
            *replaced_tokens(source, "arithmetic changed", COMPUTED),
            *settled_conditions(source),
            *dropped_negations(source),
            *swapped_choices(source),
            *deleted_statements(source),
            *swapped_arguments(source),
            *changed_literals(source),
            *changed_numbers(source),
            *deleted_rows(source)):
        found.setdefault(mutation.text, mutation)
    found.pop(text, None)
    return sorted(chosen(found.values()), key=lambda mutation: (mutation.line, mutation.operator))
