"""Copies of the sources with builds of their own, in which faults are tried: the sources themselves stay as they are."""

import contextlib
import hashlib
import json
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import tempfile
import time

LONG = 3  # seconds: longer suites are run case by case
LONGEST_WAIT = 1200  # seconds for a test that waits for what doesn't come
MOST = 4 << 30  # bytes of memory, and of a file, of a test: a fault may let it grow without end


def _limited(seconds):
    """Of the processor, which is the same on a busy machine."""
    resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 1))
    resource.setrlimit(resource.RLIMIT_AS, (MOST, MOST))
    resource.setrlimit(resource.RLIMIT_FSIZE, (MOST, MOST))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def _passes(command, seconds=None, output=subprocess.DEVNULL, **more):
    """True if the command succeeds in this time. What it started ends with it; no key that ends this program ends it."""
    process = subprocess.Popen(command, start_new_session=True, stdin=subprocess.DEVNULL, stdout=output,
        stderr=subprocess.STDOUT, **more)
    try:
        return process.wait(seconds) == 0
    except subprocess.TimeoutExpired:
        return False
    finally:
        with contextlib.suppress(ProcessLookupError):
            os.killpg(process.pid, signal.SIGKILL)
        process.wait()


class Tree:
    """A copy of the files that git knows below `source`, and its build by the preset `mutants`."""

    def __init__(self, source, folder):
        self.source = source
        self.folder = folder
        self.build = folder / "build" / "mutants"
        self._copy()
        if not (self.build / "build.ninja").exists():
            self._must(["cmake", "--preset", "mutants"])
        self._build()
        self.tests = {t["name"]: t["command"] for t in self._listed()}
        commands = json.loads((self.build / "compile_commands.json").read_text())
        self.objects = {}
        for c in commands:
            self.objects.setdefault(c["file"], []).append(re.search(r" -o (\S+)", c["command"])[1])

    def _copy(self):
        names = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=self.source,
            check=True, capture_output=True, text=True).stdout.split("\0")
        for name in filter(None, names):
            old, new = self.source / name, self.folder / name
            if old.is_file() and not (new.is_file() and new.read_bytes() == old.read_bytes()):
                new.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(old, new)

    def state(self):
        """Of what is built and run: sources, tests, examples; not of this program."""
        digest = hashlib.sha256()
        for top in ("quor", "tools", "language", "tests", "examples"):
            for file in sorted(f for f in (self.folder / top).rglob("*") if f.is_file() and f.parent.name != "mutants"):
                digest.update(f"{file.relative_to(self.folder)}\0".encode() + file.read_bytes())
        return digest.hexdigest()

    def _must(self, command):
        done = subprocess.run(command, cwd=self.folder, capture_output=True, text=True)
        if done.returncode:
            raise SystemExit(f"{' '.join(command)}\n{done.stdout}{done.stderr}")

    def _listed(self):
        """The tests of the floors: each is a target of its name."""
        listed = subprocess.run(["ctest", "--show-only=json-v1"], cwd=self.build, check=True, capture_output=True, text=True)
        return [t for t in json.loads(listed.stdout)["tests"] if t["name"].endswith("-tests")]

    def _build(self):
        log = self.folder / "build.log"
        print(f"building the tests of {self.folder.name}, see {log}", flush=True)
        with log.open("w") as output:
            if not self.ninja([t["name"] for t in self._listed()], os.cpu_count(), output):
                raise SystemExit(f"the build failed, see {log}")

    def ninja(self, targets, jobs=1, output=subprocess.DEVNULL):
        return _passes(["ninja", "-C", self.build, f"-j{jobs}", *targets], output=output)

    def suites(self, test):
        """The names of the cases by that of their suite."""
        listed = subprocess.run([*self.tests[test], "--gtest_list_tests"], cwd=self.build, check=True, capture_output=True,
            text=True)
        found = {}
        for line in listed.stdout.splitlines():
            name = line.split("#")[0].strip()
            if not line.startswith(" "):
                suite = found.setdefault(name, [])
            else:
                suite.append(name)
        return found

    def parts(self, test):
        """(name, seconds, lines that it runs, by source) of each suite of the test, or of each case of a long one."""
        for suite, cases in self.suites(test).items():
            name = f"{test} {suite}*"
            seconds, lines = self.covered(name)
            if seconds < LONG or len(cases) == 1:
                yield name, seconds, lines
                continue
            for case in cases:
                name = f"{test} {suite}{case}"
                yield name, *self.covered(name)

    def run(self, part, seconds, profile="/dev/null"):
        """True if the cases pass in this time of the processor; it stops at the first one that fails."""
        test, cases = part.split(" ", 1)
        with tempfile.TemporaryDirectory() as scratch:
            variables = {"LLVM_PROFILE_FILE": profile, "TMPDIR": scratch, "GTEST_FAIL_FAST": "1"}
            return _passes([*self.tests[test], f"--gtest_filter={cases}"], LONGEST_WAIT, cwd=self.build,
                env={**os.environ, **variables}, preexec_fn=lambda: _limited(int(seconds)))

    def covered(self, part):
        """Seconds that the cases take, and the lines that they run, by source."""
        profiles = self.build / "profiles"
        shutil.rmtree(profiles, ignore_errors=True)
        start = time.monotonic()
        if not self.run(part, 3600, str(profiles / "%2m.profraw")):
            raise SystemExit(f"{part} fails before any fault is made")
        seconds = time.monotonic() - start
        merged = profiles / "all.profdata"
        self._must(["llvm-profdata", "merge", "-o", merged, *profiles.glob("*.profraw")])
        objects = [self.tests[part.split(" ")[0]][0], *self.build.glob("lib/*.so"), self.build / "bin" / "quor"]
        export = ["llvm-cov", "export", "-format=lcov", f"-instr-profile={merged}", objects[0]]
        export += [o for other in objects[1:] for o in ("-object", other)] + ["--", str(self.folder / "quor")]
        lines, path = {}, None
        for line in subprocess.run(export, check=True, capture_output=True, text=True).stdout.splitlines():
            key, _, value = line.partition(":")
            if key == "SF":
                path = os.path.relpath(value, self.folder)
            elif key == "DA":
                number, count = value.split(",")[:2]
                if int(count):
                    lines.setdefault(path, set()).add(int(number))
        return seconds, lines

    def attempt(self, place, text, parts):
        """What finds the fault: the name of a test, or `build`; None if nothing does; False if it doesn't compile.

        `parts`: (seconds, name), the quickest first.
        """
        target = self.folder / place.path
        raw = text.encode()
        start, end = len(text[: place.start].encode()), len(text[: place.end].encode())
        target.write_bytes(raw[:start] + place.after.encode() + raw[end:])
        try:
            if not self.ninja(self.objects[str(target)]):
                return False
            if not self.ninja(self.tests):
                return "build"
            return next((name for seconds, name in parts if not self.run(name, 20 + 5 * seconds)), None)
        finally:
            target.write_bytes(raw)
