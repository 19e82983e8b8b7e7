"""A stand-in for pywin32's module: objects of the automation server, through a program that runs beside it.

ORVANE_BRIDGE is that program and ORVANE_RUNNER what starts it. ORVANE_IDL is the description of the interfaces, which
tells what is a property and what is called, as the type library does for pywin32: a property with an index is called by
its name to read and by Set and its name to write. Arguments that the server may change do not come back.
"""

import os
import subprocess

import idl
import pywintypes

_ESCAPES = [("\\", "\\\\"), ("\t", "\\t"), ("\n", "\\n"), ("\r", "\\r")]
_UNESCAPES = {"\\": "\\", "t": "\t", "n": "\n", "r": "\r"}


def _members():
    found = {}
    for coclass in idl.read_file(os.environ["ORVANE_IDL"]).coclasses:
        for member in coclass.members:
            found.setdefault(coclass.interface.name, {})[member.name, member.kind] = member
    return found


_MEMBERS = _members()
_BRIDGE = subprocess.Popen([os.environ["ORVANE_RUNNER"], os.environ["ORVANE_BRIDGE"]], stdin=subprocess.PIPE,
                           stdout=subprocess.PIPE, encoding="utf-8")


def _ask(*fields):
    _BRIDGE.stdin.write("\t".join(fields) + "\n")
    _BRIDGE.stdin.flush()
    first, *rest = _BRIDGE.stdout.readline().rstrip("\r\n").split("\t")
    if first.startswith("!"):
        raise pywintypes.com_error(int(first[1:]), *map(_plain, rest))
    return [_value(field) for field in rest] if fields[0] == "items" else _value(first)


def _plain(text):
    letters = iter(text)
    return "".join(_UNESCAPES[next(letters)] if letter == "\\" else letter for letter in letters)


def _value(field):
    kind, text = field[0], field[1:]
    if kind == "o":
        return _Object(*text.split(":"))
    return {"s": lambda: _plain(text), "i": lambda: int(text), "b": lambda: text == "1", "e": lambda: None}[kind]()


def _field(value):
    if isinstance(value, _Object):
        return "o" + value._number_
    if isinstance(value, bool):
        return f"b{value:d}"
    if isinstance(value, int):
        return f"i{value}"
    for letter, escape in _ESCAPES:
        value = value.replace(letter, escape)
    return "s" + value


class _Object:
    def __init__(self, number, interface):
        self.__dict__.update(_number_=number, _interface_=interface)

    def _member_(self, name, kind):
        return _MEMBERS[self._interface_].get((name, kind))

    def _called_(self, request, name):
        return lambda *arguments: _ask(request, self._number_, name, *map(_field, arguments))

    def __getattr__(self, name):
        get = self._member_(name, "Get")
        if get and not get.parameters:
            return _ask("get", self._number_, name)
        if get:
            return self._called_("get", name)
        if self._member_(name, "Method"):
            return self._called_("call", name)
        let = name.startswith("Set") and self._member_(name[3:], "Let")
        if let and len(let.parameters) > 1:
            return self._called_("put", name[3:])
        raise AttributeError(f"{self._interface_}.{name}")

    def __setattr__(self, name, value):
        let = self._member_(name, "Let")
        if not let or len(let.parameters) > 1:
            raise AttributeError(f"Property '{self._interface_}.{name}' can not be set.")
        _ask("put", self._number_, name, _field(value))

    def __iter__(self):
        return iter(_ask("items", self._number_))


def Dispatch(progid):
    return _ask("create", progid)
