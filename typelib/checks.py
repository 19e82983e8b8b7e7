"""Rules of the public boundary that its grammar alone does not enforce."""


def check(reader, library):
    """Raises IdlError, by way of the reader, at the first rule that is broken."""
    check_once(reader, "uuid", ((thing.uuid, thing.line) for thing in identified(library)))
    check_once(reader, "enumeration member",
               ((member.name, enumeration.line) for enumeration in library.enumerations
                for member in enumeration.members))
    check_once(reader, "program id", ((coclass.progid, coclass.line) for coclass in library.coclasses
                                      if coclass.creatable))
    for coclass in library.coclasses:
        check_members(reader, coclass.members)
    described = {coclass.name for coclass in library.coclasses}
    for coclass in library.coclasses:
        for member in coclass.members:
            check_classes(reader, member, described)


def identified(library):
    """Everything that has a uuid of its own."""
    yield from library.enumerations
    for coclass in library.coclasses:
        yield coclass.interface
        yield coclass


def check_once(reader, what, pairs):
    seen = set()
    for value, line in pairs:
        if value in seen:
            reader.refuse(line, f"expected {what} {value} once, found it twice")
        seen.add(value)


def check_members(reader, members):
    ids, names = {}, {}
    for member in members:
        if ids.setdefault(member.id, member.name) != member.name:
            reader.refuse(member.line, f"expected an id of its own for {member.name}, "
                                       f"found {member.id}, which is {ids[member.id]}'s")
        if names.setdefault(member.name.lower(), member.id) != member.id:
            reader.refuse(member.line, f"expected id {names[member.name.lower()]} for {member.name}, "
                                       f"found {member.id}")
        check_signature(reader, member)
    for name in {member.name for member in members}:
        check_accessors(reader, [member for member in members if member.name == name])


def check_signature(reader, member):
    if (member.kind == "Get") and member.result.kind == "None":
        reader.refuse(member.line, f"expected a result of {member.name}, which is a propget")
    if member.kind == "Let" and (member.result.kind != "None" or not member.parameters):
        reader.refuse(member.line, f"expected a new value and no result of {member.name}, which is a propput")
    if member.id <= 0 and member.result.kind != "Enumerator":
        reader.refuse(member.line, f"expected a positive id for {member.name}, found {member.id}")
    optional = False
    for parameter in member.parameters:
        if optional and not parameter.optional:
            reader.refuse(member.line, f"expected {parameter.name} before the optional parameters")
        optional = parameter.optional
        if (parameter.default is not None) != parameter.optional:
            reader.refuse(member.line, f"expected optional and defaultvalue of {parameter.name} together")


def check_accessors(reader, accessors):
    """Members of one name are one property: a get, a let or both, over the same types."""
    kinds = sorted(member.kind for member in accessors)
    if len(kinds) > 1 and kinds != ["Get", "Let"]:
        reader.refuse(accessors[-1].line, f"expected one propget and one propput of {accessors[0].name}, "
                                          f"found {' and '.join(kinds)}")
    if kinds == ["Get", "Let"]:
        get, let = sorted(accessors, key=lambda member: member.kind)
        types = [parameter.type for parameter in get.parameters] + [get.result]
        if types != [parameter.type for parameter in let.parameters]:
            reader.refuse(accessors[-1].line, f"expected the same types in both accessors of {get.name}")


def check_classes(reader, member, described):
    for type_ in [member.result] + [parameter.type for parameter in member.parameters]:
        if type_.kind == "Class" and type_.name not in described:
            reader.refuse(member.line, f"expected a coclass of interface _{type_.name}, which {member.name} uses")
