"""The words of an IDL file, one at a time, and the errors that name their line."""

import re
from dataclasses import dataclass

WORD = re.compile(
    r"""(?P<skip>\s+|//[^\n]*|/\*.*?\*/)
      |(?P<text>"(?:[^"\\\n]|\\.)*")
      |(?P<uuid>[0-9A-Fa-f]{8}(?:-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12})
      |(?P<number>-?(?:0[xX][0-9A-Fa-f]+|\d+(?:\.\d+)?))
      |(?P<name>[A-Za-z_]\w*)
      |(?P<sign>[][(){},;:=*])""",
    re.DOTALL | re.VERBOSE)


class IdlError(Exception):
    """What is wrong with a line of the description."""

    def __init__(self, path, line, fault):
        super().__init__(f"{path}:{line}: {fault}")


@dataclass(frozen=True)
class Word:
    kind: str  # text, uuid, number, name, sign or end
    value: str
    line: int

    def __str__(self):
        return "end of file" if self.kind == "end" else f"'{self.value}'"


def words(text, path):
    """All words of the text, and one of kind "end"."""
    found, at, line = [], 0, 1
    while at < len(text):
        match = WORD.match(text, at)
        if not match:
            raise IdlError(path, line, f"expected a word of IDL, found '{text[at]}'")
        if match.lastgroup != "skip":
            found.append(Word(match.lastgroup, match[0], line))
        line += match[0].count("\n")
        at = match.end()
    return found + [Word("end", "", line)]


class Reader:
    """Walks over the words. Every operation that finds another word than it wants raises IdlError."""

    def __init__(self, text, path):
        self.path = path
        self.words = words(text, path)
        self.at = 0

    @property
    def next(self):
        return self.words[self.at]

    def fail(self, expected):
        raise IdlError(self.path, self.next.line, f"expected {expected}, found {self.next}")

    def refuse(self, line, fault):
        raise IdlError(self.path, line, fault)

    def take(self):
        self.at += 1
        return self.words[self.at - 1]

    def try_take(self, value):
        """Take the word if it is this sign or name."""
        found = self.next.value == value and self.next.kind in ("sign", "name")
        self.at += found
        return found

    def expect(self, *values):
        for value in values:
            if not self.try_take(value):
                self.fail(f"'{value}'")

    def name(self, what):
        return self.take().value if self.next.kind == "name" else self.fail(what)

    def number(self, what):
        if self.next.kind != "number" or "." in self.next.value:
            self.fail(what)
        return int(self.take().value, 0)

    def text(self, what):
        if self.next.kind != "text":
            self.fail(what)
        return re.sub(r"\\(.)", r"\1", self.take().value[1:-1])

    def uuid(self):
        return self.take().value.lower() if self.next.kind == "uuid" else self.fail("a uuid")
