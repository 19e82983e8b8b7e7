"""Runs the built program, which the environment variable ORVANE names, in a fresh folder a test."""

import collections
import configparser
import os
import pathlib
import subprocess
import tempfile
import unittest

Outcome = collections.namedtuple("Outcome", "code out err")

OK, RUN_TIME_ERROR, USAGE, OUTPUT = 0, 1, 2, 3


class CommandLineTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()
        (self.folder / "jobs").mkdir()

    def run_orvane(self, *arguments, stdout=subprocess.PIPE, **options):
        result = subprocess.run([os.environ["ORVANE"], *arguments], cwd=self.folder, stdout=stdout,
                                stderr=subprocess.PIPE, timeout=600, check=False, **options)
        return Outcome(result.returncode, (result.stdout or b"").decode("utf-8"), result.stderr.decode("utf-8"))

    def orvane(self, *arguments):
        """Runs a command that must succeed without a remark, and returns its output."""
        outcome = self.run_orvane(*arguments)
        self.assertEqual((OK, ""), (outcome.code, outcome.err), f"orvane {' '.join(arguments)}")
        return outcome.out

    def get(self, job, *paths):
        return self.orvane("get", job, *paths).rstrip("\n")

    def assert_refused(self, code, message, *arguments):
        outcome = self.run_orvane(*arguments)
        self.assertEqual((code, "", f"orvane: {message}\n"), outcome, f"orvane {' '.join(arguments)}")

    def job_file(self, name):
        """The sections of a job file, read by an independent reader."""
        parser = configparser.RawConfigParser(strict=True, delimiters="=")
        parser.optionxform = str
        parser.read_string((self.folder / name).read_bytes().decode("utf-16"))
        return {section: dict(parser[section]) for section in parser.sections()}

    def touch(self, name, content=b"x"):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
        return path
