"""Which parts of the tests reach which lines, measured once with the unchanged programs."""

import json
import os
import pathlib
import subprocess
import tempfile

from mutants.base import FOLDERS
from mutants.runner import Part, suites

# A program that works longer is run suite by suite.
WHOLE_SECONDS = 1.0
# What works longer, as crews and kills do, is for the store alone.
LONG_SECONDS = 6.0
ENOUGH = 3600


class Reach:
    """What a run of each part took, and the lines by file that it reached."""

    def __init__(self, parts, hits):
        self.parts, self.hits = parts, hits

    def of(self, path, first, last, with_long):
        """The parts that reach one of the lines, the quickest first. Where none does, or the lines have no counter, those
        that reach the file; where there is none either, all."""
        wanted = set(range(first, last + 1))
        allowed = [part for part in self.parts if with_long or self.parts[part].cpu <= LONG_SECONDS]
        found = [part for part in allowed if self.hits[part].get(path, set()) & wanted]
        found = found or [part for part in allowed if self.hits[part].get(path)] or allowed
        return sorted(found, key=lambda part: (self.parts[part].cpu, part.name()))


def measure(base, runner, programs):
    """Runs all programs; returns the reach, or raises where a test fails."""
    parts, hits = {}, {}
    for program in programs:
        whole = Part(program)
        result, lines = _run(base, runner, whole)
        pieces = {whole: (result, lines)}
        if result.cpu > WHOLE_SECONDS:
            environment = dict(os.environ, LLVM_PROFILE_FILE=os.devnull)
            names = suites(base.build / program, environment)
            pieces = {Part(program, name): _run(base, runner, Part(program, name)) for name in names}
        for part, (result, lines) in pieces.items():
            parts[part], hits[part] = result, lines
    return Reach(parts, hits)


def _run(base, runner, part):
    with tempfile.TemporaryDirectory(dir=runner.folder) as folder:
        profile = pathlib.Path(folder, "%m.profraw")
        log = base.folder / "test.log"
        result = runner.run(base.build / part.program, part, base.build, ENOUGH, ENOUGH, profile, log)
        if not result.passed:
            raise RuntimeError(f"{part.name()} fails without a mutant, see {log}")
        lines = _lines(base, part.program, pathlib.Path(folder))
    return result, lines


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


def save(reach, stamp, file):
    document = {"stamp": stamp, "parts": [{"program": part.program, "filter": part.filter, "seconds": run.seconds, "cpu": run.cpu,
                           "hits": {path: sorted(lines) for path, lines in reach.hits[part].items()}}
                          for part, run in reach.parts.items()]}
    file.write_text(json.dumps(document))


def load(stamp, file, make_run):
    """What was saved under the stamp, None if there is no such."""
    document = json.loads(file.read_text()) if file.exists() else {}
    if document.get("stamp") != stamp:
        return None
    parts, hits = {}, {}
    for row in document["parts"]:
        part = Part(row["program"], row["filter"])
        parts[part] = make_run(True, row["seconds"], row["cpu"])
        hits[part] = {path: set(lines) for path, lines in row["hits"].items()}
    return Reach(parts, hits)
