"""Prints the manual page of orvane from what its --help says: man.py PROGRAM > orvane.1

The page is kept, because a cross build cannot run what it builds; a test tells when it is old. The build puts the version in."""

import re
import subprocess
import sys


def help_of(program, *command):
    return subprocess.run([program, *command, "--help"], capture_output=True, check=True,
                          encoding="utf-8").stdout


def escaped(text):
    """A line of text for troff: its backslashes, hyphens and first character mean themselves."""
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + text if text[:1] in (".", "'") else text


def as_is(lines):
    return [".nf", *map(escaped, lines), ".fi"]


def without_edges(lines):
    while lines and not lines[0]:
        lines = lines[1:]
    while lines and not lines[-1]:
        lines = lines[:-1]
    return lines


def commands(program_help):
    part = program_help.split("Subcommands:\n")[1]
    return re.findall(r"^  ([a-z]+) ", part.split("\n\n")[0], re.MULTILINE)


def about_command(program, command):
    lines = help_of(program, command).rstrip("\n").splitlines()
    usage = next(i for i, line in enumerate(lines) if line.startswith("Usage:"))
    title = without_edges(lines[:usage])[0]
    call = lines[usage].removeprefix("Usage: ")
    rest = [line for line in without_edges(lines[usage + 1:]) if not line.strip().startswith("-h,--help")]
    rest = "\n".join(rest).replace("Options:\n\n", "").splitlines()
    return [f".SS {escaped(call)}", escaped(title), ".PP", *as_is(rest)]


def page(program):
    program_help = help_of(program)
    footer = program_help[program_help.index("Members are addressed"):].rstrip("\n").splitlines()
    lines = ['.TH ORVANE 1 "" "orvane @PROJECT_VERSION@" "User Commands"',
             ".SH NAME", "orvane \\- compose, change and look at document jobs",
             ".SH SYNOPSIS", ".B orvane", "COMMAND [OPTIONS] ARGUMENT...",
             ".SH COMMANDS"]
    for command in commands(program_help):
        lines += about_command(program, command)
    return "\n".join([*lines, ".SH MEMBERS, VALUES, EXIT CODES", *as_is(footer)]) + "\n"


if __name__ == "__main__":
    sys.stdout.reconfigure(encoding="utf-8")
    sys.stdout.write(page(sys.argv[1]))
