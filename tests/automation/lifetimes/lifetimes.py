#!/usr/bin/env python3
"""Clients that keep objects of the server to the end of their process, or past it: lifetimes.py RUNNER PROGRAM"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

KINDS = ["static", "uninitialized", "freed", "never", "exit", "module"]
COMMAND = sys.argv[1:]
DRIVE = "" if os.name == "nt" else "Z:"


class Lifetimes(unittest.TestCase):
    def check(self, kind):
        with tempfile.TemporaryDirectory() as folder:
            ended = subprocess.run([*COMMAND, kind, DRIVE + folder.replace("/", "\\")], capture_output=True, text=True,
                                   check=False)
            self.assertEqual((7, "composed"), (ended.returncode, ended.stdout))
            job = pathlib.Path(folder, "1.vqs").read_text(encoding="utf-16")
            self.assertIn("\nCopie=3\n", job)
            self.assertEqual([], list(pathlib.Path(folder).glob(".orvane-*")))

    def test_a_process_ends_well_whatever_it_still_holds(self):
        for kind in KINDS:
            with self.subTest(kind):
                self.check(kind)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
