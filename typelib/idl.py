"""Reads the description of the public boundary: the subset of IDL that it is written in, and nothing more.

A file that is not of this subset fails with IdlError, whose text begins with file:line and says what was expected.
"""

from tokens import IdlError, Reader  # noqa: F401 (IdlError is for callers)
from checks import check
from model import NOTHING, Coclass, Enumeration, EnumMember, Interface, Library, Member, Parameter, Type

VALUES = {"BSTR": "String", "long": "Long", "VARIANT_BOOL": "Boolean", "DATE": "Date", "CURRENCY": "Currency",
          "VARIANT": "Variant"}
POINTERS = {"IDispatch": "Object", "IUnknown": "Enumerator"}

# Attributes by what they stand on; those that take an argument name how it is read.
LIBRARY = {"uuid": Reader.uuid, "version": lambda reader: reader.take().value, "helpstring": None}
ENUMERATION = {"v1_enum": None, "uuid": Reader.uuid, "helpstring": None}
INTERFACE = {"object": None, "uuid": Reader.uuid, "dual": None, "oleautomation": None, "nonextensible": None,
             "helpstring": None}
COCLASS = {"uuid": Reader.uuid, "noncreatable": None, "threading": lambda reader: reader.name("a threading model"),
           "progid": lambda reader: reader.text("a program id"), "helpstring": None}
MEMBER = {"id": lambda reader: reader.number("a dispatch id"), "propget": None, "propput": None, "hidden": None,
          "helpstring": None}
PARAMETER = {"in": None, "out": None, "retval": None, "optional": None,
             "defaultvalue": lambda reader: default_value(reader)}


def read_file(path):
    with open(path, encoding="utf-8") as file:
        return read(file.read(), path)


def read(text, path):
    """The Library that the text describes."""
    reader = Reader(text, path)
    while reader.try_take("import"):
        reader.text("a file name")
        reader.expect(";")
    library = read_library(reader)
    if reader.next.kind != "end":
        reader.fail("end of file")
    check(reader, library)
    return library


def read_library(reader):
    attributes = read_attributes(reader, LIBRARY, "a library", ("uuid", "version", "helpstring"))
    reader.expect("library")
    library = Library(reader.name("the name of the library"), attributes["uuid"], attributes["version"],
                      attributes["helpstring"])
    reader.expect("{")
    interfaces, declared = {}, {}
    while not reader.try_take("}"):
        read_statement(reader, library, interfaces, declared)
    reader.try_take(";")
    for name, line in declared.items():
        if name not in interfaces:
            reader.refuse(line, f"expected a description of interface {name}, which is only declared")
    return library


def read_statement(reader, library, interfaces, declared):
    if reader.try_take("importlib"):
        reader.expect("(")
        reader.text("a file name")
        reader.expect(")", ";")
    elif reader.next.value == "interface":
        line = reader.take().line
        declared[reader.name("the name of an interface")] = line
        reader.expect(";")
    elif reader.try_take("typedef"):
        library.enumerations.append(read_enumeration(reader))
    elif reader.next.value == "[":
        read_interface_or_coclass(reader, library, interfaces, declared)
    else:
        reader.fail("'typedef', 'interface', '[' or '}'")


def read_interface_or_coclass(reader, library, interfaces, declared):
    start = reader.next.line
    is_interface = reader.words[reader.at + 1].value == "object"
    if is_interface:
        attributes = read_attributes(reader, INTERFACE, "an interface", tuple(INTERFACE))
        interface = read_interface(reader, attributes, library, declared)
        if interface.name in interfaces:
            reader.refuse(interface.line, f"expected one description of {interface.name}, found a second")
        interfaces[interface.name] = interface
    else:
        attributes = read_attributes(reader, COCLASS, "a coclass", ("uuid", "helpstring"))
        library.coclasses.append(read_coclass(reader, attributes, interfaces, start))


def read_attributes(reader, known, what, required):
    """What stands between brackets: name to argument, True for an attribute without one."""
    start = reader.next.line
    found = {}
    reader.expect("[")
    while True:
        if reader.next.value not in known:
            reader.fail(f"an attribute of {what}")
        name = reader.take().value
        if name in found:
            reader.refuse(start, f"expected attribute {name} once, found it twice")
        found[name] = read_argument(reader, name, known[name])
        if not reader.try_take(","):
            break
    reader.expect("]")
    for name in required:
        if name not in found:
            reader.refuse(start, f"expected attribute {name} on {what}")
    return found


