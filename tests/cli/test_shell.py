"""What comes with the program: completion for bash, and the manual page."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

from command_line import CommandLineTest

SOURCES = pathlib.Path(__file__).parents[2] / "cli"


class ShellTest(CommandLineTest):
    def commands(self):
        part = self.orvane("--help").split("Subcommands:")[1].split("\n\n")[0]
        listed = re.findall(r"^  ([a-z]+) +[A-Z]", part, re.MULTILINE)
        self.assertGreater(len(listed), 10)
        return listed


@unittest.skipUnless(shutil.which("bash"), "no bash")
class Completion(ShellTest):
    def complete(self, *words):
        """What bash is offered for the last of the words after the program."""
        script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _orvane; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        shown = subprocess.run(["bash", "-c", script, "bash", SOURCES / "orvane.bash", os.environ["ORVANE"], *words],
                               cwd=self.folder, capture_output=True, encoding="utf-8", timeout=600, check=True)
        self.assertEqual("", shown.stderr)
        return shown.stdout.split()

    def test_commands(self):
        self.assertEqual(["duplicate", "diff"], self.complete("d"))
        self.assertEqual([*self.commands(), "--help", "--version"], self.complete(""))

    def test_options_are_those_of_the_command(self):
        self.assertEqual(["--help", "--kind", "--state", "--errors", "--sort", "--unsorted", "--json"],
                         self.complete("list", "jobs", "--"))
        self.assertEqual(["--missing"], self.complete("attach", "--m"))

    def test_values(self):
        for words, offered in [(["new", "e"], ["email"]), (["list", "--kind", "pf"], ["pfax"]),
                               (["list", "--state", "w"], ["waiting", "working", "withdrawn"]),
                               (["list", "--sort", "a"], ["age"]), (["export", "--format", ""], ["csv", "jsonl"]),
                               (["new", "pbl", "1", "jobs", "--of", "s"], ["stampa"])]:
            with self.subTest(words=words):
                self.assertEqual(offered, self.complete(*words))

    def test_files(self):
        self.touch("jobs/1.vqs")
        self.touch("jobs/2.vqf")
        self.assertEqual(["jobs/1.vqs", "jobs/2.vqf"], sorted(self.complete("show", "jobs/")))
        self.assertEqual(["jobs"], self.complete("show", "jobs/1.vqs", "--pages", "j"))


class Mentions(ShellTest):
    ROOT = SOURCES.parent

    def missing(self, page, form):
        text = (self.ROOT / page).read_text(encoding="utf-8")
        return [command for command in self.commands() if not re.search(form.format(command), text)]

    def test_both_readmes_name_every_command(self):
        for page in ["README.md", "README.it.md"]:
            self.assertEqual([], self.missing(page, r"\borvane {0}\b|`{0}`"), page)

    def test_the_guide_shows_every_command(self):
        self.assertEqual([], self.missing("docs/guide/command-line.md", r"(?m)^orvane {0} \S|^orvane {0}$"))

    def test_the_manual_page_describes_every_command(self):
        self.assertEqual([], self.missing("cli/orvane.1", r"(?m)^\.SS orvane {0} "))

    def test_commands_that_the_pages_show_exist(self):
        for page in ["README.md", "README.it.md", *self.ROOT.glob("docs/guide/*.md")]:
            shown = set(re.findall(r"(?:^|`)orvane ([a-z]+)\b", (self.ROOT / page).read_text(encoding="utf-8"),
                                   re.MULTILINE))
            self.assertLessEqual(shown, {*self.commands()}, page)

    def test_show_json_is_no_secret(self):
        for page in ["README.md", "README.it.md", "docs/guide/command-line.md"]:
            self.assertRegex((self.ROOT / page).read_text(encoding="utf-8"), r"\bshow\b[^\n]* --json")


class ManualPage(ShellTest):
    def test_the_page_says_what_the_help_says(self):
        made = subprocess.run([sys.executable, "-B", SOURCES / "man.py", os.environ["ORVANE"]], capture_output=True,
                              encoding="utf-8", timeout=600, check=True)
        self.assertEqual(made.stdout, (SOURCES / "orvane.1").read_text(encoding="utf-8"),
                         "cli/orvane.1 is old: run cli/man.py")

    @unittest.skipUnless(shutil.which("groff"), "no groff")
    def test_the_page_is_well_formed_and_shows_every_command(self):
        shown = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-P-cbou", SOURCES / "orvane.1"], capture_output=True,
                               encoding="utf-8", timeout=600, check=True)
        self.assertEqual("", shown.stderr)
        for command in self.commands():
            self.assertIn(f"orvane {command} [OPTIONS]", shown.stdout)
        self.assertIn("Corpi\\ID.bvq", shown.stdout)


if __name__ == "__main__":
    unittest.main()
