# SPDX-License-Identifier: LicenseRef-Proprietary
"""Which mistakes are tried, and that what stands in the lists of them is still true of the tree."""

import os
import subprocess
import sys
from pathlib import Path

import pytest

import equivalents
import handpicked
import operators
import selection

ROOT = Path(os.environ["SORELAPP_SOURCE_DIR"])
LISTED = [sys.executable, "-B", ROOT / "tests/mutation", "--root", ROOT, "--list"]

FUNCTION = """int f(int a)
{{
    // if (a == 1) in a comment
    {}
    return 5;
}}
"""


def changes(statement):
    """What the statement becomes, by operator."""
    found = operators.mutations("app/f.cpp", FUNCTION.format(statement))
    return {(mutation.operator, mutation.after) for mutation in found if mutation.line == 4}


def all_changes(statement):
    """As changes(), before some are chosen."""
    chosen = operators.chosen
    operators.chosen = lambda found: found
    try:
        return changes(statement)
    finally:
        operators.chosen = chosen


@pytest.mark.parametrize("statement, operator, after", [
    ("if (a == b) {", "comparison flipped", "if (a != b) {"),
    ("if (a == b) {", "check removed", "if (false) {"),
    ("if (known(a)) {", "check always met", "if (true) {"),
    ("if (!known(a)) {", "negation dropped", "if (known(a)) {"),
    ("if (f(a); a < b) {", "bound moved", "if (f(a); a <= b) {"),
    ("if (T *t = find(a)) {", "check removed", "if (T *t = nullptr) {"),
    ("if (a && b) {", "conditions joined otherwise", "if (a || b) {"),
    ("return a + b;", "arithmetic changed", "return a - b;"),
    ("return a ? b : c;", "choice swapped", "return a ? c : b;"),
    ("return a ? f(b) : g<int>(c);", "choice swapped", "return a ? g<int>(c) : f(b);"),
    ("g(a, f(1));", "statement deleted", ";"),
    ("a->b = c;", "statement deleted", ";"),
    ("++a;", "statement deleted", ";"),
    ("continue;", "statement deleted", ";"),
    ("return true;", "truth changed", "return false;"),
    ("return 262;", "number changed", "return 263;"),
    ("return 0.5;", "number changed", "return 1.5;"),
    ("return 'b';", "character changed", "return '#';"),
    ('return "text";', "text changed", 'return "text~";'),
    ('assertThat(a, "b", c(1, 2), 4);', "arguments swapped", 'assertThat(a, c(1, 2), "b", 4);'),
])
def test_a_mistake_is_found(statement, operator, after):
    assert (operator, after) in all_changes(statement)


@pytest.mark.parametrize("statement", [
    "// a == b", "/* f(a); */", "static_assert(a == 1);", "#define A 1", "using A = B<1>;", "",
    "lua_pop(L, 1);",
])
def test_what_runs_nothing_is_left_alone(statement):
    assert all_changes(statement) == set()


def test_text_is_not_taken_for_code():
    found = all_changes('return " == 1; if (a) { // ";')
    assert {operator for operator, _ in found} == {"text changed"}


def test_of_a_table_the_ends_and_the_middle_are_tried():
    rows = "".join(f"    MEMBER({name}),\n" for name in "ABCDE")
    found = operators.mutations("app/f.cpp", "const T t[] = {\n" + rows + "};\n")
    assert {mutation.before for mutation in found} == {"MEMBER(A),", "MEMBER(C),", "MEMBER(E),"}


def test_of_each_file_some_tests_are_known():
    files = {str(path.relative_to(ROOT)) for folder in ("app", "binding")
             for path in (ROOT / folder).rglob("*") if path.suffix in (".cpp", ".h")}
    assert files == set(selection.FIRST)


def test_there_are_many_and_the_lists_are_up_to_date():
    done = subprocess.run(LISTED, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=False)
    assert done.returncode == 0, done.stdout
    assert len(done.stdout.splitlines()) >= 200


def test_a_list_that_is_out_of_date_is_refused(tmp_path):
    known = operators.mutations("app/f.cpp", FUNCTION.format("if (a == b) {"))
    listed = tmp_path / "equivalent.toml"
    entry = '[[equivalent]]\nfile = "app/f.cpp"\noperator = "comparison flipped"\n' \
            'before = "if (a == b) {{"\nafter = "if (a {} b) {{"\nwhy = "{}"\n'
    listed.write_text(entry.format("!=", "a reason"))
    assert list(equivalents.read(listed, known).values()) == ["a reason"]
    listed.write_text(entry.format("<", "a reason"))
    with pytest.raises(equivalents.Stale):
        equivalents.read(listed, known)
    listed.write_text(entry.format("!=", " "))
    with pytest.raises(equivalents.Stale):
        equivalents.read(listed, known)
    with pytest.raises(handpicked.Missing):
        list(handpicked.mutations("app/context.cpp", "int f();\n"))
