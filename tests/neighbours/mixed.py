#!/usr/bin/env python3
"""Writers of several systems on one job file: mixed.py --native PROGRAM [--windows PROGRAM RUNNER READER] [--count N]

Three native writers, one of which flushes every write, two under the runner and a reader that uses the profile functions
work at once. Every writer must find its own values, the file must hold the last one of each, and the reader must never see
it torn. Before that, a writer of each kind must leave alone a former job file that is still read, in the place of the
temporary. Ends with 77 where a program is missing. ORVANE_SOAK_FACTOR multiplies the count.
"""

import argparse
import os
import pathlib
import subprocess
import sys
import tempfile

FIXED = "un testo che non cambia"
NATIVE_FACTOR = 20  # a native write takes that much less time, and all are to work at once
SKIPPED = 77


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def start(*command):
    return subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)


def finished(kind, process):
    """The last line of a program that must end well."""
    out, err = process.communicate(timeout=3000)
    if process.returncode != 0:
        sys.exit(f"mixed: {kind} ended with {process.returncode}: {err.strip()}")
    return out.strip().splitlines()[-1]


def values(path):
    """The keys of section Coda."""
    text = path.read_bytes().decode("utf-16")
    lines = text.split("[Coda]", 1)[1].splitlines()
    return dict(line.split("=", 1) for line in lines if "=" in line)


def start_writer(arguments, path, key, count):
    if key.startswith("windows"):
        program, runner, _ = arguments.windows
        return start(runner, program, windows_path(path), key, str(count))
    return start(arguments.native, str(path), key, str(count), *["flushed"] * (key == "native_flushing"))


def temporary_of(path):
    number = 0x811C9DC5
    for byte in path.name.lower().encode():
        number = (number ^ byte) * 0x01000193 % 2**32
    return path.with_name(f".orvane-{number:08x}.tmp")


def check_former_file(arguments, path, key):
    """Somebody has begun to read a file that is the temporary now, and goes on when the next write is done."""
    former = b"former text, " * 1000
    temporary_of(path).write_bytes(former)
    with open(temporary_of(path), "rb", buffering=0) as reading:
        begun = reading.read(1000)
        finished(key, start_writer(arguments, path, key, 1))
        if begun + reading.read() != former:
            sys.exit(f"mixed: {key} wrote a file that was read")


def run(arguments, folder, count):
    path = pathlib.Path(folder, "job.vqs")
    stop = pathlib.Path(folder, "stop")
    path.write_bytes(b"\xff\xfe" + f"[Stampa]\r\nFisso={FIXED}\r\n".encode("utf-16-le"))
    reader = None
    if arguments.windows:
        reader = start(arguments.windows[1], arguments.windows[2], windows_path(path), windows_path(stop))
    counts = {key: count * NATIVE_FACTOR for key in ("native0", "native1", "native_flushing")}
    if arguments.windows:
        counts |= {f"windows{number}": count for number in range(2)}
    for key in counts:
        check_former_file(arguments, path, key)
    writers = {key: start_writer(arguments, path, key, count) for key, count in counts.items()}
    for key, writer in writers.items():
        print(f"{key}: writes and waits in us (count, 50 %, 99 %, longest): {finished(key, writer)}")
    stop.touch()
    if reader:
        print(f"profile functions: {finished('the reader', reader)} reads, none torn")
    found = values(path)
    lost = {key: found.get(key) for key, last in counts.items() if found.get(key) != str(last)}
    if lost:
        sys.exit(f"mixed: not the last values: {lost}")
    leftovers = {entry.name for entry in pathlib.Path(folder).iterdir()} - {"job.vqs", "stop", ".orvane.lock"}
    if leftovers:
        sys.exit(f"mixed: left behind: {leftovers}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--native", required=True, nargs="+", help="the first that exists is taken")
    parser.add_argument("--windows", nargs=3, metavar=("PROGRAM", "RUNNER", "READER"))
    parser.add_argument("--count", type=int, default=1000)
    arguments = parser.parse_args()
    there = [path for path in arguments.native if pathlib.Path(path).exists()]
    if not there:
        print("mixed: left out, there is no native build")
        sys.exit(SKIPPED)
    arguments.native = there[0]
    memory = "/dev/shm" if pathlib.Path("/dev/shm").is_dir() else None
    with tempfile.TemporaryDirectory(prefix="orvane-test-", dir=memory) as folder:
        run(arguments, folder, arguments.count * int(os.environ.get("ORVANE_SOAK_FACTOR", "1")))


if __name__ == "__main__":
    main()
