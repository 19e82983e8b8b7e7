"""What the system must know of the automation server: the table of identities, and the manifests that stand in for
registration, the server's own and that of a program that uses it."""

from xml.sax.saxutils import quoteattr

import cpp

# The system's marshaler for interfaces that their type library describes, and the interface that they extend.
PROXY = "{00020424-0000-0000-C000-000000000046}"
DISPATCH = "{00020400-0000-0000-C000-000000000046}"
DISPATCH_SLOTS = 7

OPENING = ['<?xml version="1.0" encoding="UTF-8" standalone="yes"?>',
           '<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">']

TOP = cpp.HEAD + """#include "com/Identity.h"

namespace orvane::com {

"""


def identities(library):
    """identity.cpp, whose rows stand in the order of the table of classes."""
    parts = [TOP]
    parts += (f"Object* make{coclass.name}(const ObjectRef& self);\n" for coclass in library.coclasses)
    parts.append("\nnamespace {\n\nconst ClassIdentity rows[] = {\n")
    parts += map(identity, library.coclasses)
    major, minor = version(library)
    parts.append("};\n\n"
                 f"const LibraryIdentity row = {{{guid(library.uuid)}, {major}, {minor}, L\"{library.name}\", "
                 f"{wide(library.help)}}};\n\n}}  // namespace\n\n"
                 "std::span<const ClassIdentity> classIdentities() { return rows; }\n"
                 "const LibraryIdentity& libraryIdentity() { return row; }\n\n"
                 "}  // namespace orvane::com\n")
    return "".join(parts)


def identity(coclass):
    progid = f'L"{coclass.progid}"' if coclass.creatable else "nullptr"
    threading = f'L"{coclass.threading.capitalize()}"' if coclass.creatable else "nullptr"
    return (f"    {{{guid(coclass.uuid)}, {guid(coclass.interface.uuid)},\n"
            f'     L"{coclass.interface.name}", {progid}, {threading},\n'
            f"     {wide(coclass.help)}, &make{coclass.name}}},\n")


def version(library):
    return [int(part) for part in library.version.split(".")]


def guid(uuid):
    """An initialiser of a GUID."""
    groups = uuid.split("-")
    tail = groups[3] + groups[4]
    octets = ", ".join(f"0x{tail[at:at + 2]}" for at in range(0, 16, 2))
    return f"{{0x{groups[0]}, 0x{groups[1]}, 0x{groups[2]}, {{{octets}}}}}"


def wide(text):
    return "L" + cpp.literal(text)[1:]


def braced(uuid):
    return "{" + uuid.upper() + "}"


def manifest(architecture):
    """The emitter of the assembly manifest of one processor architecture."""
    return lambda library: assembly(library, architecture)


def client_manifest(architecture):
    """The emitter of the manifest of a program that uses the assembly."""
    return lambda library: dependency(library, architecture)


def assembly_identity(library, architecture):
    major, minor = version(library)
    return (f'<assemblyIdentity type="win32" name="{library.name}" version="{major}.{minor}.0.0" '
            f'processorArchitecture="{architecture}"/>')


def dependency(library, architecture):
    return "\n".join([*OPENING, "  <dependency>", "    <dependentAssembly>",
                      "      " + assembly_identity(library, architecture),
                      "    </dependentAssembly>", "  </dependency>", "</assembly>", ""])


def assembly(library, architecture):
    major, minor = version(library)
    name, libid = library.name, braced(library.uuid)
    lines = [*OPENING, "  " + assembly_identity(library, architecture), f'  <file name="{name}.dll">']
    lines += (f'    <comClass clsid="{braced(coclass.uuid)}" progid="{coclass.progid}" tlbid="{libid}" '
              f'threadingModel="{coclass.threading.capitalize()}" description={quoteattr(coclass.help)}/>'
              for coclass in library.coclasses if coclass.creatable)
    lines += [f'    <typelib tlbid="{libid}" version="{major}.{minor}" helpdir="" flags=""/>', "  </file>"]
    lines += (f'  <comInterfaceExternalProxyStub name="{coclass.interface.name}" '
              f'iid="{braced(coclass.interface.uuid)}" tlbid="{libid}" baseInterface="{DISPATCH}" '
              f'numMethods="{DISPATCH_SLOTS + len(coclass.members)}" proxyStubClsid32="{PROXY}"/>'
              for coclass in library.coclasses)
    return "\n".join(lines) + "\n</assembly>\n"
