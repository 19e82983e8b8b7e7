"""The reference manual as one Markdown file, for readers without a browser."""

import re


def escaped(text):
    return re.sub(r"([\\`*_\[\]<>|#])", r"\\\1", str(text))


def code(text):
    return f"`{text}`" if text else ""


def row(*cells):
    return f"| {' | '.join(cells)} |\n"


def table(titles, rows):
    return row(*titles) + row(*["---"] * len(titles)) + "".join(rows) + "\n"


def document(facts):
    classes = "".join(map(class_part, facts.classes))
    enumerations = "".join(map(enum_part, facts.enumerations))
    errors = table(("Number", "Text", "When"), [row(str(number), escaped(text), escaped(meaning))
                                                for number, text, meaning in facts.errors])
    return (f"# {facts.library.name}\n\n{escaped(facts.library.help)}\n\n## Classes\n\n{classes}"
            f"## Enumerations\n\n{enumerations}## Errors\n\n{errors}")


def class_part(item):
    places = [("Section", code(item.section)), ("XML element", code(item.element)),
              ("Job file", code(item.extension)), ("Linked", code(item.linked_extension)),
              ("Created with", code(item.progid))]
    facts_line = ", ".join(f"{name} {value}" for name, value in places if value)
    members = table(("Member", "Type", "Access", "Default", "Section and key", "XML", "Meaning"),
                    map(member_row, item.members))
    return "\n\n".join(filter(None, [f"### {item.name}", escaped(item.help), facts_line, members]))


def member_row(member):
    kept = f"{code(member.section)} {code(member.keys)}".strip()
    meaning = escaped(f"{member.help}. {member.note}".strip(". ") + ".")
    type_ = code(member.type.name or member.type.kind)
    return row(code(member.name), type_, member.access, escaped(member.default), kept, code(member.element), meaning)


def enum_part(item):
    rows = [row(code(name), str(value), escaped(text or "")) for name, value, text in item.values]
    return f"### {item.name}\n\n{escaped(item.help)}\n\n{table(('Name', 'Value', 'Text'), rows)}"
