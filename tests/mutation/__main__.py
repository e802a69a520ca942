# SPDX-License-Identifier: LicenseRef-Proprietary
"""Whether the tests notice small mistakes in the shell and the binding: each is made in a copy of
the tree, one at a time, until a test fails. Ends with 1 where one goes unnoticed that is not argued
to change nothing. A run that is stopped goes on where it was."""

import argparse
import collections
import sys
import threading
from pathlib import Path

import equivalents
import handpicked
import operators
import results
import selection
from results import DOES_NOT_COMPILE, KILLED, SURVIVED
from suites import Files, Hopeless, Program
from tree import Failed, Tree, does_not_compile, files_of, folder_of

ARGUED_SHARE = 0.05
ROUNDS = 4  # the first goes through all files with one mutation in four, the next with another


def sources(root):
    return [name for name in files_of(root)
            if name.startswith(("app/", "binding/")) and name.endswith((".cpp", ".h"))]


def all_mutations(root):
    found = []
    for file in sources(root):
        if file not in selection.FIRST:
            sys.exit(f"selection.py: no tests are named for {file}")
        text = (root / file).read_text()
        found += operators.mutations(file, text)
        found += handpicked.mutations(file, text)
    unique = {}
    for mutation in found:
        unique.setdefault(mutation.key, mutation)
    return list(unique.values())


def in_order_of_trying(mutations):
    numbered = sorted(enumerate(mutations), key=lambda pair: (pair[0] % ROUNDS, pair[0]))
    return [mutation for _, mutation in numbered]


class Worker:
    """A copy of the tree, in which one mutation after the other is tried."""

    def __init__(self, root, number):
        self.tree = Tree(root, folder_of(root) / str(number))

    def prepare(self):
        self.tree.update()
        self.tree.configure()
        self.tree.build("sorelapp", *selection.PROGRAMS, *selection.BESIDES)
        self.tests = self.tree.tests()
        self.programs = {name: self.program(name) for name in selection.PROGRAMS}
        self.everything = Files(selection.all_files(self.tests), self.tests)

    def program(self, name):
        of_it = {test: entry for test, entry in self.tests.items()
                 if Path(entry[0][0]).name == name}
        if not of_it:
            raise Hopeless(f"there is no test of {name}")
        return Program(name, of_it, selection.APART.get(name, ()),
                       selection.SKIPPED.get(name, ()))

    def first_suites(self, file):
        """What a mutation of the file is tried on first, in order."""
        named = selection.FIRST[file]
        files = [name for name in named if name.startswith("e2e.")]
        return [self.programs[name] for name in named if name not in files] + (
            [Files(files, self.tests)] if files else [])

    def other_suites(self, file):
        return [suite for suite in (*self.programs.values(), self.everything)
                if suite.name not in selection.FIRST[file]]

    def check(self):
        """Without a mutation all tests have to pass."""
        self.tree.mutate(None)
        for suite in (*self.programs.values(), self.everything):
            if failing := suite.failing():
                raise Hopeless(f"fails without any mutation: {failing}")

    def outcome(self, mutation, suites):
        self.tree.mutate(mutation)
        built = set()
        for suite in suites:
            if suite.target not in built:
                try:
                    self.tree.build(suite.target)
                except Failed as failed:
                    if not does_not_compile(str(failed)):
                        raise
                    return DOES_NOT_COMPILE, ""
                built.add(suite.target)
            if failing := suite.failing():
                return KILLED, failing
        return SURVIVED, ""


def say(text):
    print(text, flush=True)


def show(mutation, result, arguments):
    word = result.outcome
    if word == SURVIVED and mutation.key in arguments:
        word = f"equivalent: {arguments[mutation.key]}"
    say(f"{mutation}\n    {word}" + (f" by {result.test}" if result.test else ""))


