"""A build of the unchanged sources, out of which mutants are made: what changes is compiled again and linked with the
objects of the rest. Neither the sources nor this build are touched."""

import hashlib
import json
import os
import pathlib
import shlex
import shutil
import subprocess

FOLDERS = ["core", "codes", "pages", "fax", "email", "queues"]
COPIED = FOLDERS + ["cmake", "cli", "com", "docs", "packaging", "tests", "typelib", "CMakeLists.txt", "CMakePresets.json",
                    "orvane.h"]
LIBRARY = "liborvane.so"
WITHOUT = {"-fprofile-instr-generate", "-fcoverage-mapping"}


def run(*command, **options):
    return subprocess.run([str(word) for word in command], check=True, **options)


def output(*command, **options):
    return run(*command, stdout=subprocess.PIPE, text=True, **options).stdout


def digest(*texts):
    return hashlib.sha256("\0".join(texts).encode()).hexdigest()[:20]


def digest_of_bytes(*files):
    return digest(*(hashlib.sha256(file.read_bytes()).hexdigest() for file in files))


def files_of(root, folders):
    """What is compiled or read by a test program: Python's files are neither, nor is our list of mutants."""
    for folder in folders:
        paths = [root / folder] if (root / folder).is_file() else sorted((root / folder).rglob("*"))
        yield from (path for path in paths if path.is_file() and path.suffix not in (".py", ".pyc", ".md")
                    and path.parent.name != "mutants")


def digest_of_files(root, folders):
    return digest(*(f"{path.relative_to(root)} {hashlib.sha256(path.read_bytes()).hexdigest()}"
                    for path in files_of(root, folders)))


def synchronise(source, copy):
    """Makes the copy of a tree equal to it; files that are equal keep their times, so that little is built again."""
    wanted = {path.relative_to(source) for name in COPIED for path in everything(source / name)}
    for old in [path for path in everything(copy) if path.relative_to(copy) not in wanted]:
        old.unlink()
    for name in wanted:
        target = copy / name
        if not target.exists() or target.read_bytes() != (source / name).read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source / name, target)
            shutil.copymode(source / name, target)


def everything(path):
    paths = [path] if path.is_file() else path.rglob("*")
    return [path for path in paths if path.is_file() and "__pycache__" not in path.parts]


class Base:
    """The copied tree, its build, and who depends on what in it."""

    def __init__(self, root, folder):
        self.root, self.folder = root, folder
        self.tree, self.build = folder / "tree", folder / "base"

    def make(self, programs, jobs):
        self.tree.mkdir(parents=True, exist_ok=True)
        synchronise(self.root, self.tree)
        self._forget_headers()
        run("cmake", "--preset", "mutate", "-B", self.build, cwd=self.tree, stdout=subprocess.DEVNULL)
        run("ninja", "-C", self.build, "-j", jobs, *(pathlib.Path(program).name for program in programs),
            stdout=subprocess.DEVNULL)
        self._read(programs)

    def _forget_headers(self):
        """Precompiled headers serve as long as nothing is changed."""
        self.stamp = digest_of_files(self.tree, COPIED)
        note = self.folder / "stamp"
        if not note.exists() or note.read_text() != self.stamp:
            shutil.rmtree(self.folder / "headers", ignore_errors=True)
            note.write_text(self.stamp)

    def _read(self, programs):
        commands = json.loads((self.build / "compile_commands.json").read_text())
        self.compilations = {self._object_of(entry): self._words_of(entry) for entry in commands}
        self.links = {target: self._link(target) for target in programs}
        self.library_file = next(path.name for path in sorted(self.build.glob(LIBRARY + ".*.*.*")))
        self.links[LIBRARY] = self._link(self.library_file)
        self.users = self._read_users()

    def _words_of(self, entry):
        words = [word for word in shlex.split(entry["command"]) if word not in WITHOUT and not word.endswith("/ccache")]
        return words, str(pathlib.Path(entry["file"]))

    def _object_of(self, entry):
        words = shlex.split(entry["command"])
        return words[words.index("-o") + 1]

    def _link(self, target):
        """The words of the command that links the target, and of each library in it its objects."""
        text = output("ninja", "-C", self.build, "-t", "commands", "-s", target)
        words = max((shlex.split(part) for part in text.split("&&")), key=len)
        archives = {word: self._archived(word) for word in words if word.endswith(".a") and not word.startswith("/")}
        return words, archives

    def _archived(self, archive):
        text = output("ninja", "-C", self.build, "-t", "commands", "-s", archive)
        return [word for word in shlex.split(text) if word.endswith(".o")]

    def _read_users(self):
        """Which objects are made of a file of the tree."""
        users, current = {}, None
        for line in output("ninja", "-C", self.build, "-t", "deps").splitlines():
            if line and not line.startswith(" "):
                current = line.split(":")[0]
                continue
            path = os.path.normpath(self.build / line.strip()) if line.strip() else ""
            if path.startswith(str(self.tree) + "/"):
                users.setdefault(os.path.relpath(path, self.tree), set()).add(current)
        return users

    def objects_of(self, target):
        words, archives = self.links[target]
        direct = [word for word in words if word.endswith(".o")]
        return direct + [name for names in archives.values() for name in names]

    def affected(self, target, path):
        """The objects of a program or of the library that the file goes into, the smallest source first."""
        users = self.users.get(path, set())
        found = [name for name in self.objects_of(target) if name in users]
        own = pathlib.PurePath(path).stem
        return sorted(found, key=lambda name: (pathlib.PurePath(name).name.split(".")[0] != own, name))
