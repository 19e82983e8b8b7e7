"""What the reference manual says, page by page: the interface description joined with where the headers keep it.

No HTML here: `facts(root)` gives classes, enumerations and errors as plain data.
"""

import dataclasses
import pathlib
import re

import headers
import idl
import texts
from headers import READ, RENDERED, WRITTEN

DEFAULTS = {"String": "empty", "Long": "0", "Boolean": "False", "Date": "0 (not set)", "Currency": "0", "Byte": "0",
            "Array": "empty"}


@dataclasses.dataclass
class MemberFacts:
    name: str
    access: str  # read, write, read and write, or method
    parameters: list
    type: object
    help: str
    hidden: bool
    remark: str = ""
    section: str = ""
    keys: str = ""
    element: str = ""
    default: str = ""
    note: str = ""
    errors: list = dataclasses.field(default_factory=list)


@dataclasses.dataclass
class ClassFacts:
    name: str
    help: str
    creatable: bool
    progid: str
    section: str
    element: str
    extension: str
    linked_extension: str
    remark: str
    note: str
    members: list
    owners: list = dataclasses.field(default_factory=list)  # "Class.Member" texts that give such an object


@dataclasses.dataclass
class EnumFacts:
    name: str
    help: str
    values: list  # (name, value, text)
    users: list = dataclasses.field(default_factory=list)


@dataclasses.dataclass
class Facts:
    library: object
    classes: list
    enumerations: list
    errors: list  # (number, text, meaning)


def facts(root):
    root = pathlib.Path(root)
    library = idl.read_file(root / "typelib/OrvaneDocumenti.idl")
    source = headers.Headers(root)
    overrides = read_overrides((root / "typelib/reference_overrides.txt").read_text(encoding="utf-8"))
    errors = read_errors(root)
    classes = [class_facts(coclass, source, overrides, {number for number, _, _ in errors})
               for coclass in library.coclasses]
    unused = set(overrides) - {key for facts_ in classes for key in keys_of(facts_)}
    if unused:
        raise headers.ScanError(f"overrides of nothing: {', '.join(sorted(unused))}")
    add_owners(classes)
    descriptions = dict(texts.parse((root / "codes/texts.txt").read_bytes()))
    enumerations = [enum_facts(enumeration, library, source, descriptions) for enumeration in library.enumerations]
    return Facts(library, classes, enumerations, errors)


def keys_of(facts_):
    return [facts_.name] + [f"{facts_.name}.{member.name}" for member in facts_.members]


def read_overrides(text):
    """Class or Class.Member to (section, key, element, note); None for an empty field, "" for "-"."""
    found = {}
    for line in text.splitlines():
        if line.strip() and not line.startswith("#"):
            fields = [field.strip() for field in line.split("|")]
            if len(fields) != 5 or fields[0] in found:
                raise headers.ScanError(f"no override, or a second one: {line}")
            found[fields[0]] = [None if not field else "" if field == "-" else field for field in fields[1:]]
    return found


def read_errors(root):
    """Number, standard text and meaning of every error that the library raises."""
    numbers = re.findall(r"^  (\w+) = (\d+), +///< (.*)$", (root / "core/Error.h").read_text(encoding="utf-8"), re.M)
    source = (root / "core/Error.cpp").read_text(encoding="utf-8")
    standard = dict(re.findall(r'\{ErrorNumber::(\w+), "([^"]+)"\}', source))
    return [(int(number), standard[name], meaning) for name, number, meaning in numbers]


def class_facts(coclass, source, overrides, errors):
    section, element = source.section_and_element(coclass.name)
    override = overrides.get(coclass.name, [None] * 4)
    remarks, places = source.remarks(coclass.name), source.places(coclass.name)
    members = join_members(coclass)
    for member in members:
        member.remark = remarks.get(member.name, "")
        member.errors = error_numbers(member.help, errors)
        keep(member, places.get(member.name), section, overrides.get(f"{coclass.name}.{member.name}"))
    return ClassFacts(coclass.name, coclass.help, coclass.creatable, coclass.progid,
                      chosen(override[0], section), chosen(override[2], element), *source.extensions(coclass.name),
                      remarks.get("", ""), override[3] or "", members)


