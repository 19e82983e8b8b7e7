"""Runs test programs where a mutant can do no harm and does not hold up the rest."""

import os
import re
import shlex
import shutil
import signal
import subprocess
import time
from dataclasses import dataclass

# Ends with this process. As root everything but the worker's own folder is read-only, and what is kept in memory goes with
# the run.
BOUND = ["setpriv", "--pdeathsig", "KILL"]
PRIVATE = ["unshare", "--mount", "--propagation", "private"]
NO_FOLDER = 99  # an exit code that no test program has
ENTER = """ulimit -c 0; ulimit -t {cpu}
if [ "$(id -u)" = 0 ]; then
  mount --bind {folder} {folder} && mount -t tmpfs mutate {folder}/tmp && mount -t tmpfs mutate /dev/shm &&
  mount --bind {folder}/tmp /tmp && mount -o remount,bind,ro / || exit {no_folder}
fi
cd {folder}/tmp && exec "$@"
"""


@dataclass(frozen=True)
class Part:
    """A test program, or those of its tests that a filter names."""
    program: str
    filter: str = "*"

    def name(self):
        return self.program + ("" if self.filter == "*" else " " + self.filter)


@dataclass(frozen=True)
class Run:
    passed: bool
    seconds: float  # without those spent waiting for a processor
    cpu: float
    in_time: bool = True


class Runner:
    def __init__(self, folder):
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)

    def run(self, program, part, library, cpu, seconds, profile=os.devnull, log=None):
        shutil.rmtree(self.folder / "tmp", ignore_errors=True)
        (self.folder / "tmp").mkdir(parents=True)
        environment = dict(os.environ, TMPDIR=str(self.folder / "tmp"), LD_LIBRARY_PATH=str(library),
                           LLVM_PROFILE_FILE=str(profile))
        script = ENTER.format(cpu=int(cpu), no_folder=NO_FOLDER, folder=shlex.quote(str(self.folder)))
        command = [*BOUND, *(PRIVATE if os.geteuid() == 0 else []), "sh", "-c", script, "sh", str(program), "--gtest_brief=1",
                   "--gtest_fail_fast", f"--gtest_filter={part.filter}"]
        with open(log or os.devnull, "wb") as sink:
            child = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL, stdout=sink, stderr=sink,
                                     start_new_session=True)
            result = wait(child, seconds)
        if child.returncode == NO_FOLDER:
            raise RuntimeError(f"there is no place to run {part.name()} in")
        return result


def wait(child, seconds):
    """Waits for the child and, in the end, kills whatever it left."""
    begin, status, usage = time.monotonic(), None, None
    pause, spent = 0.005, 0.0
    while status is None and spent < seconds:
        spent = max(spent, time.monotonic() - begin - queued(child.pid))
        ended, code, usage = os.wait4(child.pid, os.WNOHANG)
        if ended:
            status = os.waitstatus_to_exitcode(code)
        else:
            time.sleep(pause)
            pause = min(pause * 1.3, 0.1)
    try:
        os.killpg(child.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    if status is None:
        _, _, usage = os.wait4(child.pid, 0)
    child.returncode = status if status is not None else -signal.SIGKILL
    return Run(status == 0, spent, usage.ru_utime + usage.ru_stime, status is not None and status != -signal.SIGKILL)


def queued(pid):
    """How long the process has been waiting for a processor: on a busy machine that is no fault of its own."""
    try:
        with open(f"/proc/{pid}/schedstat", encoding="ascii") as file:
            return int(file.read().split()[1]) / 1e9
    except (OSError, IndexError, ValueError):
        return 0.0


def suites(program, environment):
    """Filters for the suites of a test program."""
    text = subprocess.run([str(program), "--gtest_list_tests"], env=environment, check=True, stdout=subprocess.PIPE,
                          text=True).stdout
    names = [line.split(".")[0] for line in text.splitlines() if line and not line.startswith((" ", "Running"))]
    return sorted({name + ".*" for name in names})


def failed_test(log):
    """The first test that the output says has failed, nothing where the program crashed."""
    match = re.search(r"\[  FAILED  \] (\S+?),? ", log.read_text(errors="replace"))
    return match[1] if match else ""
