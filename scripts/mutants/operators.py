"""Makes the mutants of a source: small changes, each of which a test should notice."""

import re
from dataclasses import dataclass

from mutants.lexer import Source
from mutants.statements import members_of, statements_of

REPLACED = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "+": "-", "-": "+", "*": "/", "/": "*", "%": "/",
            "&": "|", "|": "&", "<<": "&", "+=": "-=", "-=": "+=", "|=": "=", "&=": "="}
LOGICAL = {"&&": "||", "||": "&&"}
WORDS = {"true": "false", "false": "true", "JobFileAndXml": "JobFile", "JobFile": "JobFileAndXml", "WriteOnly": "JobFile",
         "Xml": "JobFileAndXml", "Nowhere": "JobFile"}
# Where an operand of && or || ends.
BORDERS = ("(", "[", "{", "}", ",", ";", "?", ":", "=", "return", "||")
NO_CALL = ("if", "for", "while", "switch", "catch", "return")
JUMPS = ("return", "throw", "break", "continue", "case", "default", "goto", "delete", "public", "private", "protected")
PARAMETER = re.compile(r"(?:const )?[\w:]+(?:<.*>)?(?: const)?(?:[&*]+(?: ?\w+)?| [&*]*\w+)(?: = .*)?", re.DOTALL)
DECLARATION = re.compile(r"(?:static |const |constexpr |thread_local )*[\w:]+(?:<.*?>)?(?: ?[&*]+)?(?: const)? (\w+|\[.*?\])"
                         r" ?([=({;])", re.DOTALL)
EMPTY_RESULTS = ("{}", "{ }", "false", "true", "0", "nullptr", "*this", "* this", "")


@dataclass(frozen=True)
class Mutant:
    """The text from `start` to `end` becomes `text`; before and after are the lines that it touches, in one line."""
    path: str
    line: int
    last_line: int
    start: int
    end: int
    text: str
    before: str
    after: str

    def apply(self, source):
        return source[:self.start] + self.text + source[self.end:]


def one_line(text):
    return " ".join(text.split())


def mutants_of(path, text):
    """All mutants of a source, in order of their places."""
    source = Source(text)
    edits = set()
    for place in range(len(source.tokens)):
        if place not in source.off:
            edits.update(_edits_at(source, place))
    for brace, kind in source.bodies.items():
        if kind == "block":
            edits.update(_edits_of_block(source, statements_of(source, brace)))
        elif kind == "class":
            edits.update(_edits_of_class(source, members_of(source, brace)))
    return [_mutant(path, source, *edit) for edit in sorted(edits) if text[edit[0]:edit[1]] != edit[2]]


def _mutant(path, source, start, end, new):
    first, last = source.lines(start, end)
    text = source.text
    return Mutant(path, source.line_of(start), source.line_of(end), start, end, new, one_line(text[first:last]),
                  one_line(text[first:start] + new + text[end:last]))


def _edits_at(source, place):
    token = source.tokens[place]
    maker = {"number": _number, "string": _string, "char": _char, "word": _word, "sign": _sign}[token.kind]
    return maker(source, place, token)


def _number(source, place, token):
    """One more and one less; of a hexadecimal number the last digit changes, of a fraction the part before the point."""
    match = re.fullmatch(r"(0[xX][\da-fA-F']*|\d[\d']*)((?:\.\d+)?[a-zA-Z]*)", token.text)
    if not match or source.is_word(place - 1, "=") and source.is_word(place - 2, ")", "const"):
        return
    value = int(match[1].replace("'", ""), 16 if match[1][:2] in ("0x", "0X") else 10)
    form = "{:#x}" if match[1][:2] in ("0x", "0X") else "{}"
    for changed in (value + 1, value - 1):
        if changed >= 0:
            yield token.start, token.end, form.format(changed) + match[2]


def _string(_source, _place, token):
    if not token.text.endswith('""'):
        yield token.end - 1, token.end - 1, "_"


