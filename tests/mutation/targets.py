"""Copies of the checkout in which one file is changed, built and tested: one natively, one for Windows."""

import os
import re
import shutil
import subprocess

from programs import Program, first_failures
from wine import Place

TESTS = "brisgate_tests"
END_TO_END = "brisgate_end_to_end"
QUICK_BUILD = ["-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=",
               "-DCMAKE_CXX_FLAGS=-O1 -w -Wno-error -D_GLIBCXX_ASSERTIONS"]


class Target:
    """What both have in common."""

    def __init__(self, checkout, packages):
        self._checkout = checkout
        self.copy = checkout / "build" / "mutation" / self.name
        self._build = self.copy / "build" / self.name  # where the end-to-end tests look for the program
        self._usual_times = {}  # the seconds that each test took when it passed
        lists = " ".join(f'"${{{name}[@]}}"' for name in ("build_packages", packages))
        subprocess.run(["bash", "-c", f". tools/packages.sh; need_packages {lists} lld"], cwd=checkout, check=True)

    def files(self):
        """The files that can be changed, relative to the copy."""
        return [file.relative_to(self.copy) for folder in self.folders
                for file in sorted((self.copy / folder).glob("*.cpp"))]

    def prepare(self, linker, *options):
        """Makes the copy what the checkout is. What has not changed since the last time need not be built again; a file
        that a run left changed when it was cut short is written anew, and so is newer than its object."""
        listed = subprocess.run(["git", "ls-files", "-z"], cwd=self._checkout, capture_output=True, check=True).stdout
        names = {name for name in os.fsdecode(listed).split("\0") if name and (self._checkout / name).exists()}
        for name in names:
            source, copied = self._checkout / name, self.copy / name
            if not copied.exists() or copied.read_bytes() != source.read_bytes():
                copied.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, copied)
        for file in self.copy.rglob("*"):
            name = str(file.relative_to(self.copy))
            if file.is_file() and name not in names and not name.startswith("build/"):
                file.unlink()
        linkers = [f"-DCMAKE_{kind}_LINKER_FLAGS={linker}" for kind in ("EXE", "SHARED")]
        subprocess.run(["cmake", "-S", str(self.copy), "-B", str(self._build), *QUICK_BUILD, *linkers, *options],
                       check=True, stdout=subprocess.DEVNULL)

    def build(self, target):
        return subprocess.run(["cmake", "--build", str(self._build), "--target", target], capture_output=True,
                              check=False).returncode == 0

    def tests_of(self, folders):
        """A filter for the tests in these folders."""
        suites = {suite for folder in folders for file in (self.copy / "tests" / folder).rglob("*.cpp")
                  for suite in re.findall(r"^TEST(?:_F|_P)?\((\w+),", file.read_text(encoding="utf-8"), re.MULTILINE)}
        return ":".join(f"{suite}.*:*/{suite}.*" for suite in sorted(suites))

    def first_failures(self, program, tests, environments):
        """The tests that fail first in programs that share these tests, each with what it finds in its environment."""
        programs = []
        for number, environment in enumerate(environments):
            share = {"GTEST_TOTAL_SHARDS": str(len(environments)), "GTEST_SHARD_INDEX": str(number)}
            command = [*self.starter, str(self._build / program), f"--gtest_filter={tests}"]
            programs.append(Program(command, self.copy, {**environment, **share, "GTEST_FAIL_FAST": "1"},
                                    self._usual_times))
        failed = first_failures(programs)
        if not failed:
            for each in programs:
                self._usual_times.update(each.times())
        return failed

    def close(self):
        pass


class Native(Target):
    name = "native"
    folders = ("text", "errors", "config", "crypto", "certs", "editors", "settings", "app", "ui", "platform")
    records = ""
    starter = ()

    def __init__(self, checkout):
        super().__init__(checkout, "native_packages")
        self.prepare("-fuse-ld=lld")

    def builds(self, _path):
        return self.build(TESTS)

    def failures(self, path):
        """The tests that fail first, those of the file's folder before the others."""
        layer = self.tests_of([path.parts[0]])
        return self._run(layer) or self._run(f"-{layer}")

    def all_failures(self):
        return self._run("*")

    def _run(self, tests):
        return self.first_failures(f"tests/{TESTS}", tests, [{**os.environ, "BRISGATE_WALKS": "20"}] * 2)


class Windows(Target):
    name = "windows"
    folders = ("ui/win32", "platform/win32", "app/win32")
    records = "-windows"
    starter = ("wine",)
    layers = {"ui": ("ui", "crypto/win32"), "platform": ("platform", "crypto/win32")}
    # What they ask of the released file is a matter of how it is built.
    released = "-HeadersTest.*"

    def __init__(self, checkout):
        super().__init__(checkout, "windows_packages")
        linker = checkout / "tests" / "mutation" / "linker"
        self.prepare(f"-B{linker}", "--toolchain", str(self.copy / "cmake" / "mingw-w64.cmake"))
        self._places = [Place(checkout, checkout / "build" / "mutation" / f"wine-{number}") for number in range(2)]

    def close(self):
        for place in self._places:
            place.close()

    def builds(self, path):
        return self.build("brisgate" if path.parts[0] == "app" else TESTS)

    def failures(self, path):
        """The tests that fail first: those of the layer, then the others, then those of the released program, which
        alone know its start."""
        layer = self.layers.get(path.parts[0])
        failed = []
        if layer:
            tests = self.tests_of(layer)
            failed = self._certain_failures(TESTS, tests) or self._certain_failures(TESTS, f"-{tests}")
        return failed or self._failures_of_released()

    def all_failures(self):
        return self._certain_failures(TESTS, "*") or self._failures_of_released()

    def _failures_of_released(self):
        if not self.build(END_TO_END):
            raise RuntimeError("the end-to-end tests cannot be built")
        return self._certain_failures(END_TO_END, self.released)

    def _certain_failures(self, program, tests):
        """A gesture in real windows can go astray on a busy machine: what fails has to fail twice, by itself or, where
        it takes the tests before it, again among them. What three runs leave in doubt counts as not noticed: somebody
        will look at it."""
        before = set()
        for _ in range(3):
            failed = self._run(program, tests)
            if not failed:
                break
            self._clear()
            again = self._run(program, ":".join(failed))
            self._clear()
            if again or before.intersection(failed):
                return failed
            before.update(failed)
        return []

    def _clear(self):
        for place in self._places:
            place.clear()

    def _run(self, program, tests):
        # The programs that the end-to-end tests start stand in one folder for all.
        places = self._places[:1] if program == END_TO_END else self._places
        return self.first_failures(f"{program}.exe", tests, [place.environment for place in places])
