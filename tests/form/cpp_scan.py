# SPDX-License-Identifier: MIT
"""A rough reading of C++ sources, for checks of their form: where functions begin and end, and which variables
live as long as the process. It knows the scopes of this project's style, not the whole language."""

import re
from dataclasses import dataclass, field

_NOT_CODE = re.compile(
    r"""//[^\n]* | /\*.*?\*/ | R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)" | "(?:\\.|[^"\\\n])*" |
        (?<![0-9a-zA-Z_])'(?:\\.|[^'\\\n])+' | ^[ \t]*\#(?:\\\n|[^\n])*""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)


def code_of(text):
    """The source without comments, literals and preprocessor lines, with all line ends where they were."""

    def blank(match):
        lines = "\n" * match.group().count("\n")
        return '""' + lines if match.group()[0] in "\"'R" else lines

    return _NOT_CODE.sub(blank, text)


@dataclass
class Function:
    name: str
    first: int  # lines, from 1
    last: int
    body: str = ""

    @property
    def lines(self):
        return self.last - self.first + 1

    def is_plain_list(self):
        """Nothing but statements one after the other, or one switch."""
        return not re.search(r"\b(if|for|while|do|catch|goto)\b", self.body) or bool(
            re.search(r"^\s*switch\b", self.body)
        )


@dataclass
class Scan:
    functions: list = field(default_factory=list)
    variables: list = field(default_factory=list)  # (line, text) of all that has static life


_AGGREGATE = re.compile(r"^(template\s*<.*>\s*)?(typedef\s+)?(class|struct|union)\b", re.DOTALL)
_AFTER_PARAMETERS = re.compile(r"\)\s*((const|noexcept|override|final|mutable|&|&&|\(\"\"\))\s*)*(->.*|requires\b.*)?$", re.DOTALL)
_NO_VARIABLE = re.compile(
    r"^(using|typedef|template|friend|class|struct|union|enum|namespace|public|private|protected|static_assert|extern|"
    r"return|Q_[A-Z_]+|signals|slots|default|case|goto|if|for|while|else|do|try|catch|switch)\b"
)


def kind_of_scope(head, outer):
    """What an opening brace begins, by the text in front of it and the scope around it."""
    if outer in ("function", "block", "braces"):
        return "block" if outer == "function" else outer
    if re.match(r"^(inline\s+)?namespace\b", head) or re.match(r'^extern\s*""$', head):
        return "namespace"
    if re.match(r"^(typedef\s+)?enum\b", head):
        return "enum"
    if _AGGREGATE.match(head) and not head.endswith(")"):
        return "class"
    if re.search(r"(?<![=!<>+\-*/])=(?!=)", re.sub(r"\boperator\s*\S+|\(.*\)", "", head, flags=re.DOTALL)):
        return "braces"
    after_initialisers = re.search(r"\)\s*(noexcept\s*)?:(?!:)", head) and head[-1:] in ")}"
    if _AFTER_PARAMETERS.search(head) or after_initialisers:
        return "function"
    return "braces"


def without_arguments(text):
    """The same without arguments of templates."""
    shorter = re.sub(r"<[^<>]*>", "", text)
    return text if shorter == text else without_arguments(shorter)


def scan(text):
    """Reads a source; text with all its comments."""
    return _Reader(code_of(text)).read()


class _Reader:
    def __init__(self, code):
        self.code = code
        self.result = Scan()
        self.scopes = []  # (kind, place of its beginning, head)
        self.begin = 0  # of the statement that is being read
        self.type = ""

    def read(self):
        depth = 0  # of round brackets
        for place, sign in enumerate(self.code):
            if sign == "(":
                depth += 1
            elif sign == ")":
                depth -= 1
            elif sign == "{":
                self.open(place, depth)
            elif sign == "}" and self.scopes:
                self.close(place)
            elif sign == ";" and depth == 0:
                self.end_statement(place)
            elif sign == ":" and re.search(r"\b(public|private|protected|signals|slots)\s*$", self.statement(place)):
                self.begin = place + 1
        return self.result

    def statement(self, place):
        return self.code[self.begin : place].strip()

    def outer(self):
        return self.scopes[-1][0] if self.scopes else "namespace"

    def open(self, place, depth):
        head = self.statement(place)
        kind = "braces" if depth > 0 and self.outer() not in ("function", "block") else kind_of_scope(head, self.outer())
        self.scopes.append((kind, self.begin_of_statement(), head, place))
        if kind != "braces":
            self.begin = place + 1

    def begin_of_statement(self):
        gap = re.match(r"\s*", self.code[self.begin :]).end()
        return self.begin + gap

    def close(self, place):
        kind, begin, head, brace = self.scopes.pop()
        if kind == "function":
            name = re.search(r"([~\w:]+|operator\s*\S+)\s*\(", head)
            self.result.functions.append(
                Function(name.group(1) if name else head, self.line(begin), self.line(place), self.code[brace + 1 : place])
            )
        if kind != "braces":
            self.begin = place + 1
        # What follows a type is a variable of it.
        self.type = head if kind in ("class", "enum") else ""

    def end_statement(self, place):
        if self.outer() == "braces":
            return
        name = self.statement(place)
        text = " ".join((self.type + " " + name).split())
        if self.outer() == "namespace":
            lives_on = name and not _NO_VARIABLE.match(name)
        else:
            lives_on = re.search(r"\b(static|thread_local)\b", text)
        declared = without_arguments(re.split(r"[={]", name, maxsplit=1)[0])
        if lives_on and "(" not in declared:
            self.result.variables.append((self.line(self.begin_of_statement()), text))
        self.type = ""
        self.begin = place + 1

    def line(self, place):
        return self.code.count("\n", 0, place) + 1
