"""Factories and documents of every storage duration: the program ends with its exit code and its output, and what a
document has changed is on the device. ORVANE_PROGRAMS is the folder of the programs; ORVANE_RUNNER, if set, is a command
that runs them, and ends them with another exit code for a fault that it finds."""

import os
import pathlib
import shlex
import subprocess
import tempfile
import unittest

RUNNER = shlex.split(os.environ.get("ORVANE_RUNNER", ""))
PROGRAMS = pathlib.Path(os.environ["ORVANE_PROGRAMS"]).resolve()
ALL = ["global", "factory_first", "pointers", "singleton", "threads", "at_end", "made_at_end", "exit_in_thread",
       "never_released"]
UNFLUSHED = {"never_released"}


class Lifetimes(unittest.TestCase):
    def check(self, name):
        with tempfile.TemporaryDirectory() as folder:
            ended = subprocess.run([*RUNNER, PROGRAMS / f"lifetime_{name}", folder], cwd=folder, capture_output=True,
                                   text=True, timeout=600, check=False)
            self.assertEqual((7, "composed", ""), (ended.returncode, ended.stdout, ended.stderr))
            job = pathlib.Path(folder, "1.vqs").read_text(encoding="utf-16")
            self.assertIn("\nCopie=3\n", job)
            self.assertEqual(name not in UNFLUSHED, pathlib.Path(folder, "flushes").exists())

    def test_programs_of_every_storage_duration_end_well(self):
        for name in ALL:
            with self.subTest(name):
                self.check(name)


if __name__ == "__main__":
    unittest.main()