def read_argument(reader, name, read_value):
    if name == "helpstring":
        read_value = lambda words: words.text("a help text")  # noqa: E731
    if not read_value:
        return True
    reader.expect("(")
    value = read_value(reader)
    reader.expect(")")
    return value


def default_value(reader):
    return reader.text("a default") if reader.next.kind == "text" else reader.number("a default")


def read_enumeration(reader):
    attributes = read_attributes(reader, ENUMERATION, "an enumeration", ("v1_enum", "uuid"))
    reader.expect("enum")
    line = reader.next.line
    name = reader.name("the name of an enumeration")
    reader.expect("{")
    members = []
    while True:
        member = reader.name("a member of the enumeration")
        reader.expect("=")
        members.append(EnumMember(member, reader.number("a value")))
        if not reader.try_take(","):
            break
    reader.expect("}", name, ";")
    return Enumeration(name, attributes["uuid"], members, attributes.get("helpstring", ""), line)


def read_interface(reader, attributes, library, declared):
    reader.expect("interface")
    line = reader.next.line
    name = reader.name("the name of an interface")
    reader.expect(":", "IDispatch", "{")
    types = {enumeration.name: Type("Enum", enumeration.name) for enumeration in library.enumerations}
    types |= {known: Type("Class", known[1:]) for known in {*declared, name}}
    members = []
    while not reader.try_take("}"):
        members.append(read_member(reader, types))
    return Interface(name, attributes["uuid"], members, attributes["helpstring"], line)


def read_member(reader, types):
    attributes = read_attributes(reader, MEMBER, "a member", ("id", "helpstring"))
    reader.expect("HRESULT")
    line = reader.next.line
    name = reader.name("the name of a member")
    parameters, result = read_parameters(reader, types)
    reader.expect(";")
    kind = "Get" if "propget" in attributes else "Let" if "propput" in attributes else "Method"
    return Member(name, attributes["id"], kind, parameters, result, attributes["helpstring"],
                  "hidden" in attributes, line)


def read_parameters(reader, types):
    """The parameters that a caller passes, and the type of the result."""
    parameters, result = [], NOTHING
    reader.expect("(")
    while not reader.try_take(")"):
        attributes = read_attributes(reader, PARAMETER, "a parameter", ())
        if result != NOTHING:
            reader.refuse(reader.next.line, "expected the result as the last parameter")
        if "retval" in attributes:
            result = read_pointed(reader, types)
            reader.name("the name of the result")
        else:
            parameters.append(read_parameter(reader, types, attributes))
        if not reader.try_take(",") and reader.next.value != ")":
            reader.fail("',' or ')'")
    return parameters, result


def read_parameter(reader, types, attributes):
    if "in" not in attributes:
        reader.refuse(reader.next.line, "expected [in], [in, out] or [out, retval]")
    by_reference = "out" in attributes
    type_ = read_pointed(reader, types) if by_reference else read_type(reader, types)
    name = reader.name("the name of a parameter")
    return Parameter(name, type_, by_reference, "optional" in attributes, attributes.get("defaultvalue"))


def read_pointed(reader, types):
    type_ = read_type(reader, types)
    reader.expect("*")
    return type_


def read_type(reader, types):
    word = reader.next.value
    if word in VALUES:
        reader.take()
        return Type(VALUES[word])
    if word in POINTERS:
        reader.take()
        reader.expect("*")
        return Type(POINTERS[word])
    if reader.try_take("unsigned"):
        reader.expect("char")
        return Type("Byte")
    if reader.try_take("SAFEARRAY"):
        reader.expect("(", "VARIANT", ")")
        return Type("Array")
    if word not in types:
        reader.fail("a published type, declared above")
    reader.take()
    if types[word].kind == "Class":
        reader.expect("*")
    return types[word]


def read_coclass(reader, attributes, interfaces, line):
    if ("noncreatable" in attributes) == ("progid" in attributes):
        reader.refuse(line, "expected either noncreatable or progid on a coclass")
    if "progid" in attributes and "threading" not in attributes:
        reader.refuse(line, "expected attribute threading on a coclass that can be created")
    reader.expect("coclass")
    line = reader.next.line
    name = reader.name("the name of a coclass")
    reader.expect("{", "[", "default", "]", "interface")
    if reader.next.value != "_" + name or "_" + name not in interfaces:
        reader.fail(f"interface _{name}, described above")
    interface = interfaces[reader.take().value]
    reader.expect(";", "}")
    return Coclass(name, attributes["uuid"], interface, "progid" in attributes, attributes.get("progid", ""),
                   attributes.get("threading", ""), attributes["helpstring"], line)
