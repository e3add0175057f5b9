"""The changes that scripts/mutate makes to a source file, each of them small and alone.

What they are made of is the file's tokens, not its syntax tree: the sources are laid out by clang-format, so that an
operator between spaces is an operator, and a `<` without them opens template arguments. A change that is no C++ does
not compile, and is not counted.
"""

import collections
import re

Token = collections.namedtuple("Token", "kind text at")
Change = collections.namedtuple("Change", "at end new kind")

LEXER = re.compile(r"""
      (?P<skip>\s+|//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:\\\n|[^\n])*)
    | (?P<string>"(?:\\.|[^"\\])*")
    | (?P<char>'(?:\\.|[^'\\])+')
    | (?P<number>\d[\w.]*)
    | (?P<name>[A-Za-z_]\w*)
    | (?P<op><<=|>>=|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||\+=|-=|\*=|/=|%=|&=|\|=|\^=|::|.)
    """, re.X | re.S | re.M)

COMPARISONS = {"==": ["!="], "!=": ["=="], "<": ["<=", ">="], ">": [">=", "<="], "<=": ["<", ">"], ">=": [">", "<"]}
BINARY = {"&&": "||", "||": "&&", "+": "-", "-": "+", "*": "+", "/": "*", "%": "*", "&": "|", "|": "&", "^": "|",
          "<<": ">>", ">>": "<<", "+=": "-=", "-=": "+="}
OPENING, CLOSING = "([{", ")]}"

# A named constant becomes the next one of its line.
FAMILIES = [line.split() for line in """
    SPD_NONE SPD_BYPASS SPD_DISCARD SPD_TRANSPORT SPD_TUNNEL
    KEYMGR_NONE KEYMGR_MKM KEYMGR_IKE
    IPSEC_NONE IPSEC_AH IPSEC_ESP IPSEC_ESP_AH
    HOST_INET HOST_INET6 HOST_INETANY
    HOST_NONE HOST_SINGLE HOST_RANGE HOST_SUBNET_LENGTH HOST_SUBNET_MASK HOST_LOCAL HOST_ANY HOST_MCAST
    PROTO_IN PROTO_OUT PROTO_INOUT
    PROTOCOL NAME DST_PORT SRC_PORT DIRECTION MIRRORED
    DH_GROUP_NONE DH_GROUP_1
    KEYLIFETIME_SECS KEYLIFETIME_KB
    IKE_AUTH_PSK IKE_AUTH_RSA
    IKE_AESCBC_SHA1 IKE_3DES_MD5
    PARSE_CHILD PARSE_CONTENT PARSE_END PARSE_DATA
    badbit failbit eofbit
    max min
    AF_INET AF_INET6
    in_addr in6_addr
    invalid_argument runtime_error
    """.strip().splitlines()]
NEXT_NAME = {name: line[(i + 1) % len(line)] for line in FAMILIES for i, name in enumerate(line)}
NEXT_NAME.update({"true": "false", "false": "true"})

# A statement that begins with one of these is no call and no assignment.
NO_STATEMENT = set("""
    alignas auto case catch class const constexpr default do else enum explicit extern for friend if inline namespace
    operator private protected public return static struct switch template try typedef typename using virtual while
    """.split())


def tokens_of(text):
    return [Token(m.lastgroup, m.group(), m.start()) for m in LEXER.finditer(text) if m.lastgroup != "skip"]


def other_literal(token):
    """The texts that a literal is changed to."""
    if token.kind == "number":
        digits = re.match(r"0[xX][0-9A-Fa-f]+|\d+", token.text).group()
        value, suffix = int(digits, 0), token.text[len(digits):]
        return [str(value + 1) + suffix] + ([str(value - 1) + suffix] if value > 0 else [])
    body = token.text[1:-1]
    if token.kind == "char":
        return [r"'\x01'" if body.startswith("\\") else "'%s'" % chr(ord(body) + 1).replace("\\", "\\\\")]
    if not body or (len(body) > 1 and body[-2] == "\\"):
        return ['"%sX"' % body]
    return ['"%s%s"' % (body[:-1], "Y" if body[-1] == "X" else "X")]


