"""Runs test programs side by side and reads from what they print which of their tests failed."""

import os
import re
import signal
import subprocess
import tempfile
import time

LONGEST = 1800           # seconds that a program may take
MOST_OUTPUT = 50 << 20   # bytes that it may print
MOST_MEMORY = 4 << 30    # bytes that it may fill, as a loop without end may do before it is found to hang

UNKNOWN_TIME = 30        # seconds that a test is taken to need that has not passed yet
PATIENCE = 10            # how many times as long it may take: the machine has other work, too
SHORTEST_PATIENCE = 20   # seconds that each test is granted

STARTED = re.compile(r"^\[ RUN      \] (\S+)", re.MULTILINE)
FAILED = re.compile(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", re.MULTILINE)
TIMES = re.compile(r"^\[       OK \] (\S+) \((\d+) ms\)", re.MULTILINE)
PASSED = re.compile(r"^\[  PASSED  \] \d+ test", re.MULTILINE)


class Program:
    """A test program that runs; it prints the name of each test before it starts it."""

    def __init__(self, command, folder, environment, usual_times):
        """usual_times: the seconds that each test took when it passed; one that takes PATIENCE
        times as long hangs."""
        self._usual_times = usual_times
        self._output = tempfile.TemporaryFile()
        self._started = self._last_word = time.monotonic()
        self._size = 0
        self._patience = PATIENCE * UNKNOWN_TIME
        self._process = subprocess.Popen(["prlimit", f"--data={MOST_MEMORY}", *command], cwd=folder, env=environment,
                                         stdin=subprocess.DEVNULL, stdout=self._output, stderr=subprocess.DEVNULL,
                                         start_new_session=True)

    def runs(self):
        return self._process.poll() is None

    def hangs(self):
        now = time.monotonic()
        size = os.fstat(self._output.fileno()).st_size
        if size != self._size:
            self._size, self._last_word = size, now
            test = (STARTED.findall(self._text()) or [""])[-1]
            self._patience = max(SHORTEST_PATIENCE, PATIENCE * self._usual_times.get(test, UNKNOWN_TIME))
        return now - self._last_word > self._patience or now - self._started > LONGEST or size > MOST_OUTPUT

    def end(self):
        if self.runs():
            os.killpg(self._process.pid, signal.SIGKILL)
        self._process.wait()

    def failures(self):
        """The tests that failed, or the one in whose middle it ended or hangs."""
        text = self._text()
        failed = list(dict.fromkeys(FAILED.findall(text)))
        if failed or (self._process.poll() == 0 and PASSED.search(text)):
            return failed
        return (STARTED.findall(text) or ["(before the first test)"])[-1:]

    def times(self):
        """The seconds that each test took that passed."""
        return {name: int(milliseconds) / 1000 for name, milliseconds in TIMES.findall(self._text())}

    def _text(self):
        return os.pread(self._output.fileno(), MOST_OUTPUT, 0).decode(errors="replace")


def first_failures(programs):
    """Waits for programs that run side by side, ends all as soon as one fails, and returns the tests that failed."""
    try:
        while True:
            running = [program for program in programs if program.runs()]
            hanging = [program for program in running if program.hangs()]
            ended = [program for program in programs if program not in running]
            failed = [name for program in ended + hanging for name in program.failures()]
            if failed or not running:
                return failed
            time.sleep(0.05)
    finally:
        for program in programs:
            program.end()
