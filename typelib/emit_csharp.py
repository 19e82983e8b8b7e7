"""OrvaneDocumenti.cs: the types that an import of the type library gives a C# program, to compile against.

An imported library has indexed properties, which C# cannot declare: theirs stand here as get_ and set_ methods.
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
    members = coclass.members
    bases = " : IEnumerable" if any(member.result.kind == "Enumerator" for member in members) else ""
    return (f"\n  [ComImport, Guid(\"{coclass.interface.uuid}\"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]\n"
            f"  public interface _{coclass.name}{bases} {{\n{''.join(map(declaration, described(members)))}  }}\n")


def described(members):
    """Each property once, by its accessors; each method and each accessor of an indexed property by itself."""
    properties = {}
    for member in members:
        if is_plain(member):
            properties.setdefault(member.name, []).append(member)
        elif member.result.kind != "Enumerator":
            yield [member]
    yield from properties.values()


def is_plain(member):
    plain = {"Get": 0, "Let": 1, "Method": -1}[member.kind]
    return len(member.parameters) == plain and member.result.kind != "Enumerator"


def declaration(accessors):
    member = accessors[0]
    id_ = f"    [DispId({member.id})] "
    if not is_plain(member):
        given = ", ".join(map(parameter, member.parameters))
        return f"{id_}{type_of(member.result)} {PREFIXES[member.kind]}{member.name}({given});\n"
    kinds = {accessor.kind: accessor for accessor in accessors}
    type_ = type_of(kinds["Get"].result if "Get" in kinds else kinds["Let"].parameters[0].type)
    body = " ".join(word for kind, word in (("Get", "get;"), ("Let", "set;")) if kind in kinds)
    return f"{id_}{type_} {member.name} {{ {body} }}\n"


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
