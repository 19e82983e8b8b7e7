"""Where properties are kept, as the headers of the library declare them.

The line that declares a property is the only place that knows its key, its element and its initial value, so this is
where the reference manual gets them from:

    Stored<Text> Stampante{*this, u"Stampante"};                     type, name, key
    inline constexpr CodeRow Lingua{u"Lingua", u"Lingua", {7800}};   section, element, number of the first text
    VqDocCedolino() : Component(u"Cedolino", u"Cedolino") {}         section and element of the class

What such a line cannot say (a list that a method of its own writes) stands in reference_overrides.txt.
"""

import dataclasses
import pathlib
import re

FOLDERS = ["core", "codes", "pages", "queues", "fax", "email"]

LITERAL = r'(?:u"([^"]*)"|\{\})'
CLASS = re.compile(r"^( *)(?:class|struct) (\w+)(?: final)?\s*(?::\s*([^{;]*?))?\s*\{", re.MULTILINE)
ALIAS = re.compile(r"^using (\w+) = ([^;]+);", re.MULTILINE)
ROW = re.compile(rf"CodeRow (\w+)\{{{LITERAL}, {LITERAL}, \{{([^}}]*)\}}(?:, Kept::(\w+))?\}};")
NAMES = re.compile(r"CodeNames (\w+)\{([^}]*)\};")
KIND = re.compile(rf"DocumentKind kKind\{{(\w+), {', '.join([LITERAL] * 5)}\}};")
WRAPPING_KIND = re.compile(rf"Kind kKind\{{{LITERAL}, {LITERAL}, {LITERAL}\}};")
PROPERTY = re.compile(r"^ *([\w:]+(?:<[^;{}]*>)?) (\w+)\{\*this((?:, *[^{}]*)?)\};", re.MULTILINE)
CONTROL_CODE = re.compile(r"^ *ORVANE_CONTROL_CODE\((\w+)\)$", re.MULTILINE)
REMARK = re.compile(r"((?:^ *///.*\n)+)^ *(?!///)(?:template [^\n]*\n *)?(.*)$", re.MULTILINE)
KEPT = {"Nowhere": 0, "WriteOnly": 1, "JobFile": 3, "Xml": 4, "JobFileAndXml": 7}
WRITTEN, READ, RENDERED = 1, 2, 4  # the bits of Kept


class ScanError(Exception):
    """A declaration that is not of the shape that the scan knows."""


@dataclasses.dataclass
class Codes:
    """What one code is called, and where its texts stand."""

    base: int
    initial: int = 0
    magnitude: bool = False
    key: str = "Codice"
    description_key: str = "Descrizione"
    element: str = ""
    description_element: str = ""


@dataclasses.dataclass
class Place:
    """Where one property is kept. `section` is None for the section of its owner."""

    type: str
    key: str
    kept: int
    initial: str = ""
    section: str = None
    element: str = ""
    codes: Codes = None


@dataclasses.dataclass
class Class:
    """A class or alias of the headers: its own declarations, and the names in its list of bases."""

    name: str
    bases: str
    body: str = ""
    places: dict = dataclasses.field(default_factory=dict)
    section: str = ""
    element: str = ""
    remark: str = ""
    remarks: dict = dataclasses.field(default_factory=dict)