def try_all(root, jobs, mutations, known, arguments):
    """Tries what is not known yet, in several copies at a time: all on the tests that most likely
    notice them, then what is left on all other tests, which takes far longer for each."""
    waiting = collections.deque(mutation for mutation in mutations if not known.of(mutation))
    say(f"{len(mutations) - len(waiting)} of {len(mutations)} are known")
    left = collections.deque()
    lock, failures = threading.Lock(), []

    def take():
        with lock:
            if waiting:
                return waiting.popleft(), True
            return (left.popleft(), False) if left else (None, False)

    def work(number):
        try:
            worker = Worker(root, number)
            worker.prepare()
            if number == 1 and not known.are_checked():
                worker.check()
                known.set_checked()
            while not failures:
                mutation, is_first = take()
                if mutation is None:
                    break
                suites = worker.first_suites if is_first else worker.other_suites
                outcome, test = worker.outcome(mutation, suites(mutation.file))
                with lock:
                    if is_first and outcome == SURVIVED:
                        left.append(mutation)
                    else:
                        show(mutation, known.add(mutation, outcome, test), arguments)
        except (Failed, Hopeless, OSError) as error:
            failures.append(str(error))

    if waiting:
        threads = [threading.Thread(target=work, args=(number,)) for number in range(1, jobs + 1)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
    if failures:
        sys.exit("\n".join(failures))


def summary(mutations, known, arguments, prefix=""):
    """Prints what came of them; returns whether all is well."""
    outcomes = {mutation.key: known.of(mutation).outcome for mutation in mutations}
    count = collections.Counter(outcomes.values())
    survivors = [mutation for mutation in mutations if outcomes[mutation.key] == SURVIVED]
    argued = [mutation for mutation in survivors if mutation.key in arguments]
    unnoticed = [mutation for mutation in survivors if mutation.key not in arguments]
    wrongly = [mutation for mutation in mutations
               if mutation.key in arguments and outcomes[mutation.key] != SURVIVED]
    compiled = count[KILLED] + count[SURVIVED]
    say(f"\n{prefix}{compiled} mutations: {count[KILLED]} noticed by the tests, {len(argued)} "
        f"equivalent, {len(unnoticed)} unnoticed ({count[DOES_NOT_COMPILE]} more did not compile)")
    for mutation in unnoticed:
        say(f"unnoticed: {mutation}")
    for mutation in wrongly:
        say(f"argued to be equivalent, but {outcomes[mutation.key]}: {mutation}")
    too_many = len(argued) > ARGUED_SHARE * compiled
    if too_many:
        say(f"more than {ARGUED_SHARE:.0%} are argued to be equivalent")
    return not (unnoticed or wrongly or too_many)


def main():
    parser = argparse.ArgumentParser(prog="./dev mutate", description=__doc__)
    parser.add_argument("--root", type=Path, required=True, help=argparse.SUPPRESS)
    parser.add_argument("--jobs", type=int, default=2, help="copies to try in at a time")
    parser.add_argument("--list", action="store_true", help="only list the mutations")
    parser.add_argument("--known", action="store_true", help="only say what is known of them")
    parser.add_argument("--trust-kills", action="store_true",
                        help="take what earlier tests noticed for noticed; for use while adding "
                             "some")
    parser.add_argument("files", nargs="*", metavar="FILE", help="only mutations of these files")
    asked = parser.parse_args()
    mutations = all_mutations(asked.root)
    arguments = equivalents.read(Path(__file__).with_name("equivalent.toml"), mutations)
    for file in asked.files:
        if file not in selection.FIRST:
            parser.error(f"there is no file '{file}' among those of app/ and binding/")
    if asked.files:
        mutations = [mutation for mutation in mutations if mutation.file in asked.files]
    if asked.list:
        for mutation in mutations:
            say(mutation)
        return 0
    folder = folder_of(asked.root)
    folder.mkdir(parents=True, exist_ok=True)
    known = results.Results(folder / "results.jsonl", results.state_of(asked.root),
                            asked.trust_kills)
    if asked.known:
        count = len(mutations)
        mutations = [mutation for mutation in mutations if known.of(mutation)]
        say(f"{len(mutations)} of {count} have been tried")
    else:
        try_all(asked.root, asked.jobs, in_order_of_trying(mutations), known, arguments)
    return 0 if summary(mutations, known, arguments) else 1


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (equivalents.Stale, handpicked.Missing) as error:
        sys.exit(str(error))
