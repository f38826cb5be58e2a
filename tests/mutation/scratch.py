"""A copy of the tree whose libraries are shared, so that a mutant takes one object and one link.

Neither the checkout nor the copy is ever changed: the broken source, its object and the library made with it
lie in a folder of their own, and the tests of the copy find that library first.
"""

import json
import os
import re
import shlex
import shutil
import signal
import subprocess
import tempfile
import threading
import time
from dataclasses import dataclass
from pathlib import Path

# As ./check builds, but for the optimiser: without assertions. What stands inline in a header is each
# library's own, so that a test's copy of it does not stand in for a broken one.
FLAGS = "-O0 -DNDEBUG -fvisibility-inlines-hidden"
# LD_LIBRARY_PATH comes before the path that is linked in.
LINK_FLAGS = "-Wl,--enable-new-dtags"
# A mutant may well grow without end. A test that sets a limit of its own for files can do so.
LIMITS = (f"--as={4 << 30}", f"--fsize={1 << 30}:", "--core=0")


class Broken(Exception):
    """The unbroken copy is not what a mutant could be compared with."""


@dataclass(frozen=True)
class Outcome:
    passed: bool
    how: str = ""  # its first red line, or how it ended without one
    row: str = ""  # that the line tells of, as the test takes it from the command line