class Headers:
    """Every class of the headers under `root`, by name."""

    def __init__(self, root):
        self.classes, self.rows, self.names, self.kinds, self.wrappings = {}, {}, {}, {}, {}
        texts = [path.read_text(encoding="utf-8") for folder in FOLDERS
                 for pattern in ("*.h", "*.cpp") for path in sorted((pathlib.Path(root) / folder).glob(pattern))]
        for text in texts:
            self.scan_tables(text)
        for text in texts:
            self.scan_classes(text)
        for text in texts:
            self.scan_constructors(text)

    # Tables

    def scan_tables(self, text):
        for name, section, element, codes, kept in ROW.findall(text):
            self.rows[name] = (section, element, read_codes(codes), KEPT[kept or "JobFileAndXml"])
        for name, codes in NAMES.findall(text):
            self.names[name] = read_codes(codes)
        for match in KIND.finditer(text):
            kind, section, element, name, extension, linked = match.groups()
            self.kinds[name] = (kind, section, element, extension, linked)
        for element, name, extension in WRAPPING_KIND.findall(text):
            self.wrappings[name] = (element, extension)

    # Classes

    def scan_classes(self, text):
        for match in CLASS.finditer(text):
            name = match.group(2)
            body = body_of(text, match.end())
            if name in self.classes and not match.group(3):
                continue
            self.classes[name] = Class(name, match.group(3) or "", without_nested(body),
                                       remark=remark_before(text, match.start()), remarks=remarks_of(body))
        for name, target in ALIAS.findall(text):
            if name.startswith("VqDoc"):
                self.classes[name] = Class(name, target)

    def scan_constructors(self, text):
        """Section and element that a constructor passes to its base, or the section alone."""
        pattern = rf"\b(\w+)\([^()]*\)\s*: \w+\({LITERAL}(?:, {LITERAL})?\)"
        for name, section, element in re.findall(pattern, text):
            if name in self.classes:
                self.classes[name].section, self.classes[name].element = section, element
        passing = r'\b(\w+)\(Name section\) : Component\(section, u"(\w+)"\)'
        for name, element in re.findall(passing, text):
            self.classes[name].element = element

    # Questions

    def ancestry(self, name):
        """The class and everything that its bases name, nearest first."""
        found, waiting = [], [name]
        while waiting:
            current = waiting.pop(0)
            if current in found or current not in self.classes:
                continue
            found.append(current)
            bases = re.sub(r"\bclass \w+", "", self.classes[current].bases)
            waiting += re.findall(r"\w+", bases)
        return found

    def section_and_element(self, name):
        """Section of the job file and element of the XML of a class; empty where it has none of its own."""
        row = self.row_of(name)
        if row:
            return row[0], row[1]
        if name in self.kinds:
            return self.kinds[name][1], self.kinds[name][2]
        if name in self.wrappings:
            return "", self.wrappings[name][0]
        lines = [self.classes[known] for known in self.ancestry(name)]
        section = next((line.section for line in lines if line.section), "")
        return section, next((line.element for line in lines if line.element), "")

    def row_of(self, name):
        rows = [row for known in self.ancestry(name) for row in re.findall(r"rows::(\w+)", self.classes[known].bases)]
        return self.rows[rows[0]] if rows else None

    def remarks(self, name):
        """The comments of the headers on a class, under "", and on its members, by name."""
        found = {"": self.class_remark(name)}
        for known in self.ancestry(name):
            for member, text in self.classes[known].remarks.items():
                found.setdefault(member, text)
        return found

    def class_remark(self, name):
        """Its own comment, or that of what it is another name for."""
        own = self.classes[name]
        if own.remark or own.body:
            return own.remark
        return next((self.classes[known].remark for known in self.ancestry(name) if self.classes[known].remark), "")

    def extensions(self, name):
        """Extension of a job of its own, and of a linked one; empty for what is no document or is never linked."""
        if name in self.kinds:
            return self.kinds[name][3], self.kinds[name][4]
        return (self.wrappings[name][1], "") if name in self.wrappings else ("", "")

    def places(self, name):
        """Every kept property of a class with its bases' ones: name to Place."""
        found = {}
        for known in self.ancestry(name):
            for place_name, place in self.own_places(name, known).items():
                found.setdefault(place_name, place)
        return found

    def own_places(self, name, known):
        body = self.classes[known].body
        found = {match.group(2): self.place(name, match) for match in PROPERTY.finditer(body)}
        for function in CONTROL_CODE.findall(body):
            found[function] = Place("ControlCode", function, 7, "seven zero bytes", element="StrAsc" + function)
        return {key: place for key, place in found.items() if place}

    def place(self, name, match):
        type_, _, arguments = match.groups()
        keys = re.findall(r'u"([^"]*)"', arguments)
        kept = self.kept(name, arguments)
        if "Code" in type_ or type_.startswith(("LastQueue", "PageWidth", "CodiceProperty")):
            return self.code(name, type_, arguments, kept)
        if type_.startswith(("ComputedElement", "DescrizioneProperty")):
            return None
        key = keys[0] if keys else self.own_key(type_)
        given = arguments.split(",")[3:]  # after nothing, key and Kept
        initial = "1" if type_ == "Copies" else "".join(given).strip()
        return Place(type_, key, kept, initial, element=key)

    def kept(self, name, arguments):
        if "row.kept" in arguments:
            return self.row_of(name)[3]
        if "Traits::kept" in arguments:
            arguments = next(body for body in (self.classes[known].body for known in self.ancestry(name))
                             if "Kept kept = " in body)
        found = re.search(r"Kept::(\w+)", arguments)
        return KEPT[found.group(1) if found else "JobFileAndXml"]

    def own_key(self, type_):
        """The key that a class of one property passes on itself."""
        base = re.match(r"\w+", type_).group()
        for known in self.classes.values():
            found = re.search(rf'\b{base}\([^)]*\) : \w+\((?:owner), u"(\w+)"', known.body)
            if found:
                return found.group(1)
        raise ScanError(f"no key for a property of type {type_}")

    def code(self, name, type_, arguments, kept):
        codes = self.codes_of(name, type_, arguments)
        last = type_.startswith("LastQueue")
        return Place(type_, codes.key, 3 if last else kept, str(codes.initial), "UltimaCoda" if last else None,
                     codes.element or codes.key, codes)

    def codes_of(self, name, type_, arguments):
        if "row.names" in arguments:
            return self.row_of(name)[2]
        named = re.search(r"names::(\w+)", arguments)
        if not named and type_.startswith("PageWidth"):
            named = re.search(r"names::(\w+)", self.classes["PageWidth"].body)
        if named:
            return self.names[named.group(1)]
        if type_.startswith("CodiceProperty"):
            return self.names["kNames"]
        for known in self.ancestry(name):
            named = re.search(r"names::(\w+)", self.classes[known].bases)
            if named:
                return self.names[named.group(1)]
        raise ScanError(f"no texts for {name}.{type_}")


