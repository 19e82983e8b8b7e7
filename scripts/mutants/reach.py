"""Which parts of the tests reach which lines, measured once with the unchanged programs."""

import collections
import json
import os
import pathlib
import subprocess
import tempfile

from mutants.base import FOLDERS, digest_of_bytes
from mutants.runner import Part, Run, suites

# A program that works longer is run suite by suite.
WHOLE_SECONDS = 1.0
# Suites that work less are run together: to start a program takes longer than many a suite.
QUICK_SECONDS = 0.5
# What works longer, as crews and kills do, is for the store alone.
LONG_SECONDS = 6.0
ENOUGH = 3600


class Reach:
    """What a run of each part took, and the lines by file that it reached."""

    def __init__(self, parts, hits):
        self.parts, self.hits = parts, hits

    def of(self, path, first, last, with_long):
        """The parts that reach one of the lines, the quickest first, with what a run of them takes. Where none does, or the
        lines have no counter, those that reach the file; where there is none either, all."""
        wanted = set(range(first, last + 1))
        allowed = [part for part in self.parts if with_long or self.parts[part].cpu <= LONG_SECONDS]
        found = [part for part in allowed if self.hits[part].get(path, set()) & wanted]
        found = found or [part for part in allowed if self.hits[part].get(path)] or allowed
        return sorted(self._joined(found), key=lambda pair: (pair[1].cpu, pair[0].name()))

    def _joined(self, found):
        groups = collections.defaultdict(list)
        for part in found:
            groups[part.program, part.filter if self.parts[part].cpu > QUICK_SECONDS else ""].append(part)
        for (program, _), parts in groups.items():
            runs = [self.parts[part] for part in parts]
            yield Part(program, ":".join(part.filter for part in parts)), Run(
                True, sum(run.seconds for run in runs), sum(run.cpu for run in runs))


def measure(base, runner, programs, file):
    """The reach of the programs; those that are as they were are not run again. Raises where a test fails."""
    known = json.loads(file.read_text()) if file.exists() else {}
    document = {}
    for program in programs:
        stamp = digest_of_bytes(base.build / program, base.build / base.library_file)
        document[program] = known.get(program, {})
        if document[program].get("stamp") != stamp:
            print(f"mutate: measuring what {program} reaches", flush=True)
            document[program] = {"stamp": stamp, "parts": _measure(base, runner, program)}
            file.write_text(json.dumps(known | document))
    return _reach(document)


def _measure(base, runner, program):
    """A row a part of the program."""
    whole = _run(base, runner, Part(program))
    if whole["cpu"] <= WHOLE_SECONDS:
        return [whole]
    environment = dict(os.environ, LLVM_PROFILE_FILE=os.devnull)
    return [_run(base, runner, Part(program, name)) for name in suites(base.build / program, environment)]


def _reach(document):
    parts, hits = {}, {}
    for program, measured in document.items():
        for row in measured["parts"]:
            part = Part(program, row["filter"])
            parts[part] = Run(True, row["seconds"], row["cpu"])
            hits[part] = {path: set(lines) for path, lines in row["hits"].items()}
    return Reach(parts, hits)


def _run(base, runner, part):
    with tempfile.TemporaryDirectory(dir=runner.folder) as folder:
        profile = pathlib.Path(folder, "%m.profraw")
        log = base.folder / "test.log"
        result = runner.run(base.build / part.program, part, base.build, ENOUGH, ENOUGH, profile, log)
        if not result.passed:
            raise RuntimeError(f"{part.name()} fails without a mutant, see {log}")
        lines = _lines(base, part.program, pathlib.Path(folder))
    hits = {path: sorted(reached) for path, reached in lines.items()}
    return {"filter": part.filter, "seconds": result.seconds, "cpu": result.cpu, "hits": hits}


def _lines(base, program, folder):
    merged = folder / "merged"
    subprocess.run(["llvm-profdata", "merge", "-sparse", "-o", merged, *folder.glob("*.profraw")], check=True)
    command = ["llvm-cov", "export", "-format=lcov", "-instr-profile", merged, base.build / program, "-object",
               base.build / base.library_file]
    text = subprocess.run([str(word) for word in command], check=True, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, text=True).stdout
    return parse(text, base.tree)


def parse(text, tree):
    """The lines reached, by file."""
    hits, path = {}, ""
    for line in text.splitlines():
        if line.startswith("SF:"):
            path = os.path.relpath(os.path.normpath(line[3:]), tree)
            if path.split("/")[0] not in FOLDERS:
                path = None
        elif path and line.startswith("DA:"):
            number, count = (int(word) for word in line[3:].split(",")[:2])
            if count:
                hits.setdefault(path, set()).add(number)
    return hits
