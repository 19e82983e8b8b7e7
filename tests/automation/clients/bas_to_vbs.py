"""Makes a script of a Visual Basic module, so that it runs where there is no Visual Basic: bas_to_vbs.py IDL MODULE SCRIPT

The languages share statements and objects. What a script has not is replaced: types are dropped (after a look that they
exist), enumeration members become constants, New becomes CreateObject and Debug.Print an echo. The script calls the
module's first public procedure with its own arguments.
"""

import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[3] / "typelib"))

import idl  # noqa: E402

PLAIN_TYPES = {"Boolean", "Byte", "Currency", "Date", "Double", "Integer", "Long", "Object", "String", "Variant"}


def script(module, library):
    body = re.sub(r"^Attribute .*\n", "", module, flags=re.MULTILINE)
    body = re.sub(r" As (\w+)", lambda match: known_type(match[1], library), body)
    body = re.sub(r"= New (\w+)", lambda match: f'= CreateObject("{progid(match[1], library)}")', body)
    body = body.replace("Debug.Print", "WScript.Echo")
    values = {member.name: member.value for described in library.enumerations for member in described.members}
    constants = (f"Const {name} = {values[name]}\n" for name in sorted(set(re.findall(r"\bvd[a-z]+_\w+", body))))
    return body.replace("Option Explicit\n", "Option Explicit\n\n" + "".join(constants), 1) + call(module)


def known_type(name, library):
    """Nothing, in the place of a type that there is."""
    published = {thing.name for thing in [*library.coclasses, *library.enumerations]}
    if name not in PLAIN_TYPES | published:
        raise ValueError(f"no type {name}")
    return ""


def progid(name, library):
    return next(coclass.progid for coclass in library.coclasses if coclass.name == name and coclass.creatable)


def call(module):
    name, parameters = re.search(r"^Public Sub (\w+)\((.*)\)", module, re.MULTILINE).groups()
    arguments = ", ".join(f"WScript.Arguments({index})" for index in range(len(parameters.split(","))))
    return f"\n{name} {arguments}\n"


def main():
    boundary, module, target = sys.argv[1:]
    text = pathlib.Path(module).read_text(encoding="utf-8")
    pathlib.Path(target).write_text(script(text, idl.read_file(boundary)), encoding="utf-8", newline="\r\n")


if __name__ == "__main__":
    main()