def _char(_source, _place, token):
    other = "y" if token.text.endswith("x'") else "x"
    yield token.start, token.end, token.text[:token.text.index("'")] + f"'{other}'"


def _word(source, place, token):
    if token.text in ("true", "false") or source.is_word(place - 2, "Kept") and token.text in WORDS:
        yield token.start, token.end, WORDS[token.text]
    if token.text == "ErrorNumber" and source.is_word(place + 1, "::") and not source.is_word(place - 1, "case"):
        yield token.start, source.tokens[place + 2].end, "static_cast<ErrorNumber>(1)"
    if token.text in ("if", "while"):
        yield from _condition(source, place)
    if token.text == "return":
        yield from _empty_result(source, place)


def _condition(source, place):
    opening = place + 1
    if not source.is_word(opening, "("):
        return
    first, last = opening + 1, source.partner[opening] - 1
    for here in range(first, last):
        if source.tokens[here].text == ";":
            first = here + 1
    start, end = source.tokens[first].start, source.tokens[last].end
    yield start, end, "false"
    if source.tokens[place].text == "if":
        yield start, end, "true"


def _empty_result(source, place):
    end = source.end_of_statement(place) - 1
    if end > place and source.between(place + 1, end) not in EMPTY_RESULTS:
        yield source.tokens[place + 1].start, source.tokens[end].end, "{}"


def _sign(source, place, token):
    if token.text in REPLACED and source.is_spaced(place) and not _joins_texts(source, place):
        yield token.start, token.end, REPLACED[token.text]
    elif token.text in LOGICAL and source.is_spaced(place):
        yield token.start, token.end, LOGICAL[token.text]
        yield from _without_operand(source, place)
    elif token.text == "!":
        yield token.start, token.end, ""
    elif token.text == "++" and not _heads_loop(source, place):
        yield token.start, token.end, "--"
    elif token.text == "?":
        yield from _swapped_branches(source, place)
    elif token.text in "({" and place in source.partner:
        yield from _swapped_arguments(source, place)


def _joins_texts(source, place):
    return any(source.tokens[here].kind == "string" for here in (place - 1, place + 1))


def _heads_loop(source, place):
    here = place
    while here >= 0 and source.tokens[here].text not in ("(", "{", "}"):
        here = source.skip_back(here)
    return source.is_word(here - 1, "for", "while")


def _without_operand(source, place):
    sign = source.tokens[place]
    borders = BORDERS + (("&&",) if sign.text == "&&" else ())
    first = place - 1
    while source.tokens[first].text not in borders or source.partner.get(first, first) < first:
        first = source.skip_back(first)
    last = place + 1
    while source.tokens[last].text not in borders + (")", "]") or source.partner.get(last, 0) > last:
        last = source.skip(last)
    left, right = source.tokens[first + 1].start, source.tokens[last - 1].end
    yield left, right, source.text[left:source.tokens[place - 1].end]
    yield left, right, source.text[source.tokens[place + 1].start:right]


def _swapped_branches(source, place):
    middle = _end_of_branch(source, place + 1, (":",))
    last = _end_of_branch(source, middle + 1, (",", ";", ")", "]", "}", ":"))
    yield _swap(source, (place + 1, middle - 1), (middle + 1, last - 1))


def _end_of_branch(source, place, ends):
    nested = 0
    while source.tokens[place].text not in ends or nested:
        nested += {"?": 1, ":": -1}.get(source.tokens[place].text, 0)
        place = source.skip(place)
    return place


def _swap(source, one, other):
    """The edit that exchanges two spans of tokens."""
    tokens, text = source.tokens, source.text
    a, b = (tokens[one[0]].start, tokens[one[1]].end), (tokens[other[0]].start, tokens[other[1]].end)
    return a[0], b[1], text[b[0]:b[1]] + text[a[1]:b[0]] + text[a[0]:a[1]]


