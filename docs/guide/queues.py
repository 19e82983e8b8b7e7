#!/usr/bin/env python3
"""Draws the queue of every channel: queues.py ROOT OUTDIR, one SVG a channel.

States, texts and stamped dates come from the interface description, the texts and the queue headers. On the left the
working states in their usual order, on the right those that end processing and those that take the job out.
"""

import html
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "typelib"))

import idl  # noqa: E402
import texts  # noqa: E402
from headers import Headers, body_of  # noqa: E402

CHANNELS = {"stampa": "VqDocCodaStampa", "pfax": "VqDocCodaPFax", "fax": "VqDocCodaFax", "email": "VqDocCodaEmail",
            "pubblicazione": "VqDocCodaPbl", "anteprima": "VqDocCodaAnteprima"}
WIDTH, HEIGHT, STEP, LEFT, RIGHT = 300, 62, 88, 20, 400
STYLE = """
text { font: 13px system-ui, sans-serif; fill: #1c1f23; } .quiet { fill: #5a6270; font-size: 12px; }
.name { font-weight: 600; } .title { font-size: 14px; font-weight: 600; } rect { stroke-width: 1.5; }
.working { fill: #eaf2fb; stroke: #0b5cad; } .ending { fill: #e9f6ec; stroke: #2c7a3f; }
.removed { fill: #f3f0ee; stroke: #7a6f66; } path { fill: none; stroke: #5a6270; stroke-width: 1.5; }
.back { fill: #ffffff; stroke: none; } marker path { fill: #5a6270; stroke: none; } .any { stroke-dasharray: 5 4; }
@media (prefers-color-scheme: dark) {
  text { fill: #e4e7eb; } .quiet { fill: #9aa4b2; } .back { fill: #15181c; } path { stroke: #9aa4b2; }
  .working { fill: #16293c; stroke: #78b4f0; } .ending { fill: #17301d; stroke: #7cc48d; }
  .removed { fill: #2a2724; stroke: #a99c90; } marker path { fill: #9aa4b2; }
}"""


def states(class_, library, source, descriptions):
    """(value, name, text, stamped date or "") of every state, in the order of the enumeration."""
    codes = source.places(class_)["Codice"].codes
    member = next(member for coclass in library.coclasses if coclass.name == class_ for member in coclass.members
                  if member.name == "Codice" and member.kind == "Get")
    enumeration = next(item for item in library.enumerations if item.name == member.result.name)
    dates = dict(enumerate(stamps(class_)))
    return [(item.value, item.name, descriptions[codes.base + item.value], dates.get(item.value, ""))
            for item in enumeration.members]


def stamps(class_):
    """The date that each state stamps, from state 0 on; "" for none."""
    text = (ROOT / "queues/VqDocCoda.h").read_text(encoding="utf-8")
    for name in (class_, "PrintQueue"):
        body = body_of(text, re.search(rf"class {name}\b[^{{]*\{{", text).end())
        found = re.search(r"return std::array\{([^}]*)\}", body)
        if found:
            return ["" if word.strip() == "none" else word.split("::")[1].strip() for word in found.group(1).split(",")]
    raise LookupError(f"no stamps of {class_}")


def group(state, dates):
    """working: a date of its own; ending: a date shared with another state; removed: none."""
    if not state[3]:
        return "removed"
    return "ending" if dates.count(state[3]) > 1 else "working"


def box(state, kind, x, y):
    value, name, text, date = state
    lines = [f"{value}  {name}", text, f"stamps {date}" if date else "stamps nothing"]
    classes = ["name", "", "quiet"]
    drawn = "".join(f'<text x="{x + 12}" y="{y + 19 + 17 * i}" class="{class_}">{html.escape(line)}</text>'
                    for i, (line, class_) in enumerate(zip(lines, classes)))
    return f'<rect x="{x}" y="{y}" width="{WIDTH}" height="{HEIGHT}" rx="8" class="{kind}"/>{drawn}\n'


def arrow(path, class_=""):
    return f'<path d="{path}" class="{class_}" marker-end="url(#head)"/>\n'


def drawing(class_, rows):
    dates = [row[3] for row in rows]
    working, ending, removed = ([row for row in rows if group(row, dates) == kind]
                                for kind in ("working", "ending", "removed"))
    usual = [row for i, row in enumerate(working) if row[0] == i]
    height = 60 + STEP * max(len(working), len(ending) + len(removed) + 1)
    parts = [box(row, "working", LEFT, 40 + STEP * i) for i, row in enumerate(working)]
    parts += [box(row, "ending", RIGHT, 40 + STEP * i) for i, row in enumerate(ending)]
    first_removed = 40 + STEP * (len(ending) + 1) - 20
    parts += [box(row, "removed", RIGHT, first_removed + STEP * i) for i, row in enumerate(removed)]
    middle = LEFT + WIDTH // 2
    parts += [arrow(f"M{middle} {40 + STEP * i + HEIGHT} V{40 + STEP * (i + 1) - 2}") for i in range(len(usual) - 1)]
    last = 40 + STEP * (len(usual) - 1) + HEIGHT // 2
    side = LEFT + WIDTH
    parts += [arrow(f"M{side} {last} C{side + 60} {last} {RIGHT - 60} {y} {RIGHT - 2} {y}")
              for y in (40 + STEP * i + HEIGHT // 2 for i in range(len(ending)))]
    parts.append(f'<text x="{RIGHT}" y="{first_removed - 14}" class="quiet">out of the queue, from any state</text>')
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {RIGHT + WIDTH + 20} {height}" role="img">\n'
            f"<title>{class_}</title>\n<style>{STYLE}\n</style>\n"
            '<defs><marker id="head" viewBox="0 0 8 8" refX="7" refY="4" markerWidth="8" markerHeight="8" '
            'orient="auto"><path d="M0 0 L8 4 L0 8 Z"/></marker></defs>\n'
            f'<rect class="back" width="{RIGHT + WIDTH + 20}" height="{height}"/>\n'
            f'<text x="{LEFT}" y="24" class="title">{class_}</text>\n{"".join(parts)}</svg>\n')


def drawings(root):
    """Every drawing: file name to text."""
    root = pathlib.Path(root)
    library = idl.read_file(root / "typelib/OrvaneDocumenti.idl")
    source = Headers(root)
    descriptions = dict(texts.parse((root / "codes/texts.txt").read_bytes()))
    return {f"{name}.svg": drawing(class_, states(class_, library, source, descriptions))
            for name, class_ in CHANNELS.items()}


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: queues.py ROOT OUTDIR")
    for name, text in drawings(sys.argv[1]).items():
        (pathlib.Path(sys.argv[2]) / name).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