class Scratch:
    def __init__(self, checkout, folder, jobs):
        self.checkout, self.folder, self.jobs = checkout, folder, jobs
        self.tree, self.build = folder / "tree", folder / "build"
        self.running, self.lock = set(), threading.Lock()

    # The copy

    def prepare(self, tests):
        self._copy()
        linked = [f"-DCMAKE_{kind}_LINKER_FLAGS={LINK_FLAGS}" for kind in ("EXE", "SHARED")]
        compiled = ["-DBUILD_SHARED_LIBS=ON", "-DCMAKE_BUILD_TYPE=Release", f"-DCMAKE_CXX_FLAGS_RELEASE={FLAGS}"]
        self._run("cmake", "-G", "Ninja", "-S", self.tree, "-B", self.build, *compiled, *linked)
        built = set(re.findall(r"^(\w+): phony$", self._run("ninja", "-t", "targets", "all", cwd=self.build), re.M))
        self._run("ninja", "-C", self.build, "-j", str(self.jobs), "zarvex", *sorted(built & tests))
        self._read_build()

    def _copy(self):
        listing = self._run("git", "ls-files", "-z", "--cached", "--others", "--exclude-standard", cwd=self.checkout)
        names = {name for name in listing.split("\0") if name and (self.checkout / name).is_file()}
        for name in names:
            source, target = self.checkout / name, self.tree / name
            content = source.read_bytes()
            if not target.exists() or target.read_bytes() != content:
                target.parent.mkdir(parents=True, exist_ok=True)
                target.write_bytes(content)
                shutil.copymode(source, target)
        for file in list(self.tree.rglob("*")):
            if file.is_file() and str(file.relative_to(self.tree)) not in names:
                file.unlink()

    def _read_build(self):
        self.links = {library: self._link_command(path) for library, path in self._libraries()}
        self.compiles = {}
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            library = re.search(r"CMakeFiles/(\w+)\.dir/", entry["command"]).group(1)
            if library in self.links:
                command = [word for word in shlex.split(entry["command"]) if Path(word).name != "ccache"]
                self.compiles[Path(entry["file"])] = (library, command)
        self.includes = self._read_includes()
        listing = json.loads(self._run("ctest", "--show-only=json-v1", cwd=self.build))
        self.tests = {test["name"]: self._read_test(test) for test in listing["tests"] if "command" in test}

    @property
    def libraries(self):
        """The names of the libraries that mutants are in."""
        return list(self.links)

    def _libraries(self):
        for line in self._run("ninja", "-C", self.build, "-t", "targets", "all").splitlines():
            match = re.fullmatch(r"((?:\w+/)?lib(\w+)\.so): CXX_SHARED_LIBRARY_LINKER.*", line)
            if match:
                yield match.group(2), match.group(1)

    def _link_command(self, path):
        command = self._run("ninja", "-C", self.build, "-t", "commands", path).splitlines()[-1]
        (link,) = [step for step in command.split(" && ") if f"-o {path}" in step]
        return shlex.split(link)

    def _read_includes(self):
        """The sources of the libraries by each header of ours that they include."""
        includes, source_of = {}, {}
        for source, (_, command) in self.compiles.items():
            source_of[command[command.index("-o") + 1]] = source
        current = None
        for line in self._run("ninja", "-C", self.build, "-t", "deps").splitlines():
            if line and not line.startswith(" "):
                current = source_of.get(line.split(":")[0])
            elif line and current:
                header = (self.build / line.strip()).resolve()
                includes.setdefault(header, set()).add(current)
        return includes

    def _read_test(self, test):
        properties = {each["name"]: each["value"] for each in test.get("properties", [])}
        environment = dict(setting.split("=", 1) for setting in properties.get("ENVIRONMENT", []))
        return test["command"], environment

    def _run(self, *command, cwd=None):
        done = subprocess.run([str(word) for word in command], cwd=cwd, capture_output=True, text=True)
        if done.returncode:
            raise Broken(done.stdout + done.stderr)
        return done.stdout

    # A mutant

    def compile(self, folder, file, broken):
        """Makes the libraries with a broken file in it; whether that compiled."""
        original = self.tree / file
        replaced = folder / "source" / file
        replaced.parent.mkdir(parents=True)
        replaced.write_text(broken)
        sources = [original] if original in self.compiles else sorted(self.includes.get(original, ()))
        objects = {}
        for position, source in enumerate(sources):
            library, command = self.compiles[source]
            command = list(command)
            old_object = command[command.index("-o") + 1]
            new_object = str(folder / f"{position}.o")
            command[command.index("-o") + 1] = new_object
            command[command.index("-c") + 1] = str(replaced if source == original else source)
            command[1:1] = ["-w", "-iquote", str(folder / "source")]
            if not self._succeeds(command):
                return False
            objects.setdefault(library, {})[old_object] = new_object
        for library, new in objects.items():
            command = [new.get(word, word) for word in self.links[library]]
            command[command.index("-o") + 1] = str(folder / f"lib{library}.so")
            if not self._succeeds(command):
                return False
        return bool(objects)

    def _succeeds(self, command):
        environment = dict(os.environ, CCACHE_DISABLE="1")
        return self._start(command, environment, self.build, lambda each: each.communicate() and each.returncode == 0)

    def test(self, name, folder, longest):
        """
        Runs one test with the libraries of a folder, and ends it at its first red line.

        What is red must be so twice: a busy machine can turn a row red that looks at the clock.
        """
        outcome = self._test_once(name, [], folder, longest)
        if outcome.passed or not outcome.row:
            return outcome
        again = self._test_once(name, [outcome.row], folder, longest)
        return outcome if again.row else self._test_once(name, [], folder, longest)

    def _test_once(self, name, rows, folder, longest):
        command, settings = self.tests[name]
        home = Path(tempfile.mkdtemp(dir=folder))
        (home / "run").mkdir(mode=0o700)
        places = {"HOME": str(home), "TMPDIR": str(home), "XDG_RUNTIME_DIR": str(home / "run")}
        environment = {**os.environ, "LD_LIBRARY_PATH": str(folder), **places, **settings}
        try:
            return self._start([*command, *rows], environment, home, lambda process: self._watch(process, longest))
        finally:
            shutil.rmtree(home, ignore_errors=True)

    def _watch(self, process, longest):
        late = threading.Timer(longest, self._end, [process])
        late.start()
        began, red = time.monotonic(), ""
        for line in process.stdout:
            if line.startswith(("FAIL!", "XPASS")):
                red = line.split(":", 1)[1].strip()
                break
        self._end(process) if red else process.wait()
        late.cancel()
        if red:
            place = re.match(r"\w+::(\w+)\((.*?)\) ", red)
            return Outcome(False, red, ":".join(filter(None, place.groups())) if place else "")
        if process.returncode == 0:
            return Outcome(True)
        took = time.monotonic() - began
        return Outcome(False, "no end" if took >= longest else f"ended with {process.returncode}")

    def _start(self, command, environment, cwd, then):
        streams = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.STDOUT}
        process = subprocess.Popen(
            ["prlimit", *LIMITS, *command],
            cwd=cwd,
            env=environment,
            text=True,
            errors="replace",
            start_new_session=True,
            **streams,
        )
        with self.lock:
            self.running.add(process)
        try:
            return then(process)
        finally:
            self._end(process)
            with self.lock:
                self.running.discard(process)

    def _end(self, process):
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()

    def end_all(self):
        with self.lock:
            for process in self.running:
                self._end(process)
