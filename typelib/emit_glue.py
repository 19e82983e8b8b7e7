"""The vtable glue: one class an interface, whose every slot calls the C++ class; and the functions that make them."""

import cpp

TOP = cpp.HEAD + """#include "com/AutomationObject.h"
#include "typelib/Access.h"
#include "typelib/classes.h"
#include "typelib/readers.h"

namespace orvane::com {
"""

# The glue is compiled in this many parts, so that they build side by side.
PARTS = 4

# Automation's C++ type of each published value.
NATIVE = {"String": "BSTR", "Long": "LONG", "Boolean": "VARIANT_BOOL", "Date": "DATE", "Byte": "BYTE",
          "Currency": "CURRENCY", "Variant": "VARIANT", "Array": "SAFEARRAY*", "Object": "IDispatch*",
          "Enumerator": "IUnknown*"}
PREFIXES = {"Get": "get_", "Let": "put_", "Method": ""}


def part(index):
    """The emitter of one part."""
    return lambda library: source(library.coclasses[index::PARTS])


def source(coclasses):
    return TOP + "".join(map(glue_class, coclasses)) + "\n}  // namespace orvane::com\n"


def glue_class(coclass):
    name = coclass.name
    slots = "".join(slot(coclass, member) for member in coclass.members)
    return (f"\nnamespace {{\n\nclass {name}Object final : public AutomationObject<::_{name}, {name}> {{\n public:\n"
            f"  using AutomationObject::AutomationObject;\n{slots}}};\n\n}}  // namespace\n\n"
            f"Object* make{name}(const ObjectRef& self) {{ return new {name}Object(self); }}\n")


def slot(coclass, member):
    parameters = [f"{native(given)} a{index}" for index, given in enumerate(member.parameters)]
    arguments = [argument(given, f"a{index}") for index, given in enumerate(member.parameters)]
    name = PREFIXES[member.kind] + member.name
    if member.result.kind == "None":
        body = f"return run([&] {{ {cpp.access(member, 'core()', arguments)}; }});"
    else:
        parameters.append(f"{native_type(member.result)}* result")
        body = f"return give(result, [&] {{ return {cpp.result(member, 'self()', 'core()', arguments)}; }});"
    return f"  STDMETHODIMP {name}({', '.join(parameters)}) override {{\n    {body}\n  }}\n"


def native_type(type_):
    if type_.kind == "Enum":
        return f"::{type_.name}"
    if type_.kind == "Class":
        return f"::_{type_.name}*"
    return NATIVE[type_.kind]


def native(parameter):
    return native_type(parameter.type) + ("*" if parameter.by_reference else "")


def argument(parameter, given):
    """The C++ argument out of what the client passed."""
    if parameter.by_reference:
        given = f"pointed({given})"
    if parameter.type.kind == "Enum":
        return f"static_cast<{parameter.type.name}>({given})"
    if parameter.type.kind == "Class":
        return f"takeObject<{parameter.type.name}>({given})"
    return f"take({given})"