def _swapped_arguments(source, place):
    if source.tokens[place].text == "(" and (place == 0 or not _is_call(source, place)):
        return
    if source.tokens[place].text == "{" and source.bodies.get(place) != "list":
        return
    arguments = _arguments(source, place)
    if any(PARAMETER.fullmatch(_plain(source, span)) for span in arguments):
        return
    for one, other in zip(arguments, arguments[1:]):
        if _may_swap(source, one, other):
            yield _swap(source, one, other)


def _is_call(source, place):
    """Whether arguments stand here whose order could tell. Binding only keeps a pointer: none can see in which order."""
    before = source.tokens[place - 1]
    if before.text in ("bind", *NO_CALL) or place - 1 in source.off:
        return False
    return before.kind == "word" or before.text == ">"


def _arguments(source, place):
    """The spans between the commas of a bracket."""
    spans, first, here, end = [], place + 1, place + 1, source.partner[place]
    while here < end:
        if source.tokens[here].text in (",", ";"):
            spans.append((first, here - 1))
            first = here + 1
        here = source.skip(here)
    spans.append((first, end - 1))
    return [span for span in spans if span[0] <= span[1]]


def _plain(source, span):
    """The text of a span as it is laid out, without comments."""
    text = source.text[source.tokens[span[0]].start:source.tokens[span[1]].end]
    return one_line(re.sub(r"/\*.*?\*/|//[^\n]*", "", text))


def _may_swap(source, one, other):
    """Whether it is worth a try: what surely does not compile is left out."""
    kinds = {_kind_of_argument(source, span) for span in (one, other)}
    return len(kinds) == 1 and _plain(source, one) != _plain(source, other)


def _kind_of_argument(source, span):
    first = source.tokens[span[0]]
    if source.is_word(span[0], "*") and source.is_word(span[0] + 1, "this"):
        return "owner"
    return {"*": "object", "&": "address", "[": "lambda", "{": "list"}.get(first.text, "value")


def _edits_of_block(source, statements):
    for statement in statements:
        if statement.kind == "simple" and _is_effect(source, statement):
            yield source.tokens[statement.first].start, source.tokens[statement.last].end, ";"
    for one, other in zip(statements, statements[1:]):
        if _is_ordered(source, one, other):
            yield _swap(source, (one.first, one.last), (other.first, other.last))


def _is_effect(source, statement):
    """Whether the statement does something rather than declare or jump."""
    tokens, text = source.tokens, source.between(statement.first, statement.last)
    if statement.first in source.off or tokens[statement.last].text != ";" or statement.first == statement.last:
        return False
    if tokens[statement.first].text in ("break", "continue", "throw"):
        return True
    return tokens[statement.first].text not in JUMPS and _declared(text) is None and "reserve (" not in text


def _declared(text):
    """(name, what follows it) of a declaration."""
    match = DECLARATION.match(text.replace(" :: ", "::").replace(" < ", "<").replace(" >", ">"))
    if match is None or match[0].split()[0] in JUMPS:
        return None
    return match[1], match[2]


def _is_ordered(source, one, other):
    """Whether exchanging the two may be seen: an initialised variable is not, nor are two plain assignments."""
    if "label" in (one.kind, other.kind) or source.tokens[one.first].text in JUMPS or one.first in source.off:
        return False
    texts = [source.between(statement.first, statement.last) for statement in (one, other)]
    if source.tokens[other.first].text in JUMPS or other.first in source.off:
        return False
    declared = [statement.kind == "simple" and _declared(text) for statement, text in zip((one, other), texts)]
    if any(found and found[1] in "=;" for found in declared):
        return False
    if declared[0] and re.search(rf"\b{re.escape(declared[0][0])}\b", texts[1]):
        return False
    return any("(" in text for text in texts) and texts[0] != texts[1]


def _edits_of_class(source, members):
    """Properties are loaded and rendered in the order of their declarations."""
    for one, other in zip(members, members[1:]):
        if all("{ * this" in source.between(member.first, member.last) and member.kind == "simple" for member in (one, other)):
            yield _swap(source, (one.first, one.last), (other.first, other.last))