def chosen(override, scanned):
    return scanned if override is None else override


def join_members(coclass):
    """One entry a name: a property's Get and Let are one member."""
    found = {}
    for member in coclass.members:
        type_ = member.parameters[-1].type if member.kind == "Let" else member.result
        parameters = member.parameters[:-1] if member.kind == "Let" else member.parameters
        access = {"Get": "read", "Let": "write", "Method": "method"}[member.kind]
        if member.name in found:
            found[member.name].access = "read and write"
        else:
            found[member.name] = MemberFacts(member.name, access, parameters, type_, member.help, member.hidden)
    return list(found.values())


def error_numbers(help_, known):
    """The numbers that a help text names behind "errore": "errore 445 se ..., 76 se ...", "errore 5 o 9 se ..."."""
    found = []
    for sentence in re.findall(r"error[ei] \d[^;]*", help_):
        for numbers in re.findall(r"(?:error[ei] |, )(\d+)(?: o (\d+) se)?", sentence):
            found += [int(number) for number in numbers if number]
    return [number for number in dict.fromkeys(found) if number in known]


def keep(member, place, section, override):
    """Where a member is kept, by its declaration and what overrides it."""
    if place:
        member.section = (place.section or section) if place.kept & WRITTEN else ""
        member.keys = keys_text(place) if place.kept & WRITTEN else ""
        member.element = elements_text(place) if place.kept & RENDERED else ""
        member.default = default_text(place, member.type)
        member.note = "" if place.kept & READ or not place.kept & WRITTEN else "Written, never read back."
        if not place.kept & WRITTEN:
            member.note = "Not in the job file."
    elif member.access == "read and write":
        member.default = DEFAULTS.get(member.type.kind, "")
    if override:
        names = ("section", "keys", "element", "note")
        for name, value in zip(names, override):
            setattr(member, name, chosen(value, getattr(member, name)))


def keys_text(place):
    if place.codes:
        return f"{place.key}, {place.codes.description_key}"
    return "Nota_0, Nota_1, ..." if place.key == "Nota_" else place.key


def elements_text(place):
    if place.codes:
        return f"{place.element}, {place.codes.description_element or place.codes.description_key}"
    return "Nota_0, Nota_1, ..." if place.key == "Nota_" else place.element


def default_text(place, type_):
    if place.initial:
        return {"true": "True"}.get(place.initial, place.initial)
    return DEFAULTS.get(type_.kind, "")


def add_owners(classes):
    by_name = {facts_.name: facts_ for facts_ in classes}
    for facts_ in classes:
        for member in facts_.members:
            if member.type.kind == "Class":
                by_name[member.type.name].owners.append(f"{facts_.name}.{member.name}")


def enum_facts(enumeration, library, source, descriptions):
    users = [(coclass.name, member.name) for coclass in library.coclasses for member in join_members(coclass)
             if uses(member, enumeration.name)]
    codes = [source.places(name)[member].codes for name, member in users if member in source.places(name)]
    codes = [row for row in codes if row]
    values = [(member.name, member.value, text_of(member.value, codes, descriptions))
              for member in enumeration.members]
    return EnumFacts(enumeration.name, enumeration.help, values, [".".join(user) for user in users])


def uses(member, enumeration):
    return enumeration in [member.type.name] + [parameter.type.name for parameter in member.parameters]


def text_of(value, codes, descriptions):
    """The description of a value: "" where it has none, None where the enumeration has no descriptions at all."""
    if not codes:
        return None
    return descriptions.get(codes[0].base + (abs(value) if codes[0].magnitude else value), "")
