"""Compiles and links one mutant at a time, in a folder of its own. Precompiled headers save most of the time."""

import os
import re
import shutil
import subprocess

from mutants.base import LIBRARY, digest

STANDARD = ["algorithm", "array", "charconv", "chrono", "cstring", "filesystem", "fstream", "functional", "map", "memory",
            "mutex", "optional", "string", "system_error", "thread", "unordered_map", "utility", "variant", "vector"]


class Compiler:
    def __init__(self, base, folder):
        self.base, self.folder = base, folder
        self.headers = base.folder / "headers"
        self.overlay, self.made = folder / "overlay", folder / "made"
        self.path, self.objects, self._fits = "", {}, {}

    def begin(self, path, text):
        """From now on the file at `path` has this text."""
        for folder in (self.overlay, self.made):
            shutil.rmtree(folder, ignore_errors=True)
        (self.overlay / path).parent.mkdir(parents=True)
        (self.overlay / path).write_text(text)
        self.path, self.objects = path, {}

    def library(self):
        """Makes the library; None if the text does not compile."""
        return self._make(LIBRARY, self.made / (LIBRARY + ".1"))

    def program(self, target):
        """The program for this text, which is the unchanged one where the text is not in it; None as above."""
        if not self.base.affected(target, self.path):
            return self.base.build / target
        made = self.made / target
        return made if made.exists() else self._make(target, made)

    def _make(self, target, made):
        for name in self.base.affected(target, self.path):
            if name not in self.objects and not self._compile(name):
                return None
        return self._link(target, made)

    def _link(self, target, made):
        words, archives = self.base.links[target]
        command = []
        for word in words:
            command += [str(self.objects[name]) for name in archives.get(word, []) if name in self.objects]
            command.append(str(self.objects.get(word, word)))
        command = [str(self.made / (LIBRARY + ".1")) if word == self.base.library_file else word for word in command]
        command[command.index("-o") + 1] = str(made)
        made.parent.mkdir(parents=True, exist_ok=True)
        return made if self._succeeds(command) else None

    def _compile(self, name):
        words, source = self.base.compilations[name]
        relative = os.path.relpath(source, self.base.tree)
        changed = self.overlay / relative
        into = self.made / name
        into.parent.mkdir(parents=True, exist_ok=True)
        header = self._header(words, relative, changed.exists())
        text = str(changed if changed.exists() else source)
        command = [words[0], f"-I{self.overlay}", *words[1:-1], text]
        command[command.index("-o") + 1] = str(into)
        self.objects[name] = into
        if header and self._succeeds(command + ["-include-pch", str(header)]):
            return True
        return not self._is_fit(words, header) and self._succeeds(command)

    def _is_fit(self, words, header):
        """Whether the unchanged source compiles with the precompiled header, so that the change is to blame."""
        if header is None:
            return False
        key = (words[-1], header)
        if key not in self._fits:
            self._fits[key] = self._succeeds([*words, "-include-pch", str(header), "-fsyntax-only"])
        return self._fits[key]

    def _header(self, words, relative, is_changed):
        """Of a changed source all that it includes, else what the standard and the tests have; None if that fails."""
        if is_changed:
            text = preamble((self.base.tree / relative).read_text())
        else:
            tests = ["gtest/gtest.h"] if relative.startswith("tests/") else []
            text = "".join(f"#include <{name}>\n" for name in STANDARD + tests)
        flags = words[1:words.index("-o")]
        target = self.headers / (digest(text, *flags) + ".pch")
        if not target.exists() and not target.with_suffix(".unfit").exists():
            self._precompile([words[0], *flags], text, target)
        return target if target.exists() else None

    def _precompile(self, compiler, text, target):
        self.headers.mkdir(parents=True, exist_ok=True)
        source = target.with_suffix(f".{self.folder.name}.h")
        source.write_text(text)
        made = source.with_suffix(".made")
        if self._succeeds([*compiler, "-fpch-instantiate-templates", "-x", "c++-header", str(source), "-o", str(made)]):
            os.replace(made, target)
        else:
            target.with_suffix(".unfit").touch()

    def _succeeds(self, command):
        result = subprocess.run(command, cwd=self.base.build, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return result.returncode == 0


def preamble(text):
    """The includes at the head of a source."""
    lines = []
    for line in text.splitlines():
        if line.strip() and not re.match(r"\s*(#\s*include\b|//)", line):
            break
        lines.append(line)
    return "\n".join(lines) + "\n"
