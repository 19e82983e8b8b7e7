#!/usr/bin/env python3
"""Makes the code that follows from the description of the public boundary: generate.py [--automation|--imports] IDL OUTDIR

Without an option it makes what every platform has; with --automation what the automation server adds; with --imports
what compilers that import the type library make of it, for a machine without such a compiler.

A file whose content would stay the same is left alone, so that nothing is compiled anew without need.
"""

import argparse
import pathlib
import sys

import emit_csharp
import emit_enumerations
import emit_glue
import emit_members
import emit_pascal
import emit_registration
import idl

# Every output, named from OUTDIR, and the function that writes it.
OUTPUTS = {
    "typelib/enumerations.h": emit_enumerations.header,
    "typelib/classes.h": emit_members.classes_header,
    "typelib/readers.h": emit_members.readers_header,
    "members.cpp": emit_members.source,
}
AUTOMATION = {
    **{f"glue_{index}.cpp": emit_glue.part(index) for index in range(emit_glue.PARTS)},
    "identity.cpp": emit_registration.identities,
    "x86.manifest": emit_registration.manifest("x86"),
    "amd64.manifest": emit_registration.manifest("amd64"),
    "client.x86.manifest": emit_registration.client_manifest("x86"),
    "client.amd64.manifest": emit_registration.client_manifest("amd64"),
}
IMPORTS = {
    "OrvaneDocumenti.cs": emit_csharp.source,
    "OrvaneDocumenti_TLB.pas": emit_pascal.unit,
}


def write_if_changed(path, content):
    data = content.encode("utf-8")
    if path.exists() and path.read_bytes() == data:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)


def main():
    parser = argparse.ArgumentParser(description="Makes code from the description of the public boundary.")
    which = parser.add_mutually_exclusive_group()
    which.add_argument("--automation", dest="outputs", action="store_const", const=AUTOMATION, default=OUTPUTS)
    which.add_argument("--imports", dest="outputs", action="store_const", const=IMPORTS)
    parser.add_argument("idl")
    parser.add_argument("outdir", type=pathlib.Path)
    arguments = parser.parse_args()
    try:
        library = idl.read_file(arguments.idl)
    except (OSError, UnicodeDecodeError, idl.IdlError) as error:
        sys.exit(str(error))
    for name, emit in arguments.outputs.items():
        write_if_changed(arguments.outdir / name, emit(library))


if __name__ == "__main__":
    main()
