"""Tries mutants, several at a time."""

import queue
import time
from concurrent.futures import ThreadPoolExecutor

from mutants.compiler import Compiler
from mutants.results import BROKEN, KILLED, SURVIVED, Result, group_of
from mutants.runner import Runner, failed_test


class Worker:
    def __init__(self, base, reach, number):
        self.reach = reach
        folder = base.folder / f"work{number}"
        self.compiler, self.runner = Compiler(base, folder), Runner(folder)

    def try_out(self, mutant, source):
        """(verdict, the test that killed it)"""
        self.compiler.begin(mutant.path, mutant.apply(source))
        library = self.compiler.library()
        if library is None:
            return BROKEN, ""
        parts = self.reach.of(mutant.path, mutant.line, mutant.last_line, group_of(mutant.path) == "store")
        for part, usual in parts:
            program = self.compiler.program(part.program)
            if program is None:
                return BROKEN, ""
            log = self.runner.folder / "log"
            run = self.runner.run(program, part, library.parent, 5 + 4 * usual.cpu, 20 + 6 * usual.seconds, log=log)
            if not run.passed:
                return KILLED, f"{part.program} {failed_test(log) if run.in_time else 'takes too long'}"
        return SURVIVED, ""


def try_all(mutants, sources, workers, tests, until, done):
    """Tries the mutants in their order until that time; calls done(mutant, result) after each."""
    free = queue.SimpleQueue()
    for worker in workers:
        free.put(worker)

    def task(mutant):
        if time.monotonic() >= until:
            return
        worker, begin = free.get(), time.monotonic()
        try:
            verdict, killer = worker.try_out(mutant, sources[mutant.path])
        finally:
            free.put(worker)
        done(mutant, Result(verdict, killer, round(time.monotonic() - begin, 2), tests))

    with ThreadPoolExecutor(len(workers)) as pool:
        try:
            for future in [pool.submit(task, mutant) for mutant in mutants]:
                future.result()
        except BaseException:
            pool.shutdown(cancel_futures=True)
            raise
