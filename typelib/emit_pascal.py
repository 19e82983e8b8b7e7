"""OrvaneDocumenti_TLB.pas: what Delphi's import of the type library gives a program to compile against."""

HEAD = """// Generated from the description of the public boundary; do not edit.
unit {name}_TLB;

{{$IFDEF FPC}}{{$MODE DELPHIUNICODE}}{{$ENDIF}}
{{$WARN SYMBOL_PLATFORM OFF}}
{{$MINENUMSIZE 4}}

interface

uses
  ActiveX, ComObj;

"""

TYPES = {"String": "WideString", "Long": "Integer", "Boolean": "WordBool", "Date": "TDateTime", "Byte": "Byte",
         "Currency": "Currency", "Variant": "OleVariant", "Array": "PSafeArray", "Object": "IDispatch",
         "Enumerator": "IUnknown"}
PREFIXES = {"Get": "Get_", "Let": "Set_", "Method": ""}
RESERVED = {"array", "end", "file", "object", "property", "set", "string", "to", "type", "unit"}


def unit(library):
    parts = [HEAD.format(name=library.name)]
    parts += map(enumeration, library.enumerations)
    creatable = [coclass for coclass in library.coclasses if coclass.creatable]
    parts += (f"const\n  CLASS_{coclass.name}: TGUID = '{{{coclass.uuid}}}';\n" for coclass in creatable)
    parts.append("\ntype\n")
    parts += (f"  _{coclass.name} = interface;\n  {coclass.name} = _{coclass.name};\n"
              for coclass in library.coclasses)
    parts += map(interface, library.coclasses)
    parts += map(maker, creatable)
    parts.append("\nimplementation\n")
    parts += map(make, creatable)
    return "".join(parts) + "\nend.\n"


def enumeration(described):
    """A type of numbers and named constants: an enumeration of Pascal would take no number without a name."""
    members = "".join(f"  {member.name} = {member.value};\n" for member in described.members)
    return f"type\n  {described.name} = type Integer;\nconst\n{members}\n"


def interface(coclass):
    slots = "".join(f"    {slot(member)} safecall;\n" for member in coclass.members)
    properties = "".join(map(property_of, property_groups(coclass.members)))
    return f"\n  _{coclass.name} = interface(IDispatch)\n    ['{{{coclass.interface.uuid}}}']\n{slots}{properties}  end;\n"


def slot(member):
    name = free(PREFIXES[member.kind] + member.name)
    given = "; ".join(map(parameter, member.parameters))
    head = name + (f"({given})" if given else "")
    if member.result.kind == "None":
        return f"procedure {head};"
    return f"function {head}: {type_of(member.result)};"


def property_groups(members):
    """The accessors of each property, in the order in which the properties first appear."""
    groups = {}
    for member in members:
        if member.kind != "Method":
            groups.setdefault(member.name, {})[member.kind] = member
    return groups.values()


def property_of(accessors):
    """What is assigned by reference has its procedure alone: `write` takes no procedure with a variable."""
    get, let = accessors.get("Get"), accessors.get("Let")
    some = get or let
    indices = some.parameters if get else some.parameters[:-1]
    index = "; ".join(map(parameter, indices))
    type_ = type_of(get.result if get else let.parameters[-1].type)
    read = f" read Get_{some.name}" if get else ""
    write = f" write Set_{some.name}" if let and not let.parameters[-1].by_reference else ""
    return f"    property {free(some.name)}{f'[{index}]' if index else ''}: {type_}{read}{write};\n"


def parameter(described):
    constant = {"String", "Class", "Object"}
    how = "var " if described.by_reference else "const " if described.type.kind in constant else ""
    return f"{how}{free(described.name)}: {type_of(described.type)}"


def free(name):
    """Delphi's import ends what would be a word of the language with an underscore."""
    return name + "_" if name.lower() in RESERVED else name


def type_of(type_):
    if type_.kind == "Class":
        return f"_{type_.name}"
    return type_.name or TYPES[type_.kind]


def maker(coclass):
    return (f"\n  Co{coclass.name} = class\n    class function Create: {coclass.name};\n  end;\n")


def make(coclass):
    return (f"\nclass function Co{coclass.name}.Create: {coclass.name};\nbegin\n"
            f"  Result := CreateComObject(CLASS_{coclass.name}) as {coclass.name};\nend;\n")