class Changes:
    def __init__(self, text):
        self.text = text
        self.tokens = tokens_of(text)
        self.match = self._matching()
        self.found = {}
        for i, token in enumerate(self.tokens):
            self._operators(i, token)
            self._literals(i, token)
            self._guards(i, token)
            self._statements(i, token)

    def list(self):
        return sorted(self.found.values())

    def _matching(self):
        """For each bracket the place of its partner among the tokens."""
        match, open_ = {}, []
        self.in_parentheses = set()
        for i, token in enumerate(self.tokens):
            if open_ and self.tokens[open_[-1]].text == "(":
                self.in_parentheses.add(i)
            if token.text in OPENING and token.kind == "op":
                open_.append(i)
            elif token.text in CLOSING and token.kind == "op":
                match[i] = open_.pop()
                match[match[i]] = i
        return match

    def _add(self, at, end, new, kind):
        if self.text[at:end] != new:
            self.found.setdefault((at, end, new), Change(at, end, new, kind))

    def _end(self, i):
        return self.tokens[i].at + len(self.tokens[i].text)

    def _spaced(self, i):
        return self.text[self.tokens[i].at - 1].isspace() and self.text[self._end(i)].isspace()

    def _operators(self, i, token):
        if token.kind != "op" or i == 0:
            return
        spaced = self._spaced(i)
        if spaced and token.text in COMPARISONS:
            for new in COMPARISONS[token.text]:
                self._add(token.at, self._end(i), new, "comparison")
        elif spaced and token.text in BINARY:
            self._add(token.at, self._end(i), BINARY[token.text], "operator")
        elif token.text in ("++", "--"):
            self._add(token.at, self._end(i), "--" if token.text == "++" else "++", "operator")
        elif token.text in "!~-" and not spaced and self.tokens[i - 1].text != "operator":
            before = self.tokens[i - 1]
            if before.kind == "op" and before.text not in (*CLOSING, "::") or before.text == "return":
                self._add(token.at, self._end(i), "", "operator")

    def _literals(self, i, token):
        if token.kind in ("number", "char", "string"):
            for new in other_literal(token):
                self._add(token.at, self._end(i), new, "constant")
        elif token.text in NEXT_NAME:
            self._add(token.at, self._end(i), NEXT_NAME[token.text], "constant")

    def _guards(self, i, token):
        """Conditions become true and false; those of loops false alone, as the other is an endless loop."""
        if token.text in ("if", "while", "for") and i + 1 < len(self.tokens) and self.tokens[i + 1].text == "(":
            close = self.match[i + 1]
            cuts = [i + 1] + [k for k in self._top(i + 2, close) if self.tokens[k].text == ";"] + [close]
            if token.text == "for" and len(cuts) != 4:
                return
            first, last = (cuts[1], cuts[2]) if token.text == "for" else (cuts[-2], cuts[-1])
            if first + 1 == last:
                return
            at, end = self.tokens[first + 1].at, self.tokens[last].at
            declares = any(self.tokens[k].text == "=" for k in self._top(first + 1, last))
            prefix = self.text[at:end] + "; " if declares else ""
            for new in ("true", "false") if token.text == "if" else ("false",):
                self._add(at, end, prefix + new, "guard")
        elif token.text == "?":
            first = i
            while self.tokens[first - 1].text not in "=(,;{?:" and self.tokens[first - 1].text != "return":
                first = self.match[first - 1] if self.tokens[first - 1].text in CLOSING else first - 1
            for new in ("true", "false"):
                self._add(self.tokens[first].at, self._end(i - 1), new, "guard")

    def _top(self, first, last):
        """The tokens from `first` to before `last` that are in no brackets of their own."""
        k = first
        while k < last:
            yield k
            k = self.match[k] + 1 if self.tokens[k].text in OPENING and self.tokens[k].kind == "op" else k + 1

    def _starts_statement(self, i):
        before = self.tokens[i - 1]
        if self.tokens[i].kind != "name" and self.tokens[i].text not in ("*", "++", "--"):
            return False
        if before.text == ";":
            return i not in self.in_parentheses
        if before.text in ("{", "}", "else"):
            return True
        if before.text == ":":
            start = next(k for k in range(i - 1, -1, -1) if k == 0 or self.tokens[k - 1].text in (";", "{", "}"))
            return self.tokens[start].text in ("case", "default")
        opener = self.match.get(i - 1, 0) if before.text == ")" else 0
        return opener > 0 and self.tokens[opener - 1].text in ("if", "for", "while")

    def _statements(self, i, token):
        """Statements are removed; what is returned becomes what `{}` makes."""
        if i == 0 or not self._starts_statement(i):
            return
        last = next((k for k in self._top(i, len(self.tokens)) if self.tokens[k].text in (";", "}", "{")), None)
        if last is None or self.tokens[last].text != ";":
            return
        at, end = token.at, self.tokens[last].at
        top = list(self._top(i, last))
        if token.text == "return":
            self._returns(i, last, top, end)
        elif token.text == "break" or not self._is_no_statement(i, top):
            self._add(at, end, "", "statement")

    def _is_no_statement(self, i, top):
        return self.tokens[i].text in NO_STATEMENT or self._declares(top)

    def _returns(self, i, last, top, end):
        if last == i + 1:
            return
        first = self.tokens[i + 1]
        assigned = [k for k in top if self.tokens[k].text == "="]
        writer = re.match(r"\w+\((out|os), ", self.text[first.at:end])
        if assigned:
            self._add(self._end(assigned[0] - 1), end, "", "return")
        elif writer:
            self._add(first.at, end, writer.group(1), "return")
        elif self.text[first.at:end] not in ("*this", "{}", "true", "false", "0"):
            self._add(first.at, end, "{}", "return")

    def _declares(self, top):
        """Do two names, or a name and what follows a type, stand side by side?"""
        for a, b in zip(top, top[1:]):
            pair = self.tokens[a], self.tokens[b]
            if pair[0].text in ("=", "(", "throw"):
                return False
            if pair[1].kind == "name" and (pair[0].kind == "name" or
                                           (pair[0].text in "&*>" and a > top[0])):
                return True
        return False
