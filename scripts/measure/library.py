"""Compiles changed sources of the library, and runs the test programs with what comes of it: see scripts/mutate.

The test programs are those of the preset "coverage", and are started with another library in their search path. The
program that has the library's insides compiled in is linked anew where a change concerns it.
"""

import collections
import contextlib
import json
import os
import pathlib
import re
import resource
import shlex
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
TESTS = ROOT / "build/coverage"
WORK = ROOT / "build/mutants"
INSIDE = "test_inside"

# What the programs that test a part of the library use of it; the others use all.
USED = {
    "test_xml": ("xml",),
    INSIDE: ("xml", "enum"),
    "test_enum": ("xml", "enum"),
    "test_selectors": ("xml", "enum", "selectors"),
    "test_actions": ("xml", "enum", "actions"),
    "test_default_proposal": ("xml", "enum", "actions"),
}

Unit = collections.namedtuple("Unit", "source command output")
Program = collections.namedtuple("Program", "name command folder seconds")

# All that the library's sources include from elsewhere, and the public headers.
HEADERS = """algorithm array bitset charconv cstddef cstdint cstring initializer_list istream limits list locale map new
    ostream set stack stdexcept streambuf string string_view utility arpa/inet.h netinet/in.h sys/socket.h
    ipsecimpl/ipsecimpl.h""".split()


def run(command, **arguments):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                          check=False, **arguments).returncode


def newest_source():
    return max(f.stat().st_mtime for folder in ("src/*/*", "include/*/*") for f in ROOT.glob(folder))


class Library:
    """The build of the unchanged sources."""

    def __init__(self):
        self.units = {}   # of the library, by source
        self.inside = {}  # of the program that has its insides
        with open(TESTS / "compile_commands.json", encoding="utf-8") as commands:
            for entry in json.load(commands):
                source = os.path.relpath(entry["file"], ROOT)
                words = shlex.split(entry["command"])
                unit = Unit(source, words, words[words.index("-o") + 1])
                if "CMakeFiles/ipsecimpl.dir" in unit.output:
                    self.units[source] = unit
                elif INSIDE + ".dir" in unit.output:
                    self.inside[source] = unit
        self.users = self._users()
        self.inside_link = self._inside_link()
        self.programs = []

    def _users(self):
        """For each file the outputs that are made of it."""
        users, output = collections.defaultdict(set), None
        deps = subprocess.run(["ninja", "-C", TESTS, "-t", "deps"], capture_output=True, text=True, check=True).stdout
        for line in deps.splitlines():
            if not line.startswith(" "):
                output = line.split(":")[0]
            else:
                users[os.path.relpath(TESTS / line.strip(), ROOT)].add(output)
        return users

    def units_of(self, file, units=None):
        """The sources that are compiled anew when a file changes."""
        units = self.units if units is None else units
        return [source for source, unit in units.items() if unit.output in self.users[file]]

    def _inside_link(self):
        commands = subprocess.run(["ninja", "-C", TESTS, "-t", "commands", "tests/" + INSIDE], capture_output=True,
                                  text=True, check=True).stdout
        return [w for w in shlex.split(commands.splitlines()[-1]) if w not in (":", "&&")]

    def library_command(self, unit, optimised="-O0", precompiled=True):
        """As the unit is compiled otherwise, but neither counted nor warned of."""
        kept = [w for w in unit.command[1:unit.command.index("-o")] if not re.match("-W|-f(profile|coverage)|-O", w)]
        headers = ["-include-pch", str(WORK / ("headers%s.pch" % optimised))] if precompiled else []
        return [unit.command[0], "-w", optimised, *headers, "-D_GLIBCXX_ASSERTIONS", *kept]

    def prepare(self):
        WORK.mkdir(parents=True, exist_ok=True)
        objects = Worker(self, "unchanged")
        made = objects.folder / "libipsecimpl.so.1"
        if made.exists() and made.stat().st_mtime > newest_source():
            return objects
        for stale in WORK.glob("*-optimised/*.o"):
            stale.unlink()
        (WORK / "headers.h").write_text("".join("#include <%s>\n" % h for h in HEADERS))
        for optimised in ("-O0", "-O1", "-O2"):
            command = self.library_command(next(iter(self.units.values())), optimised, precompiled=False)
            subprocess.run([*command, "-x", "c++-header", WORK / "headers.h", "-o",
                            WORK / ("headers%s.pch" % optimised)], check=True)
        for source in self.units:
            if not objects.compile(source, source):
                raise RuntimeError("cannot compile " + source)
        if not objects.link([]):
            raise RuntimeError("cannot link the library")
        return objects

    def find_programs(self, unchanged):
        """All test programs, and how long they take; they must pass with the unchanged library."""
        listed = subprocess.run(["ctest", "--show-only=json-v1"], cwd=TESTS, capture_output=True, text=True, check=True)
        for test in json.loads(listed.stdout)["tests"]:
            if not test["command"][0].startswith(str(TESTS)):
                continue  # a script, which looks at files, or at the build as it is
            folder = [p["value"] for p in test["properties"] if p["name"] == "WORKING_DIRECTORY"][0]
            program = Program(test["name"], test["command"], folder, 300)
            program = program._replace(seconds=self._measured(program, unchanged))
            self.programs.append(program)
            print("%s: %.2f s of processor time" % (program.name, program.seconds), flush=True)

    def _measured(self, program, unchanged):
        """What the program takes with the unchanged library, which it must pass; kept until one of the two is new."""
        newest = max(newest_source(), pathlib.Path(program.command[0]).stat().st_mtime)
        kept = WORK / (program.name + ".seconds")
        if kept.exists() and kept.stat().st_mtime > newest:
            return float(kept.read_text())
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        outcome = unchanged.run_program(program, unchanged.folder)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        if outcome != "passed":
            raise RuntimeError("%s: %s with the unchanged library" % (program.name, outcome))
        seconds = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        kept.write_text("%.2f" % seconds)
        return seconds

    @staticmethod
    def cpu_limit(program):
        """Twenty times the processor time, in seconds, that it takes otherwise is an endless loop."""
        return int(20 * program.seconds) + 1

    @staticmethod
    def memory_limit(program):
        """In megabytes. What takes long may ask for big buffers."""
        return 1024 if program.seconds < 1 else 4096

    @staticmethod
    def is_own(program, source):
        """Is it the program of the source's folder?"""
        folder = source.split("/")[1]
        return program.name == "test_" + folder or program.name == INSIDE and folder in USED[INSIDE] or \
            program.name == "test_default_proposal" and folder == "actions"

    def order(self, source):
        """The programs that can notice a change, those that take no time first; among them, the source's own."""
        folder = source.split("/")[1]
        concerned = [p for p in self.programs if folder in USED.get(p.name, folder)]
        return sorted(concerned, key=lambda p: (p.seconds > 0.1, not self.is_own(p, source), p.seconds))


