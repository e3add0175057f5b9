"""Makes small changes to the library's sources, one at a time, and runs the tests: see scripts/mutate.

The results are in build/mutants/results.tsv, and are taken up again by the next run: a change is tried once, and those
that no test noticed again with --survivors. The changes that are known to make no difference are in
docs/reliability-mutants.md, as differences under the reason.
"""

import argparse
import collections
import concurrent.futures
import queue
import re
import sys
import threading

from all_changes import AllChanges
from changes import Changes
from library import INSIDE, ROOT, WORK, Library, Worker

PAGE = ROOT / "docs/reliability-mutants.md"
RESULTS = WORK / "results.tsv"
ALONE = "to be tried alone"
QUICK = 0.75  # seconds of processor time

# What a change is known by: it stays so when lines above it come or go.
Mutant = collections.namedtuple("Mutant", "file was becomes number")


Item = collections.namedtuple("Item", "mutant change line")


def mutants_of(file):
    """All changes of a file."""
    text = (ROOT / file).read_text()
    seen = collections.Counter()
    for change in Changes(text).list():
        begin = text.rfind("\n", 0, change.at) + 1
        end = text.find("\n", change.end)
        was = " ".join(text[begin:end].split())
        becomes = " ".join((text[begin:change.at] + change.new + text[change.end:end]).split())
        seen[was, becomes] += 1
        yield Item(Mutant(file, was, becomes, seen[was, becomes]), change, text.count("\n", 0, change.at) + 1)


def changed_text(item):
    text = (ROOT / item.mutant.file).read_text()
    return text[:item.change.at] + item.change.new + text[item.change.end:]


def known_equivalents():
    """From the page: file names, and pairs of lines that begin with - and +. A `# 2` ends the second of equal ones."""
    known, file, was = set(), "", ""
    for block in re.findall(r"^```diff\n(.*?)^```", PAGE.read_text() if PAGE.exists() else "", re.M | re.S):
        for line in block.splitlines():
            if line.startswith("-"):
                was = line[1:].strip()
            elif line.startswith("+"):
                becomes, _, number = line[1:].strip().partition("  # ")
                known.add(Mutant(file, was, becomes.strip(), int(number or 1)))
            else:
                file = line.strip()
    return known


def programs_for(library, file, quick):
    return [p for p in library.order(file) if p.seconds < QUICK or not quick]


def outcome_alone(worker, item, quick):
    """What becomes of a change that is compiled alone, and the program that noticed it."""
    library, file = worker.library, item.mutant.file
    with worker.overlaid(file, changed_text(item)):
        units = library.units_of(file)
        inside = library.units_of(file, library.inside)
        if not all(worker.compile(s, file) for s in units) or not worker.link(units):
            return "does not compile", ""
        for program in programs_for(library, file, quick):
            executable = None
            if program.name == INSIDE:
                if not inside:
                    continue
                if not all(worker.compile(s, file, of_inside=True) for s in inside):
                    return "does not compile", program.name
                executable = worker.link_inside(inside)
            outcome = worker.run_program(program, worker.folder, executable)
            if outcome != "passed":
                return outcome, program.name
    return ("survived the quick" if quick else "survived"), ""


def is_same_code(worker, item):
    """Does the optimising compiler make the same of both?"""
    file = item.mutant.file
    plain = Worker(worker.library, worker.folder.name + "-optimised")
    with worker.overlaid(file, changed_text(item)):
        for source in worker.library.units_of(file):
            if not plain.object_of(source).exists():
                plain.compile(source, source, optimised="-O2")
            if not worker.compile(source, file, optimised="-O2") or \
                    worker.object_of(source).read_bytes() != plain.object_of(source).read_bytes():
                return False
    return True


def read_results():
    results = {}
    if RESULTS.exists():
        for line in RESULTS.read_text().splitlines():
            file, _, number, _, outcome, _, was, becomes = line.split("\t")
            results[Mutant(file, was, becomes, int(number))] = outcome
    return results


def record(item, outcome, program=""):
    with open(RESULTS, "a", encoding="utf-8") as results:
        print(item.mutant.file, item.line, item.mutant.number, item.change.kind, outcome, program, item.mutant.was,
              item.mutant.becomes, sep="\t", file=results)


