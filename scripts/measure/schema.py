"""One text of a source file that holds all its changes, of which a number chooses one at run time.

A condition becomes `(isMutant(7) ? (changed) : (as it is))`, a statement an if with a copy for each of its changes, and
so does the smallest expression around a change elsewhere. The copies stand on lines of their own, so that the compiler's
errors tell which of them are no C++.
"""

import collections

from changes import CLOSING, Changes

Region = collections.namedtuple("Region", "at end is_statement")


class Schema(Changes):
    def __init__(self, text):
        self.regions = []
        super().__init__(text)
        for i in range(1, len(self.tokens)):
            self._statement_region(i)

    def _guards(self, i, token):
        super()._guards(i, token)
        if token.text not in ("if", "while", "for") or self.tokens[i + 1].text != "(":
            return
        close = self.match[i + 1]
        cuts = [i + 1] + [k for k in self._top(i + 2, close) if self.tokens[k].text == ";"] + [close]
        for first, last in zip(cuts, cuts[1:]):
            assigned = [k for k in self._top(first + 1, last) if self.tokens[k].text == "="]
            start = assigned[0] + 1 if assigned else first + 1
            if start < last and not any(self.tokens[k].text == ":" for k in self._top(first + 1, last)):
                self.regions.append(Region(self.tokens[start].at, self._end(last - 1), False))

    def _statement_region(self, i):
        if not self._starts_statement(i):
            return
        last = next((k for k in self._top(i, len(self.tokens)) if self.tokens[k].text in (";", "}", "{")), None)
        if last is None or self.tokens[last].text != ";":
            return
        top = list(self._top(i, last))
        if self.tokens[i].text in ("return", "break", "throw") or not self._is_no_statement(i, top):
            self.regions.append(Region(self.tokens[i].at, self._end(last), True))

    def _smallest(self, change):
        """The expression between commas, brackets, `=` and `;` around a change."""
        inside = [k for k, t in enumerate(self.tokens) if change.at <= t.at < change.end]
        first, last = inside[0], inside[-1]
        stops = (",", "(", "{", "[", "=", ";", "return", "?", ":", "<")
        while self.tokens[first - 1].text not in stops:
            first = self.match[first - 1] if self.tokens[first - 1].text in CLOSING else first - 1
        while self.tokens[last + 1].text not in (",", ")", "}", "]", ";", "?", ":", ">"):
            last = self.match.get(last + 1, last + 1)
        return Region(self.tokens[first].at, self._end(last), False)

    def grouped(self):
        """Regions that do not overlap, each with its changes."""
        around = {c: [r for r in self.regions if r.at <= c.at and c.end <= r.end] for c in self.list()
                  if "; " not in c.new}  # a condition that declares something is no expression
        pairs = sorted(((min(rs, key=lambda r: (r.at, -r.end)) if rs else self._smallest(c)), c)
                       for c, rs in around.items())
        groups = []
        for region, change in sorted(pairs, key=lambda p: (p[0].at, -p[0].end)):
            if groups and region.at < groups[-1][0].end:
                outer = groups[-1][0]
                if region.end > outer.end:
                    continue  # they cross: it is tried alone
                groups[-1][1].append(change)
            else:
                groups.append((region, [change]))
        return groups

    def written(self, number_of):
        """The text, and for each of its lines the numbers of the changes that an error there may come from: of one where
        the line is its copy, of all in a region where it begins and ends. `number_of` gives none to leave out."""
        out, line, done = [], 1, 0
        owners = collections.defaultdict(list)

        def put(text):
            nonlocal line
            out.append(text)
            line += text.count("\n")

        for region, changes in self.grouped():
            numbered = [(number_of(c), c) for c in changes if number_of(c) is not None]
            if not numbered:
                continue
            put(self.text[done:region.at])
            owners[line] += [n for n, _ in numbered]
            put("{" if region.is_statement else "(")
            for number, change in numbered:
                copy = self.text[region.at:change.at] + change.new + self.text[change.end:region.end]
                copy = " ".join(copy.split("\n"))
                put(("\n if (isMutant(%d)) { %s } else" if region.is_statement else "\n isMutant(%d) ? (%s) :")
                    % (number, copy))
                owners[line] = [number]
            put("\n")
            for k in range(self.text.count("\n", region.at, region.end) + 1):
                owners[line + k] += [n for n, _ in numbered]
            put(("{ %s }}" if region.is_statement else "(%s))") % self.text[region.at:region.end])
            done = region.end
        put(self.text[done:])
        return "".join(out), owners
