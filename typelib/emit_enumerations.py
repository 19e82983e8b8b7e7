"""typelib/enumerations.h: the published enumerations in C++."""

import cpp

TOP = cpp.HEAD + """//
// The published codes. Their values are part of job files and of the type library: never renumber.
#pragma once

#include <cstdint>

namespace orvane {
"""


def header(library):
    return TOP + "".join(map(enumeration, library.enumerations)) + "\n}  // namespace orvane\n"


def enumeration(described):
    members = "".join(f"  {member.name} = {number(member.value)},\n" for member in described.members)
    comment = f"/// {described.help}\n" if described.help else ""
    return f"\n{comment}enum {described.name} : std::int32_t {{\n{members}}};\n"


def number(value):
    """The smallest Long is no literal in C++."""
    return "-2147483647 - 1" if value == -2**31 else str(value)