def try_alone(library, todo, jobs, attempt):
    """`attempt(worker, item)` for each, by several workers at a time."""
    workers = queue.Queue()
    for i in range(jobs):
        workers.put(Worker(library, "worker-%d" % i))
    lock = threading.Lock()

    def work(item):
        worker = workers.get()
        try:
            outcome = attempt(worker, item)
        finally:
            workers.put(worker)
        with lock:
            record(item, *outcome)

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        collections.deque(pool.map(work, todo), maxlen=0)


def try_together(library, todo, options):
    """All that one library can hold, program by program. The others are to be tried alone."""
    build = AllChanges(library, todo)
    left = build.compiled()
    others = [item for item in todo if item not in left]
    print("%d changes in one library, %d alone" % (len(left), len(others)), flush=True)
    for item in others:
        record(item, ALONE)
    # First each item's own program, as that of its folder, then the others.
    programs = sorted(library.programs, key=lambda p: p.seconds)
    for program, first in [(p, True) for p in programs] + [(p, False) for p in programs]:
        concerned = [i for i in left if program in programs_for(library, i.mutant.file, options.quick) and
                     library.is_own(program, i.mutant.file) == first]
        if program.name == INSIDE:
            concerned = [i for i in concerned if library.units_of(i.mutant.file, library.inside)]
        for item, outcome in build.run(program, concerned, options.jobs) if concerned else ():
            if outcome != "passed":
                record(item, outcome, program.name)
                left.remove(item)
        print("%s: %d tried, %d left" % (program.name, len(concerned), len(left)), flush=True)
    for item in left:
        record(item, "survived the quick" if options.quick else "survived")


def report(files, everything):
    """The figures, and what survived and is not known: then the status is 1."""
    results, known = read_results(), {m for m in known_equivalents() if m.file in files}
    outcomes = collections.Counter(results.get(m, "not tried") for m, *_ in everything)
    survivors = [(m, line) for m, _, line in everything if results.get(m, "").startswith("survived")]
    unknown = [(m, line) for m, line in survivors if m not in known]
    stale = known - {m for m, _ in survivors}
    for mutant, line in unknown:
        number = "  # %d" % mutant.number if mutant.number > 1 else ""
        print("%s:%d: not noticed\n-%s\n+%s%s" % (mutant.file, line, mutant.was, mutant.becomes, number))
    for mutant in sorted(stale):
        print("%s: listed in %s, but did not survive: %s" % (mutant.file, PAGE.name, mutant.becomes))
    print("%d changes: %s" % (len(everything), ", ".join("%d %s" % (n, o) for o, n in sorted(outcomes.items()))))
    print("%d survived and are known to make no difference, %d are not" % (len(survivors) - len(unknown), len(unknown)))
    untried = outcomes["not tried"] + outcomes[ALONE] + outcomes["survived the quick"]
    return 1 if unknown or stale or untried else 0


def main():
    parser = argparse.ArgumentParser(description="Changes the library's sources, one place at a time, and runs the tests.")
    parser.add_argument("files", nargs="*", help="sources, such as src/xml/number.cpp; all if none is named")
    parser.add_argument("-j", "--jobs", type=int, default=2)
    parser.add_argument("--survivors", action="store_true", help="try those again that no test noticed")
    parser.add_argument("--quick", action="store_true", help="leave the programs out that take long")
    parser.add_argument("--report", action="store_true", help="try nothing, tell what was found")
    options = parser.parse_args()

    files = options.files or sorted(str(f.relative_to(ROOT)) for f in ROOT.glob("src/*/*") if f.suffix in (".cpp", ".h"))
    everything = [mutant for file in files for mutant in mutants_of(file)]
    if not options.report:
        results = read_results()
        again = {"survived the quick"} | ({"survived"} if options.survivors else set())
        todo = [i for i in everything if i.mutant not in results or results[i.mutant] in again]
        library = Library()
        library.find_programs(library.prepare())
        if todo:
            try_together(library, todo, options)
        results = read_results()
        alone = [i for i in everything if results[i.mutant] == ALONE]
        try_alone(library, alone, options.jobs, lambda worker, item: outcome_alone(worker, item, options.quick))
        results = read_results()
        same = [i for i in everything if results[i.mutant] == "survived"]
        try_alone(library, same, options.jobs,
                  lambda worker, item: ("same code" if is_same_code(worker, item) else "survived",))
    return report(files, everything)


if __name__ == "__main__":
    sys.exit(main())
