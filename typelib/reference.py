#!/usr/bin/env python3
"""Makes the reference manual: reference.py ROOT OUTDIR

Static pages that need no server and no network: one for each class and enumeration, the errors, and an index with a
search; and the same in one Markdown file. Everything on them comes from the interface description, the headers and
the numbered texts under ROOT.
"""

import pathlib
import sys

import idl
import reference_html
import reference_markdown
from generate import write_if_changed
from headers import ScanError
from reference_facts import facts
from texts import TextsError

HERE = pathlib.Path(__file__).resolve().parent


def outputs(root):
    """Every file of the manual: name to text."""
    known = facts(root)
    found = {f"{item.name}.html": reference_html.class_page(item) for item in known.classes}
    found |= {f"{item.name}.html": reference_html.enum_page(item) for item in known.enumerations}
    return found | {
        "index.html": reference_html.index_page(known),
        "errors.html": reference_html.errors_page(known.errors),
        "entries.js": reference_html.entries(known),
        "search.js": (HERE / "reference_search.js").read_text(encoding="utf-8"),
        "style.css": (HERE / "reference.css").read_text(encoding="utf-8"),
        "reference.md": reference_markdown.document(known),
    }


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: reference.py ROOT OUTDIR")
    try:
        found = outputs(sys.argv[1])
    except (OSError, UnicodeDecodeError, idl.IdlError, ScanError, TextsError) as error:
        sys.exit(str(error))
    for name, text in found.items():
        write_if_changed(pathlib.Path(sys.argv[2]) / name, text)


if __name__ == "__main__":
    main()
