#!/usr/bin/env python3
"""Registration and its complete undoing: registration.py --bits 32|64 DLL RUNNER

For the machine and for one user: what the registry holds before equals what it holds after registering and
unregistering, and in between the class is found. At the end the server is registered for the machine.
"""

import argparse
import pathlib
import subprocess
import sys
import tempfile

KEYS = {"machine": r"HKEY_LOCAL_MACHINE\Software\Classes", "user": r"HKEY_CURRENT_USER\Software\Classes"}
CLASS = "07ed18d5-d952-44e1-bfab-a5c6a7bc4ff1"


def run(*command):
    return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=600).returncode


def export(runner, key, folder, name):
    """The lines of a registry export; none where the key is missing."""
    path = pathlib.Path(folder, name)
    path.unlink(missing_ok=True)
    run(runner, "c:/windows/system32/reg.exe", "export", key, str(path), "/y")
    return path.read_text(encoding="utf-16").splitlines() if path.exists() else []


def registers(regsvr32, *arguments):
    code = run(*regsvr32, "/s", *arguments)
    if code != 0:
        sys.exit(f"regsvr32 {' '.join(arguments)} ended with {code}")


def check(runner, regsvr32, scope, dll, folder):
    install = ["/n", "/i:user"] if scope == "user" else []
    registers(regsvr32, "/u", *install, dll)
    before = export(runner, KEYS[scope], folder, "before.reg")
    registers(regsvr32, *install, dll)
    between = "\n".join(export(runner, KEYS[scope], folder, "between.reg")).lower()
    if CLASS not in between or "orvanedocumenti.vqdocumenti" not in between:
        sys.exit(f"{scope}: the class is not in the registry")
    registers(regsvr32, "/u", *install, dll)
    after = export(runner, KEYS[scope], folder, "after.reg")
    left = sorted(set(after) - set(before))
    if left or len(after) != len(before):
        sys.exit(f"{scope}: left behind or lost: " + "\n".join(left[:20]))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--bits", choices=["32", "64"], required=True)
    parser.add_argument("dll")
    parser.add_argument("runner")
    arguments = parser.parse_args()
    system = "syswow64" if arguments.bits == "32" else "system32"
    regsvr32 = [arguments.runner, f"c:/windows/{system}/regsvr32.exe"]
    with tempfile.TemporaryDirectory() as folder:
        for scope in KEYS:
            check(arguments.runner, regsvr32, scope, arguments.dll, folder)
    registers(regsvr32, arguments.dll)


if __name__ == "__main__":
    main()