def read_codes(text):
    """A CodeNames row: numbers, truth and names in the order of its members."""
    words = [word.strip() for word in text.replace("\n", " ").split(",") if word.strip()]
    values = [word == "true" if word in ("true", "false") else int(word) if re.fullmatch(r"-?\d+", word)
              else word[2:-1] for word in words]
    return Codes(*values)


def body_of(text, start):
    """What stands between the brace before `start` and its match."""
    depth, at = 1, start
    while depth:
        depth += {"{": 1, "}": -1}.get(text[at], 0)
        at += 1
    return text[start:at - 1]


def without_nested(body):
    """The body without the classes in it, but with the constructors that pass a key on."""
    kept, at = [], 0
    for match in CLASS.finditer(body):
        if match.start() < at:
            continue
        kept.append(body[at:match.start()])
        inner = body_of(body, match.end())
        kept += re.findall(r'\w+\([^)]*\) : \w+\(owner, u"\w+"\)', inner)
        at = match.end() + len(inner) + 1
    return "".join(kept) + body[at:]


def plain(lines):
    return " ".join(line.strip().removeprefix("///").strip() for line in lines.splitlines()).strip()


def remark_before(text, at):
    """The /// comment that ends right before `at`."""
    found = re.search(r"((?:^ *///.*\n)+)(?:template [^\n]*\n)?\Z", text[:at], re.MULTILINE)
    return plain(found.group(1)) if found else ""


def remarks_of(body):
    """The /// comments of the members of a class: name to text, of the property or the method that follows."""
    found = {}
    for comment, line in REMARK.findall(body):
        name = re.search(r"(\w+)(?:\{\*this|\(|;| = )", line)
        if name:
            found.setdefault(name.group(1), plain(comment))
    for line in body.splitlines():
        trailing = re.search(r"(\w+)(?:\{[^}]*\}| = [^;]+)?;\s*///< (.*)", line)
        if trailing:
            found.setdefault(trailing.group(1), trailing.group(2))
    return found
