#!/usr/bin/env python3
"""Makes the native text table and the resource script from the file of numbered texts.

The file is UTF-8, one text a line: its id, a tab, the text. Lines that begin with # and empty lines are skipped.
Ids ascend; each names one text, which is never empty and holds no control characters. Blanks around a text are kept.

    texts.py codes/texts.txt --table texts.inc         rows {7500, u"Automatico"}, to stand in an array initialiser
    texts.py codes/texts.txt --stringtable texts.rc    the same texts as a STRINGTABLE resource
"""

import argparse
import sys
import unicodedata

LAST_ID = 65535  # ids of string resources are 16-bit


class TextsError(Exception):
    """What is wrong with a line of the file of texts."""


def parse(data):
    """The (id, text) pairs of the file's bytes, in the order of the file."""
    rows = []
    for number, line in enumerate(data.removeprefix(b"\xef\xbb\xbf").split(b"\n"), 1):
        try:
            row = parse_line(line.removesuffix(b"\r").decode("utf-8"))
            if row and rows and row[0] <= rows[-1][0]:
                raise TextsError(f"id {row[0]} does not come after id {rows[-1][0]}")
        except UnicodeDecodeError:
            raise TextsError(f"line {number}: not UTF-8") from None
        except TextsError as error:
            raise TextsError(f"line {number}: {error}") from None
        if row:
            rows.append(row)
    return rows


def parse_line(line):
    """The (id, text) of one line, None if it holds none."""
    if not line.strip() or line.startswith("#"):
        return None
    key, tab, text = line.partition("\t")
    if not tab:
        raise TextsError("no tab between id and text")
    if not (key.isascii() and key.isdigit() and 1 <= int(key) <= LAST_ID):
        raise TextsError(f"'{key}' is no id from 1 to {LAST_ID}")
    if not text.strip():
        raise TextsError(f"id {key} has an empty text")
    for character in text:
        if unicodedata.category(character) == "Cc":
            raise TextsError(f"id {key} has the control character U+{ord(character):04X}")
    return int(key), text


def cpp_literal(text):
    """The text as a UTF-16 literal in plain ASCII, whatever character set the compiler takes its sources for."""
    return 'u"' + "".join(map(cpp_character, text)) + '"'


def cpp_character(character):
    if character in '\\"?':  # an escaped ? cannot begin a trigraph
        return "\\" + character
    if character.isascii():
        return character
    code = ord(character)
    return f"\\u{code:04X}" if code < 0x10000 else f"\\U{code:08X}"


def resource_literal(text):
    """The text as a wide string of a resource script in plain ASCII: windres reads wide strings byte by byte."""
    units = text.encode("utf-16-le")
    return 'L"' + "".join(map(resource_unit, units[0::2], units[1::2])) + '"'


def resource_unit(low, high):
    if high or low > 0x7E:
        return f"\\x{high:02x}{low:02x}"
    return {"\\": "\\\\", '"': '""'}.get(chr(low), chr(low))


def table(rows):
    return "".join(f"{{{key}, {cpp_literal(text)}}},\n" for key, text in rows)


def string_table(rows):
    lines = "".join(f"    {key}, {resource_literal(text)}\n" for key, text in rows)
    return f"LANGUAGE 0x10, 0x01\nSTRINGTABLE\nBEGIN\n{lines}END\n"


def main():
    parser = argparse.ArgumentParser(description="Makes table or resource script from the file of numbered texts.")
    parser.add_argument("texts")
    target = parser.add_mutually_exclusive_group(required=True)
    target.add_argument("--table", metavar="OUT")
    target.add_argument("--stringtable", metavar="OUT")
    arguments = parser.parse_args()
    try:
        with open(arguments.texts, "rb") as file:
            rows = parse(file.read())
    except (OSError, TextsError) as error:
        sys.exit(f"{arguments.texts}: {error}")
    with open(arguments.table or arguments.stringtable, "w", encoding="utf-8", newline="\n") as file:
        file.write(table(rows) if arguments.table else string_table(rows))


if __name__ == "__main__":
    main()
