"""What became of the mutants: kept between runs, compared with the list of equivalent ones, told as a score."""

import collections
import json
import re
from dataclasses import dataclass

from mutants.base import digest

# Which share of a group's mutants must be killed or known as equivalent, in per cent.
THRESHOLDS = {"documents": 95.0, "store": 98.0}
STORE = re.compile(r"core/(JobFile|Disk|FolderLock|Spare|OpenFile|Profile|Name|Patience|Retry|Path|SystemError)")
KILLED, SURVIVED, BROKEN = "killed", "survived", "does not compile"


def group_of(path):
    return "store" if STORE.match(path) else "documents"


def key_of(mutant, source):
    """Names a mutant of this very text of its file."""
    return digest(mutant.path, source, str(mutant.start), str(mutant.end), mutant.text)


def order_of(mutants, seed):
    """All files in turn as chance has it, the same for the same seed, so that the first thousand are a fair sample."""
    return sorted(mutants, key=lambda mutant: digest(str(seed), mutant.path, mutant.before, mutant.after, str(mutant.start)))


@dataclass(frozen=True)
class Result:
    verdict: str
    killer: str = ""
    seconds: float = 0.0
    tests: str = ""  # with which tests


class Results:
    """A line a mutant, appended as it is done, so that a run may be broken off at any time."""

    def __init__(self, file):
        self.file, self.by_key = file, {}
        if file.exists():
            for line in file.read_text().splitlines():
                row = json.loads(line)
                key = row.pop("key")
                self.by_key[key] = Result(**row)

    def add(self, key, result):
        self.by_key[key] = result
        with open(self.file, "a", encoding="utf-8") as file:
            file.write(json.dumps({"key": key, **vars(result)}) + "\n")

    def is_done(self, key, tests):
        """Survivors are tried again once the tests have changed."""
        result = self.by_key.get(key)
        return result is not None and (result.verdict != SURVIVED or result.tests == tests)


@dataclass(frozen=True)
class Equivalent:
    path: str
    before: str
    after: str
    reason: str

    def matches(self, mutant):
        return (self.path, self.before, self.after) == (mutant.path, mutant.before, mutant.after)


def read_equivalents(file):
    """Blocks of four lines: path, `- ` the line, `+ ` the mutated line, `= ` the reason why nobody can see it."""
    if not file.exists():
        return []
    text = "\n".join(line for line in file.read_text().splitlines() if not line.startswith("#"))
    return [_read_block(file, block) for block in re.split(r"\n\s*\n", text.strip()) if block.strip()]


def _read_block(file, block):
    lines = block.splitlines()
    if len(lines) != 4 or [line[:2] for line in lines[1:]] != ["- ", "+ ", "= "] or not lines[3][2:].strip():
        raise ValueError(f"{file}: not path, -, + and = lines:\n{block}")
    return Equivalent(lines[0].strip(), *(" ".join(line[2:].split()) for line in lines[1:]))


class Report:
    """The score of the mutants given, of those that were tried and compile."""

    def __init__(self, mutants, keys, results, equivalents):
        self.survivors, self.false_entries, self.counts = [], [], collections.defaultdict(collections.Counter)
        used = set()
        for mutant in mutants:
            entry = next((entry for entry in equivalents if entry.matches(mutant)), None)
            used.add(entry)
            self._count(mutant, results.by_key.get(keys[mutant]), entry)
        paths = {mutant.path for mutant in mutants}
        self.stale = [entry for entry in equivalents if entry not in used and entry.path in paths]

    def _count(self, mutant, result, entry):
        counts = self.counts[group_of(mutant.path)]
        if result is None:
            counts["left"] += 1
        elif result.verdict == SURVIVED and entry is None:
            counts[SURVIVED] += 1
            self.survivors.append(mutant)
        elif result.verdict == SURVIVED:
            counts["equivalent"] += 1
        else:
            counts[result.verdict] += 1
            if entry is not None:
                self.false_entries.append((entry, result))

    def score(self, group):
        counts = self.counts[group]
        good = counts[KILLED] + counts["equivalent"]
        tried = good + counts[SURVIVED]
        return 100.0 * good / tried if tried else 0.0

    def passes(self):
        """A group of which nothing was asked for does not count."""
        good = all(self.score(group) >= least for group, least in THRESHOLDS.items() if self.counts[group])
        return good and not self.stale and not self.false_entries

    def lines(self):
        for mutant in sorted(self.survivors, key=lambda mutant: (mutant.path, mutant.start, mutant.after)):
            yield f"{mutant.path}:{mutant.line}: survives"
            yield f"- {mutant.before}"
            yield f"+ {mutant.after}"
        for entry in self.stale:
            yield f"equivalent.txt: no mutant of {entry.path} is any more: {entry.before} -> {entry.after}"
        for entry, result in self.false_entries:
            yield f"equivalent.txt: {entry.path}: {entry.before} -> {entry.after}: {result.verdict} {result.killer}"
        for group, least in THRESHOLDS.items():
            if self.counts[group]:
                yield self._line_of(group, least)

    def _line_of(self, group, least):
        counts = self.counts[group]
        tried = counts[KILLED] + counts["equivalent"] + counts[SURVIVED]
        return (f"mutate: {group} {self.score(group):.1f} % of {tried} tried ({counts[KILLED]} killed, {counts['equivalent']} "
                f"equivalent, {counts[SURVIVED]} survive; target {least:.0f} %), {counts['left']} not tried, "
                f"{counts[BROKEN]} do not compile")
