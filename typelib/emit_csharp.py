"""OrvaneDocumenti.cs: the types that an import of the type library gives a C# program, to compile against.

An imported library has properties with an index, or with a new value by reference, which C# cannot declare: theirs
stand here as get_ and set_ methods.
"""

from cpp import HEAD

TOP = HEAD + """
using System;
using System.Collections;
using System.Runtime.InteropServices;

namespace {name} {{
"""

TYPES = {"String": "string", "Long": "int", "Boolean": "bool", "Date": "DateTime", "Byte": "byte",
         "Currency": "decimal", "Variant": "object", "Array": "Array", "Object": "object", "None": "void"}
PREFIXES = {"Get": "get_", "Let": "set_", "Method": ""}


def source(library):
    parts = [TOP.format(name=library.name)]
    parts += map(enumeration, library.enumerations)
    for coclass in library.coclasses:
        parts += [interface(coclass), names(coclass)]
    return "".join(parts) + "}\n"


def enumeration(described):
    members = "".join(f"    {member.name} = {member.value},\n" for member in described.members)
    return f"\n  public enum {described.name} {{\n{members}  }}\n"


def interface(coclass):
    members = [member for member in coclass.members if member.result.kind != "Enumerator"]
    bases = " : IEnumerable" if len(members) < len(coclass.members) else ""
    return (f"\n  [ComImport, Guid(\"{coclass.interface.uuid}\"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]\n"
            f"  public interface _{coclass.name}{bases} {{\n{''.join(declarations(members))}  }}\n")


def declarations(members):
    """Each method by itself, and each property once, by its accessors or as the methods that they are."""
    apart = {member.name for member in members if not is_plain(member)}
    properties = {}
    for member in members:
        if member.name in apart:
            yield method(member)
        else:
            properties.setdefault(member.name, []).append(member)
    yield from map(property_of, properties.values())


def is_plain(member):
    """Whether C# can declare it as an accessor of a property."""
    plain = {"Get": 0, "Let": 1, "Method": -1}[member.kind]
    return len(member.parameters) == plain and not any(given.by_reference for given in member.parameters)


def method(member):
    given = ", ".join(map(parameter, member.parameters))
    return f"{identified(member)}{type_of(member.result)} {PREFIXES[member.kind]}{member.name}({given});\n"


def property_of(accessors):
    kinds = {accessor.kind: accessor for accessor in accessors}
    type_ = type_of(kinds["Get"].result if "Get" in kinds else kinds["Let"].parameters[0].type)
    body = " ".join(word for kind, word in (("Get", "get;"), ("Let", "set;")) if kind in kinds)
    return f"{identified(accessors[0])}{type_} {accessors[0].name} {{ {body} }}\n"


def identified(member):
    return f"    [DispId({member.id})] "


def parameter(given):
    value = ""
    if given.optional:
        value = f" = {literal(given)}"
    return f"{'ref ' if given.by_reference else ''}{type_of(given.type)} @{given.name}{value}"


def literal(given):
    if given.type.kind == "Boolean":
        return "true" if given.default else "false"
    return f'"{given.default}"' if isinstance(given.default, str) else given.default


def type_of(type_):
    return type_.name or TYPES[type_.kind]


def names(coclass):
    """The class as programs name it: made by new, or by the factory only."""
    clsid = f"Guid(\"{coclass.interface.uuid}\"), CoClass(typeof({coclass.name}Class))"
    made = f"[ComImport, {clsid}] " if coclass.creatable else ""
    text = f"  {made}public interface {coclass.name} : _{coclass.name} {{ }}\n"
    if coclass.creatable:
        text += f"  [ComImport, Guid(\"{coclass.uuid}\")] public class {coclass.name}Class {{ }}\n"
    return text
