"""A library that holds all changes at once, of which a number chooses one when a program runs: see schema.py and
mutant_server.cpp. To try a change takes no compiler and no new program then, and only a few milliseconds."""

import os
import re
import shutil
import subprocess

from library import INSIDE, ROOT, TESTS, WORK
from schema import Schema

HERE = ROOT / "scripts/measure"
PRELUDE = """#pragma once
extern "C" __attribute__((visibility("default"))) int ipsecimplMutant;
constexpr bool isMutant(int number) { return ipsecimplMutant == number; }
"""


class AllChanges:
    def __init__(self, library, items):
        self.library = library
        self.folder = WORK / "all"
        self.overlay = self.folder / "overlay"
        shutil.rmtree(self.overlay, ignore_errors=True)  # with the numbers of another run
        self.overlay.mkdir(parents=True)
        (self.folder / "prelude.h").write_text(PRELUDE)
        self.numbers = {(i.mutant.file, i.change): n for n, i in enumerate(items, 1)}
        self.items = dict(enumerate(items, 1))
        self.owners = {}

    def compiled(self):
        """Compiles it, and leaves out what is no C++. The items that are in it."""
        for file in {file for file, _ in self.numbers}:
            self._write(file)
        units = [(s, False) for s in self.library.units] + [(s, True) for s in self.library.inside]
        stale = units
        while stale:
            messages = {unit: self._compile(*unit, "-fsyntax-only") for unit in stale}
            stale = [unit for unit in stale if messages[unit]]
            if stale and not self._leave_out("".join(messages.values())):
                raise RuntimeError(messages[stale[0]])
        if any(self._compile(*unit, "-c") for unit in units):
            raise RuntimeError("cannot compile all changes at once")
        self._link()
        held = {n for owners in self.owners.values() for numbers in owners.values() for n in numbers}
        return [self.items[n] for n in sorted(held)]

    def _write(self, file):
        path = self.overlay / file[len("src/"):]
        path.parent.mkdir(parents=True, exist_ok=True)
        schema = Schema((ROOT / file).read_text())
        text, self.owners[str(path)] = schema.written(lambda change: self.numbers.get((file, change)))
        path.write_text(text)

    def _leave_out(self, messages):
        """Leaves out the changes that the compiler complains of; how many there are."""
        places = re.findall(r"(%s\S*?):(\d+):\d+: (.*)" % re.escape(str(self.overlay)), messages)
        # An error may come of another one, as where a header is wrong.
        headers = [place for place in places if place[0].endswith(".h")]
        owners = [(self.owners[path].get(int(line), []), message) for path, line, message in headers or places]
        wrong = {n for numbers, _ in owners if len(numbers) == 1 for n in numbers}
        wrong = wrong or {n for numbers, message in owners if "undeclared" not in message for n in numbers}
        wrong = {n for n in wrong if self._number(n) == n}
        for number in wrong:
            del self.numbers[self.items[number].mutant.file, self.items[number].change]
        for file in {self.items[number].mutant.file for number in wrong}:
            self._write(file)
        return len(wrong)

    def _number(self, n):
        """None if it was left out."""
        return self.numbers.get((self.items[n].mutant.file, self.items[n].change))

    def _compile(self, source, of_inside, step):
        """The compiler's errors.

        Where a change makes a function end without a result, the optimiser takes that for what never happens, and the
        change for none. So few changes, which are those that survived before, are not optimised."""
        unit = (self.library.inside if of_inside else self.library.units)[source]
        if of_inside:
            command = [w for w in unit.command[:unit.command.index("-o")] if w != "-Werror"]
        else:
            plain = len(self.items) < 400 or step == "-fsyntax-only"
            command = [*self.library.library_command(unit, "-O0" if plain else "-O1"), "-fno-strict-return"]
        file = self.overlay / source[len("src/"):] if source.startswith("src/") else ROOT / source
        command = [*command, "-w", "-Wno-invalid-constexpr", "-Wno-c++11-narrowing", "-ferror-limit=0",
                   "-include", self.folder / "prelude.h", "-iquote", self.overlay, step, file if file.exists() else ROOT / source,
                   "-o", self._object(source, of_inside)]
        done = subprocess.run(command, cwd=TESTS, capture_output=True, text=True, check=False)
        return done.stderr if done.returncode else ""

    def _object(self, source, of_inside):
        return self.folder / (("inside-" if of_inside else "") + source.replace("/", "-") + ".o")

    def _link(self):
        server = self.folder / "server.o"
        subprocess.run(["clang++", "-O1", "-fPIC", "-c", HERE / "mutant_server.cpp", "-o", server], check=True)
        objects = [self._object(source, False) for source in self.library.units]
        subprocess.run(["clang++", "-shared", "-fuse-ld=lld", "-Wl,-soname,libipsecimpl.so.1",
                        "-Wl,-Bsymbolic-functions", server, *objects, "-o", self.folder / "libipsecimpl.so.1"],
                       check=True)
        outputs = {unit.output: str(self._object(s, True)) for s, unit in self.library.inside.items()}
        renamed = {"tests/" + INSIDE: str(self.folder / INSIDE),
                   "libipsecimpl.so.1.0.0": self.folder / "libipsecimpl.so.1"}
        command = [renamed.get(w, outputs.get(w, w)) for w in self.library.inside_link]
        subprocess.run([*command, "-fuse-ld=lld"], cwd=TESTS, check=True)

    def run(self, program, items, jobs):
        """Pairs of an item and its outcome. The unchanged library, number 0, must pass."""
        numbers = {(i.mutant.file, i.change): n for n, i in self.items.items()}
        tried = [numbers[i.mutant.file, i.change] for i in items]
        running = [self._start(program, [0, *tried[job::jobs]], job) for job in range(jobs)]
        for process, outcomes in running:
            process.wait()
            for line in outcomes.read_text().splitlines():
                number, status = map(int, line.split())
                outcome = "passed" if status == 0 else "timed out" if status in (-24, -9, -14) else "noticed"
                if number:
                    yield self.items[number], outcome
                elif outcome != "passed":
                    raise RuntimeError("%s: %s with the unchanged library" % (program.name, outcome))

    def _start(self, program, numbers, job):
        asked, outcomes = self.folder / ("asked-%d" % job), self.folder / ("outcomes-%d" % job)
        outcomes.unlink(missing_ok=True)  # a run that was ended may still have it open
        asked.write_text("\n".join(map(str, numbers)))
        environment = dict(os.environ, LD_LIBRARY_PATH=str(self.folder), LLVM_PROFILE_FILE="/dev/null",
                           GTEST_FAIL_FAST="1", IPSECIMPL_MUTANTS=str(asked), IPSECIMPL_OUTCOMES=str(outcomes),
                           IPSECIMPL_SECONDS=str(self.library.cpu_limit(program)),
                           IPSECIMPL_MEGABYTES=str(self.library.memory_limit(program)))
        executable = self.folder / INSIDE if program.name == INSIDE else program.command[0]
        null = subprocess.DEVNULL
        return subprocess.Popen([executable, *program.command[1:]], cwd=program.folder, env=environment, stdin=null,
                                stdout=null, stderr=null), outcomes
