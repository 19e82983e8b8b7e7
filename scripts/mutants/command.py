"""The command line of scripts/mutate."""

import argparse
import os
import re
import threading
import time

from mutants.base import FOLDERS, Base, digest_of_files
from mutants.operators import mutants_of
from mutants.reach import measure
from mutants.results import Report, Results, key_of, order_of, read_equivalents
from mutants.runner import Runner
from mutants.trial import Worker, try_all

PROGRAMS = [f"tests/unit/test_{name}" for name in ("core", "codes", "pages", "fax", "email", "queues", "documents")] + [
    "tests/persistence/test_persistence", "tests/jobfile/test_jobfile_format", "tests/jobfile/test_jobfile_use",
    "tests/jobfile/test_jobfile_lock", "tests/jobfile/test_jobfile_processes", "tests/faults/test_faults",
    "tests/faults/test_hostile", "tests/faults/test_apartments"]
SOURCE = re.compile(r"(?!.*_win32\.).*\.(h|cpp|inl)$")


def options(description, words):
    parser = argparse.ArgumentParser(description=description, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="*", metavar="FILE", help="path from the root")
    parser.add_argument("--seconds", type=float, default=float("inf"), help="when to stop trying")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="how many to try at once")
    parser.add_argument("--seed", type=int, default=1, help="another order")
    parser.add_argument("--report", action="store_true", help="try nothing")
    parser.add_argument("--list", action="store_true", help="print the mutants, try nothing")
    return parser.parse_args(words)


def all_files(root):
    paths = [path for folder in FOLDERS for path in sorted((root / folder).glob("*"))]
    return [path.relative_to(root).as_posix() for path in paths if SOURCE.match(path.name)]


def say(text):
    print(text, flush=True)


def make_workers(root, build, count):
    """Builds the unchanged sources and measures which tests reach what."""
    base = Base(root, build)
    base.make(PROGRAMS, count)
    reach = measure(base, Runner(build / "work0"), PROGRAMS, build / "reach.json")
    return [Worker(base, reach, number) for number in range(count)]


def try_waiting(waiting, keys, sources, workers, results, tests, until):
    guard, count = threading.Lock(), 0

    def done(mutant, result):
        nonlocal count
        with guard:
            count += 1
            results.add(keys[mutant], result)
            say(f"{count}/{len(waiting)} {mutant.path}:{mutant.line} {result.verdict} {result.seconds} s {result.killer}")

    try_all(waiting, sources, workers, tests, until, done)


def main(description, root, words, workers=make_workers):
    arguments = options(description, words)
    files = arguments.files or all_files(root)
    sources = {path: (root / path).read_text(encoding="utf-8") for path in files}
    mutants = [mutant for path in files for mutant in mutants_of(path, sources[path])]
    if arguments.list:
        say("\n".join(f"{mutant.path}:{mutant.line}\n- {mutant.before}\n+ {mutant.after}" for mutant in mutants))
        return 0
    build = root / "build" / "mutate"
    build.mkdir(parents=True, exist_ok=True)
    keys, results = {mutant: key_of(mutant, sources[mutant.path]) for mutant in mutants}, Results(build / "results.jsonl")
    tests = digest_of_files(root, ["tests"])
    waiting = [mutant for mutant in order_of(mutants, arguments.seed) if not results.is_done(keys[mutant], tests)]
    if waiting and not arguments.report:
        try_waiting(waiting, keys, sources, workers(root, build, arguments.jobs), results, tests,
                    time.monotonic() + arguments.seconds)
    report = Report(mutants, keys, results, read_equivalents(root / "tests" / "mutants" / "equivalent.txt"))
    say("\n".join(report.lines()))
    return 0 if report.passes() else 1
