"""Tokens of C++, their brackets, and what each pair of braces holds. It knows as much of the language as the layout that
clang-format gives our sources allows: a binary operator stands between blanks, the brackets of a template do not."""

import bisect
import re
from dataclasses import dataclass

TOKEN = re.compile(r"""
  (?P<blank>\s+|//[^\n]*|/\*.*?\*/)
| (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
| (?P<string>(?:u8|[uUL])?"(?:\\.|[^"\\\n])*")
| (?P<char>(?:u8|[uUL])?'(?:\\.|[^'\\\n])+')
| (?P<number>\d(?:'?[\w.])*)
| (?P<word>[A-Za-z_]\w*)
| (?P<sign><=>|<<=|\.\.\.|::|->|\+\+|--|<<|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|.)
""", re.VERBOSE | re.DOTALL | re.MULTILINE)
CLOSING = {"(": ")", "[": "]", "{": "}"}
# What ends the head of a body, scanning back from its brace.
ENDS = (";", "{", "}")
BEFORE_BLOCK = (")", "else", "try", "do", "const", "override", "final", "mutable", "noexcept", ";", "]")


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


class Source:
    """The text of a file with its tokens; positions in the list of tokens are called places."""

    def __init__(self, text):
        self.text = text
        self.tokens = [Token(match.lastgroup, match[0], match.start(), match.end()) for match in TOKEN.finditer(text)
                       if match.lastgroup not in ("blank", "directive")]
        self.partner = self._pair_brackets()
        self.off = self._places_left_out()
        self.bodies = self._kinds_of_braces()
        self._line_starts = [0] + [match.end() for match in re.finditer("\n", text)]

    def line_of(self, position):
        return bisect.bisect_right(self._line_starts, position)

    def lines(self, start, end):
        """The whole lines from the position `start` to the position `end`."""
        first = self._line_starts[self.line_of(start) - 1]
        last = self.text.find("\n", end)
        return first, len(self.text) if last < 0 else last

    def is_word(self, place, *words):
        return 0 <= place < len(self.tokens) and self.tokens[place].text in words

    def is_spaced(self, place):
        token = self.tokens[place]
        return self.text[token.start - 1].isspace() and self.text[token.end:token.end + 1].isspace()

    def between(self, first, last):
        """The text of the tokens from `first` to `last`, without comments."""
        return " ".join(token.text for token in self.tokens[first:last + 1])

    def _pair_brackets(self):
        partner, opened = {}, []
        for place, token in enumerate(self.tokens):
            if token.text in CLOSING:
                opened.append(place)
            elif token.kind == "sign" and token.text in ")]}" and opened:
                other = opened.pop()
                partner[place], partner[other] = other, place
        return partner

    def skip(self, place):
        """The place behind the token, or behind the bracket that it opens."""
        opens = self.tokens[place].text in CLOSING and place in self.partner
        return (self.partner[place] if opens else place) + 1

    def skip_back(self, place):
        closes = place in self.partner and self.partner[place] < place
        return (self.partner[place] if closes else place) - 1

    def end_of_statement(self, place):
        while place < len(self.tokens) and self.tokens[place].text not in (";", "}"):
            place = self.skip(place)
        return min(place, len(self.tokens) - 1)

    def _places_left_out(self):
        """What the compiler alone sees: checks, attributes, declarations of templates, names and friends."""
        off, place = set(), 0
        while place < len(self.tokens):
            end = self._end_left_out(place)
            off.update(range(place, end))
            place = max(end, place + 1)
        return off

    def _end_left_out(self, place):
        word = self.tokens[place].text
        if word in ("static_assert", "using", "friend", "extern", "typedef"):
            return self._end_of_declaration(place)
        if word == "operator":
            return self._next(place + 2, "(")
        if word in ("noexcept", "alignas", "decltype", "sizeof", "static_cast", "template"):
            return self._end_of_bracket(place + 1)
        if word == "[" and self.is_word(place + 1, "["):
            return self.partner[place] + 1
        return place

    def _end_of_declaration(self, place):
        """A friend may have a body, which is code."""
        while place < len(self.tokens) and self.tokens[place].text not in (";", "{"):
            place = self.partner[place] + 1 if self.tokens[place].text in "([" else place + 1
        return place

    def _next(self, place, word):
        while place < len(self.tokens) and self.tokens[place].text != word:
            place += 1
        return place

    def _end_of_bracket(self, place):
        if self.is_word(place, "("):
            return self.partner[place] + 1
        depth = 0
        while self.is_word(place, "<") or depth > 0:
            depth += {"<": 1, ">": -1}.get(self.tokens[place].text, 0)
            place += 1
        return place

    def _kinds_of_braces(self):
        kinds = {}
        for place, token in enumerate(self.tokens):
            if token.text == "{" and place in self.partner:
                kinds[place] = self._kind_of_brace(place, kinds)
        return kinds

    def _kind_of_brace(self, place, kinds):
        head = self._head(place)
        if "enum" in head:
            return "enum"
        if "namespace" in head:
            return "namespace"
        if ("class" in head or "struct" in head) and "(" not in head and "=" not in head:
            return "class"
        outer = [kinds[open_] for open_ in kinds if self.partner[open_] > place]
        inner_of_list = bool(outer) and outer[-1] == "list" and self.is_word(place - 1, "{", ",")
        if inner_of_list:
            return "list"
        previous = self.tokens[place - 1].text if place else ";"
        if previous in BEFORE_BLOCK or previous in ENDS or "->" in self._type_before(place):
            return "block"
        return "list"

    def _head(self, place):
        words, here = [], place - 1
        while here >= 0 and self.tokens[here].text not in ENDS + ("(",):
            if here not in self.off:
                words.append(self.tokens[here].text)
            if self.tokens[here].text == ")":
                words.append("(")
            here = self.skip_back(here)
        return words

    def _type_before(self, place):
        words, here = [], place - 1
        while here >= 0 and (self.tokens[here].kind == "word" or self.tokens[here].text in ("::", "<", ">", "&", "*", "->")):
            words.append(self.tokens[here].text)
            here -= 1
        return words
