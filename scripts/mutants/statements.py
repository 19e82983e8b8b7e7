"""The statements of a block and the members of a class, as spans of tokens."""

from dataclasses import dataclass

HEADED = ("if", "for", "while", "switch", "catch")


@dataclass(frozen=True)
class Statement:
    kind: str  # simple, compound or label
    first: int
    last: int


def statements_of(source, brace):
    """The statements directly in the block that begins at the place `brace`."""
    place, end, found = brace + 1, source.partner[brace], []
    while place < end:
        statement = _statement(source, place, end)
        found.append(statement)
        place = statement.last + 1
    return found


def _statement(source, place, end):
    word = source.tokens[place].text
    if word in ("case", "default"):
        return Statement("label", place, _colon(source, place, end))
    if word == "{":
        return Statement("compound", place, source.partner[place])
    if word in HEADED + ("else", "do", "try"):
        return Statement("compound", place, _end_of_compound(source, place, end))
    return Statement("simple", place, min(source.end_of_statement(place), end - 1))


def _colon(source, place, end):
    while place < end - 1 and source.tokens[place].text != ":":
        place = source.skip(place)
    return place


def _end_of_compound(source, place, end):
    body = body_of(source, place)
    last = _statement(source, body, end).last
    while source.is_word(last + 1, "else", "catch") and last + 1 < end:
        last = _statement(source, body_of(source, last + 1), end).last
    return last


def body_of(source, place):
    """Where the statement begins that `if (...)` and their like govern."""
    place += 1
    if source.is_word(place, "constexpr"):
        place += 1
    return source.skip(place) if source.is_word(place, "(") else place


def members_of(source, brace):
    """The declarations of data directly in a class."""
    place, end, found = brace + 1, source.partner[brace], []
    while place < end:
        last = place
        while last < end and source.tokens[last].text != ";" and source.bodies.get(last) not in ("block", "class"):
            last = source.skip(last)
        if source.is_word(last, ";"):
            found.append(Statement("simple", place, last))
        else:
            last = source.partner.get(last, last)
            found.append(Statement("compound", place, last))
        place = last + 1
    return found
