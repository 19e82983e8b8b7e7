"""The pages of the reference manual. Whatever is not made by `tag` is escaped, so no text can become markup."""

import html
import json

VOID = {"meta", "link", "input"}
TYPES = {"None": "", "Array": "array of Variant", "Object": "Object", "Enumerator": "enumerator"}
STORE_ERRORS = ("Whatever writes can also raise the errors of the job-file store: 52, 57, 61, 70, 75, 76, and 91 "
                "without a factory.")


class Html(str):
    """Text that is markup already."""


def tag(name, /, *children, **attributes):
    words = "".join(f' {key.rstrip("_").replace("_", "-")}="{html.escape(str(value))}"'
                    for key, value in attributes.items())
    if name in VOID:
        return Html(f"<{name}{words}/>")
    return Html(f"<{name}{words}>{inside(children)}</{name}>")


def inside(children):
    return "".join(child if isinstance(child, Html) else html.escape(str(child)) for child in children)


def join(separator, items):
    return Html(html.escape(separator).join(inside([item]) for item in items))


def page(title, *content):
    head = tag("head", tag("meta", charset="utf-8"),
               tag("meta", name="viewport", content="width=device-width, initial-scale=1"),
               tag("title", title), tag("link", rel="stylesheet", href="style.css"),
               tag("script", src="entries.js", defer="defer"), tag("script", src="search.js", defer="defer"))
    search = tag("div", tag("label", "Search", for_="search"),
                 tag("input", id="search", type="search", autocomplete="off", placeholder="member, value, key"),
                 tag("ul", id="found"), class_="search")
    body = tag("body", tag("header", tag("a", "OrvaneDocumenti reference", href="index.html"), search),
               tag("main", *content))
    return f"<!DOCTYPE html>\n{tag('html', head, body, lang='en')}\n"


def italian(text):
    return tag("p", text, lang="it", class_="meaning")


def facts_list(rows):
    """A definition list of the rows that say something."""
    filled = [(name, value) for name, value in rows if value]
    parts = [part for name, value in filled for part in (tag("dt", name), tag("dd", value))]
    return tag("dl", *parts) if parts else Html()


def code(text):
    return tag("code", text) if text else ""


def type_link(type_):
    if type_.kind in ("Enum", "Class"):
        return tag("a", tag("code", type_.name), href=f"{type_.name}.html")
    return code(TYPES.get(type_.kind, type_.kind))


def member_link(text):
    """A link to "Class.Member"."""
    class_, member = text.split(".")
    return tag("a", tag("code", text), href=f"{class_}.html#{member}")


def parameter(parameter_):
    how = "by reference " if parameter_.by_reference else ""
    default = "" if parameter_.default is None else f" = {default_value(parameter_)}"
    optional = "optional " if parameter_.optional else ""
    return join("", [optional, how, tag("code", parameter_.name), " as ", type_link(parameter_.type), default])


def default_value(parameter_):
    if parameter_.type.kind == "Boolean":
        return "True" if parameter_.default else "False"
    return parameter_.default


def error_links(numbers):
    return join(", ", [tag("a", str(number), href=f"errors.html#e{number}") for number in numbers])


def class_page(facts):
    about = [("Created with", code(facts.progid) if facts.creatable else ""),
             ("Obtained from", join(", ", map(member_link, facts.owners))),
             ("Job file", join(", ", filter(None, [code(facts.extension), linked(facts)]))),
             ("Section", code(facts.section)), ("XML element", code(facts.element)), ("Note", facts.note)]
    contents = join(" ", [tag("a", member.name, href=f"#{member.name}") for member in facts.members])
    return page(facts.name, tag("h1", facts.name), italian(facts.help), facts_list(about), remark(facts.remark),
                tag("p", contents, class_="contents"), *map(member_section, facts.members),
                tag("p", STORE_ERRORS, class_="note") if any(member.keys for member in facts.members) else "")


def linked(facts):
    return join("", [code(facts.linked_extension), " where linked"]) if facts.linked_extension else ""


def remark(text):
    """A paragraph, in which what stands between backquotes is code."""
    parts = [tag("code", part) if i % 2 else part for i, part in enumerate(text.split("`"))] if text else []
    return tag("p", *parts, class_="remark") if parts else Html()


def member_section(member):
    rows = [("Type", type_link(member.type)), ("Access", member.access + (", hidden" if member.hidden else "")),
            ("Arguments", join("; ", map(parameter, member.parameters))), ("Default", member.default),
            ("Section", code(member.section)), ("Key", code(member.keys)), ("XML element", code(member.element)),
            ("Note", member.note), ("Errors", error_links(member.errors))]
    return tag("section", tag("h2", member.name), italian(member.help), facts_list(rows), remark(member.remark),
               id=member.name)


def table(titles, rows):
    head = tag("thead", tag("tr", *[tag("th", title, scope="col") for title in titles]))
    return tag("div", tag("table", head, tag("tbody", *rows)), class_="wide")


def enum_page(facts):
    rows = [tag("tr", tag("td", tag("code", name)), tag("td", str(value), class_="number"),
                tag("td", value_text(text), lang="it"), id=name) for name, value, text in facts.values]
    used = facts_list([("Used by", join(", ", map(member_link, facts.users)))])
    return page(facts.name, tag("h1", facts.name), italian(facts.help), used, table(("Name", "Value", "Text"), rows))


def value_text(text):
    if text is None:
        return ""
    return text or tag("span", "(no text of its own)", lang="en", class_="note")


def errors_page(errors):
    rows = [tag("tr", tag("td", str(number), class_="number"), tag("td", text), tag("td", meaning), id=f"e{number}")
            for number, text, meaning in errors]
    return page("Errors", tag("h1", "Errors"),
                tag("p", "The source of every error is OrvaneDocumenti, its text the standard text of the number. "
                    "Clients of the automation server see 0x800A0000 plus the number."),
                table(("Number", "Text", "When"), rows))


def index_page(facts):
    rows = [tag("tr", tag("td", tag("a", tag("code", item.name), href=f"{item.name}.html")),
                tag("td", item.help, lang="it")) for item in facts.classes]
    values = [tag("tr", tag("td", tag("a", tag("code", item.name), href=f"{item.name}.html")),
                  tag("td", item.help, lang="it"), tag("td", str(len(item.values)), class_="number"))
              for item in facts.enumerations]
    return page("OrvaneDocumenti reference", tag("h1", facts.library.name), italian(facts.library.help),
                tag("p", "What each class, member and value means, and where it stands in the job file and in the "
                    "XML. See also ", tag("a", "the errors", href="errors.html"), "."),
                tag("h2", "Classes"), table(("Class", "Meaning"), rows),
                tag("h2", "Enumerations"), table(("Enumeration", "Meaning", "Values"), values))


def entries(facts):
    """What the search finds: name, where it stands, meaning and further words that lead to it."""
    found = []
    for class_ in facts.classes:
        found.append([class_.name, f"{class_.name}.html", class_.help, class_.section])
        found += [[f"{class_.name}.{member.name}", f"{class_.name}.html#{member.name}", member.help, member.keys]
                  for member in class_.members]
    for enumeration in facts.enumerations:
        found.append([enumeration.name, f"{enumeration.name}.html", enumeration.help, ""])
        found += [[name, f"{enumeration.name}.html#{name}", text or "", str(value)]
                  for name, value, text in enumeration.values]
    found += [[f"error {number}", f"errors.html#e{number}", text, meaning] for number, text, meaning in facts.errors]
    return f"const entries = {json.dumps(found, ensure_ascii=True, separators=(',', ':'))};\n"
