"""The member table: members.cpp, and the headers typelib/readers.h and typelib/classes.h that it stands on."""

import cpp
from cpp import literal

CLASSES_TOP = cpp.HEAD + """//
// Which entry of the table of classes describes a C++ class.
#pragma once

#include "orvane.h"
#include "typelib/Members.h"

namespace orvane {

"""

READERS_TOP = cpp.HEAD + """//
// Reads a property by its name, whether the class has it as a data member or as a function.
#pragma once

namespace orvane::read {
"""

MEMBERS_TOP = cpp.HEAD + """#include "typelib/Access.h"
#include "typelib/classes.h"
#include "typelib/readers.h"

namespace orvane {

"""


def classes_header(library):
    lines = [CLASSES_TOP,
             f"extern const ClassInfo classTable[{len(library.coclasses)}];\n\n"]
    for index, coclass in enumerate(library.coclasses):
        lines.append(f"template <>\ninline const ClassInfo& classOf<{coclass.name}>() {{\n"
                     f"  return classTable[{index}];\n}}\n")
    return "".join(lines) + "\n}  // namespace orvane\n"


def readers_header(library):
    names = sorted({member.name for coclass in library.coclasses for member in coclass.members if is_read(member)})
    return READERS_TOP + "".join(map(reader, names)) + "\n}  // namespace orvane::read\n"


def is_read(member):
    return member.kind == "Get" and not member.parameters and member.result.kind != "Enumerator"


def reader(name):
    return f"""
template <class T>
decltype(auto) {name}(T& self) {{
  if constexpr (requires {{ self.{name}(); }}) {{
    return self.{name}();
  }} else {{
    return (self.{name});
  }}
}}
"""


def source(library):
    parts = [MEMBERS_TOP]
    parts += enumeration_table(library)
    parts.append("namespace {\n\n")
    parts += type_constants(library)
    parts += (members_of(coclass) for coclass in library.coclasses)
    parts.append("}  // namespace\n\n")
    parts += class_table(library)
    return "".join(parts) + "\n}  // namespace orvane\n"


def enumeration_table(library):
    yield "namespace {\n\n"
    for described in library.enumerations:
        yield f"constexpr EnumMember k{described.name}[] = {{\n"
        yield "".join(f"    {{{literal(member.name)}, {member.name}}},\n" for member in described.members)
        yield "};\n"
    yield f"\nconstexpr std::array<EnumInfo, {len(library.enumerations)}> enumerationTable{{{{\n"
    for described in library.enumerations:
        yield f"    {{{literal(described.name)}, k{described.name}}},\n"
    yield "}};\n\n}  // namespace\n\n"
    yield "std::span<const EnumInfo> allEnumerations() { return enumerationTable; }\n\n"


def type_constants(library):
    for kind in ["None", *cpp.VALUES, "Object", "Enumerator"]:
        yield f"[[maybe_unused]] constexpr TypeInfo t{kind}{{TypeKind::{kind}}};\n"
    for index, described in enumerate(library.enumerations):
        yield (f"[[maybe_unused]] constexpr TypeInfo t{described.name}"
               f"{{TypeKind::Enum, &enumerationTable[{index}]}};\n")
    for index, coclass in enumerate(library.coclasses):
        yield (f"[[maybe_unused]] constexpr TypeInfo t{coclass.name}"
               f"{{TypeKind::Class, nullptr, &classTable[{index}]}};\n")


def type_constant(type_):
    return "t" + (type_.name or type_.kind)


def members_of(coclass):
    """The parameter lists and the members of one class."""
    parts = [f"\n// {coclass.name}\n"]
    for slot, member in enumerate(coclass.members):
        if member.parameters:
            rows = ", ".join(map(parameter, member.parameters))
            parts.append(f"constexpr Parameter {parameters_name(coclass, slot)}[] = {{{rows}}};\n")
    parts.append(f"constexpr MemberInfo k{coclass.name}[] = {{\n")
    parts += (member_row(coclass, slot, member) for slot, member in enumerate(coclass.members))
    size = index_size(len(coclass.members))
    parts.append(f"}};\nconstexpr auto i{coclass.name} = makeMemberIndex<{size}>(k{coclass.name});\n")
    return "".join(parts)


def parameters_name(coclass, slot):
    return f"p{coclass.name}_{slot}"


def index_size(count):
    """A power of two that leaves half of the index free."""
    return max(4, 2 << (count - 1).bit_length())


def parameter(described):
    row = f"{{{literal(described.name)}, {type_constant(described.type)}"
    if described.by_reference or described.optional:
        row += f", {cpp_bool(described.by_reference)}"
    if described.optional:
        row += f", true, {default(described.default)}"
    return row + "}"


def cpp_bool(value):
    return "true" if value else "false"


def default(value):
    return f"TextView({literal(value)})" if isinstance(value, str) else f"std::int32_t{{{value}}}"


def member_row(coclass, slot, member):
    parameters = parameters_name(coclass, slot) if member.parameters else "{}"
    return (f"    {{{literal(member.name)}, {member.id}, MemberKind::{member.kind}, {type_constant(member.result)}, "
            f"{parameters},\n     [](const ObjectRef& self, Arguments{' args' if member.parameters else ''})"
            f" -> Variant {{ {body(coclass, member)} }},\n     {literal(member.help)}}},\n")


def body(coclass, member):
    self = f"target<{coclass.name}>(self)"
    arguments = [argument(given.type, f"args[{index}]") for index, given in enumerate(member.parameters)]
    if member.result.kind == "None":
        return f"{cpp.access(member, self, arguments)}; return {{}};"
    value = cpp.result(member, "self", self, arguments)
    if member.result.kind == "Enum":
        value = f"static_cast<std::int32_t>({value})"
    return f"return {value};"


def argument(type_, given):
    """The C++ argument out of a Variant that already holds the declared type."""
    if type_.kind == "Enum":
        return f"static_cast<{type_.name}>(std::get<std::int32_t>({given}))"
    if type_.kind == "Class":
        return f"objectArgument<{type_.name}>({given})"
    if type_.kind == "Variant":
        return given
    return f"std::get<{cpp.value_type(type_)}>({given})"


def class_table(library):
    yield f"constinit const ClassInfo classTable[{len(library.coclasses)}] = {{\n"
    for coclass in library.coclasses:
        create = f"&makeObject<{coclass.name}>" if coclass.creatable else "nullptr"
        yield (f"    {{{literal(coclass.name)}, k{coclass.name}, i{coclass.name}.byName, i{coclass.name}.byId, "
               f"{create},\n     {literal(coclass.help)}}},\n")
    yield "};\n\nstd::span<const ClassInfo> allClasses() { return classTable; }\n"
