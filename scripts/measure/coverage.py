"""Reports which lines and branches of the library the tests ran: see scripts/coverage.

    coverage.py EXPORT EXCLUSIONS

EXPORT is what `llvm-cov export` wrote. A line or branch that is in several places, as in the instantiations of a
template or in inline functions of several programs, counts as covered where the places together cover it. In EXCLUSIONS
a line

    FILE: SOURCE LINE

leaves out all lines of the file that read so, with their branches, and the comment above it says why. Fails if something
else is not covered, and if there is no such line.
"""

import collections
import json
import os
import sys

FOLDERS = ("src/", "include/")


def source_lines(name):
    with open(name, encoding="utf-8") as source:
        return [""] + source.read().splitlines()


class Counts:
    """How often the lines and the ways of the branches of one file were taken, by line."""

    def __init__(self):
        self.lines = collections.Counter()
        self.branches = collections.Counter()

    def add_function(self, regions, branches):
        # A line is run as often as the innermost region that begins at or before it, and ends behind it.
        code = [r for r in regions if r[7] == 0]
        first, last = min(r[0] for r in code), max(r[2] for r in code)
        for line in range(first, last + 1):
            starting = [r[4] for r in code if r[0] == line]
            around = [r for r in regions if r[0] < line <= r[2]]
            inner = max(around, key=lambda r: (r[0], r[1], -r[2], -r[3]), default=None)
            counts = starting + ([inner[4]] if inner and inner[7] == 0 else [])
            if counts:
                self.lines[line] += max(counts)
        for line, column, to_line, to_column, taken, not_taken, *_ in branches:
            self.branches[line, column, to_line, to_column, "true"] += taken
            self.branches[line, column, to_line, to_column, "false"] += not_taken


def counts_by_file(export):
    root = os.getcwd() + os.sep
    files = collections.defaultdict(Counts)
    for function in export["data"][0]["functions"]:
        name = os.path.normpath(function["filenames"][0])
        name = name[len(root):] if name.startswith(root) else name
        if name.startswith(FOLDERS):
            files[name].add_function(function["regions"], function["branches"])
    return files


def read_exclusions(name):
    with open(name, encoding="utf-8") as lines:
        pairs = (line.strip().split(": ", 1) for line in lines if line.strip() and not line.startswith("#"))
        return {(file, text) for file, text in pairs}


def main():
    with open(sys.argv[1], encoding="utf-8") as export:
        files = counts_by_file(json.load(export))
    exclusions = read_exclusions(sys.argv[2])
    used, uncovered, excluded = set(), [], 0
    totals = collections.Counter()
    for name, counts in sorted(files.items()):
        text = source_lines(name)
        kinds = [("line", line, "", n) for line, n in counts.lines.items()]
        kinds += [("branch", key[0], "%d:%s" % (key[1], key[4]), n) for key, n in counts.branches.items()]
        for kind, line, detail, n in sorted(kinds):
            here = (name, text[line].strip())
            if here in exclusions:
                used.add(here)
                excluded += 1
                continue
            totals[kind] += 1
            totals["covered " + kind] += n > 0
            if n == 0:
                uncovered.append("%s:%d: %s %s not covered: %s" % (name, line, kind, detail, text[line].strip()))
    print(*uncovered, sep="\n", end="\n" if uncovered else "")
    for file, text in sorted(exclusions - used):
        print("%s: nothing is left out by: %s" % (file, text))
    for kind, plural in (("line", "lines"), ("branch", "branches")):
        print("%s: %d of %d covered" % (plural, totals["covered " + kind], totals[kind]))
    print("%d lines and branches left out, %d files" % (excluded, len(files)))
    return 1 if uncovered or exclusions - used or not files else 0


if __name__ == "__main__":
    sys.exit(main())