class Worker:
    """A place to make one changed library after the other."""

    def __init__(self, library, name):
        self.library = library
        self.folder = WORK / name
        self.overlay = self.folder / "overlay"
        self.overlay.mkdir(parents=True, exist_ok=True)

    @contextlib.contextmanager
    def overlaid(self, file, text):
        """While the file is another one."""
        path = self.overlay / file[len("src/"):]
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
        try:
            yield
        finally:
            path.unlink()

    def object_of(self, source, folder=None):
        return (folder or self.folder) / (source.replace("/", "-") + ".o")

    def compile(self, source, changed, optimised="-O0", of_inside=False):
        """Compiles a unit of which `changed`, itself or a header, may stand in the overlay."""
        units = self.library.inside if of_inside else self.library.units
        unit = units[source]
        if of_inside:
            at = unit.command.index("-o")
            kept = [w for w in unit.command[1:at] if w != "-Werror"]
            command = [unit.command[0], "-iquote", str(self.overlay), *kept]
            output = self.folder / ("inside-" + source.replace("/", "-") + ".o")
        else:
            command = self.library.library_command(unit, optimised)
            command[1:1] = ["-iquote", str(self.overlay)]
            output = self.object_of(source)
        file = self.overlay / source[len("src/"):]
        file = file if source == changed and file.exists() else ROOT / source
        return run([*command, "-c", file, "-o", output], cwd=TESTS) == 0

    def link(self, changed_sources):
        unchanged = WORK / "unchanged"
        objects = [self.object_of(s, None if s in changed_sources else unchanged) for s in self.library.units]
        return run(["ld.lld", "-shared", "--eh-frame-hdr", "-soname", "libipsecimpl.so.1",
                    "-Bsymbolic-functions", "--version-script", ROOT / "src/exports.map", *objects,
                    "-o", self.folder / "libipsecimpl.so.1"]) == 0

    def link_inside(self, changed_sources):
        """The program that has the library's insides compiled in, of changed objects; its path."""
        command = self.library.inside_link
        for source, unit in self.library.inside.items():
            if source in changed_sources:
                new = str(self.folder / ("inside-" + source.replace("/", "-") + ".o"))
                command = [new if w == unit.output else w for w in command]
        program = self.folder / INSIDE
        command = [str(program) if w == "tests/" + INSIDE else w for w in command]
        return program if run([*command, "-fuse-ld=lld"], cwd=TESTS) == 0 else None

    def run_program(self, program, folder, executable=None):
        limit = self.library.cpu_limit(program)
        memory = self.library.memory_limit(program) << 20
        environment = dict(os.environ, LD_LIBRARY_PATH=str(folder), LLVM_PROFILE_FILE="/dev/null", GTEST_FAIL_FAST="1")
        command = [executable or program.command[0], *program.command[1:]]
        try:
            status = run(["prlimit", "--cpu=%d" % limit, "--as=%d" % memory, "--fsize=%d" % (64 << 20), "--core=0",
                          *command], cwd=program.folder, env=environment, timeout=60 + 20 * limit)
        except subprocess.TimeoutExpired:
            return "timed out"
        return "passed" if status == 0 else "timed out" if status in (-24, -9, 128 + 24) else "noticed"
