"""What the description of the public boundary says, as plain data for the generators."""

from dataclasses import dataclass, field


@dataclass(frozen=True)
class Type:
    """A published type. `name` is the enumeration of an Enum and the coclass of a Class, else empty."""

    kind: str  # None, String, Long, Boolean, Date, Byte, Currency, Variant, Array, Object, Enumerator, Enum or Class
    name: str = ""


NOTHING = Type("None")


@dataclass
class EnumMember:
    name: str
    value: int


@dataclass
class Enumeration:
    name: str
    uuid: str
    members: list[EnumMember]
    help: str
    line: int


@dataclass
class Parameter:
    """`by_reference` tells an [in, out] parameter, whose IDL type is a pointer to `type`."""

    name: str
    type: Type
    by_reference: bool = False
    optional: bool = False
    default: object = None  # a number, a text or None


@dataclass
class Member:
    """One slot. The parameters are what a caller passes, so a let's last one is the new value."""

    name: str
    id: int
    kind: str  # Get, Let or Method
    parameters: list[Parameter]
    result: Type
    help: str
    hidden: bool
    line: int


@dataclass
class Interface:
    name: str
    uuid: str
    members: list[Member]  # in slot order
    help: str
    line: int


@dataclass
class Coclass:
    name: str
    uuid: str
    interface: Interface
    creatable: bool
    progid: str
    threading: str
    help: str
    line: int

    @property
    def members(self):
        return self.interface.members


@dataclass
class Library:
    name: str = ""
    uuid: str = ""
    version: str = ""
    help: str = ""
    enumerations: list[Enumeration] = field(default_factory=list)
    coclasses: list[Coclass] = field(default_factory=list)
