"""How the generated C++ spells the published types, arguments and results; every emitter writes through here."""

from texts import cpp_literal

HEAD = "// Generated from the description of the public boundary; do not edit.\n"

# C++ type of a value and the name of its TypeInfo in members.cpp.
VALUES = {"String": "Text", "Long": "std::int32_t", "Boolean": "bool", "Date": "Date", "Byte": "std::uint8_t",
          "Currency": "Currency", "Variant": "Variant", "Array": "VariantArray"}


def literal(text):
    return cpp_literal(text)


def value_type(type_):
    """The C++ type in which a class takes and gives a value of this type."""
    if type_.kind == "Enum":
        return type_.name
    if type_.kind == "Class":
        return f"std::shared_ptr<{type_.name}>"
    return VALUES[type_.kind]


def access(member, self, arguments):
    """What the class writes for this member: its result, or the effect of a let or of a method without result."""
    arguments = list(arguments)
    if member.kind == "Get":
        if not arguments:
            return f"read::{member.name}({self})"
        return f"{self}.{member.name}({', '.join(arguments)})"
    if member.kind == "Let":
        *indices, value = arguments
        name = f"{self}.{member.name}" + (f"({', '.join(indices)})" if indices else "")
        return f"{name} = {value}"
    return f"{self}.{member.name}({', '.join(arguments)})"


def result(member, owner, self, arguments):
    """An expression for the result in its published form: a value, an ObjectRef, or a VariantArray for an enumerator.

    `owner` is an expression for the ObjectRef of the object, `self` for the object itself.
    """
    type_ = member.result
    if type_.kind == "Enumerator":
        return f"snapshotOf({self})"
    given = access(member, self, arguments)
    if type_.kind == "Object":
        return f"anyObjectOf({given})"
    if type_.kind == "Class":
        return f"objectOf<{type_.name}>({owner}, {given})"
    return f"valueOf<{value_type(type_)}>({given})"
