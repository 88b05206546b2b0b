"""A host made of Python objects, as the 32-bit DLL sees it: IDispatch, and connection points for events."""

import struct
import uuid

import windows

UNKNOWN_NAME, NO_MEMBER, RAISED, NO_CONNECTION = 0x80020006, 0x80020003, 0x80020009, 0x80040200
EMPTY, SHORT, INTEGER, DATE, TEXT, DISPATCH, ERROR, BOOLEAN, BY_REFERENCE = 0, 2, 3, 7, 8, 9, 10, 11, 0x4000
PUT = 4 | 8


def guid(text):
    return uuid.UUID(text).bytes_le


IUNKNOWN = guid("00000000-0000-0000-C000-000000000046")
IDISPATCH = guid("00020400-0000-0000-C000-000000000046")
CONTAINER = guid("B196B284-BAB4-101A-B69C-00AA00341D07")
POINT = guid("B196B286-BAB4-101A-B69C-00AA00341D07")


class Raised(Exception):
    """What a member of an object fails with, told in words."""


class ComObject:
    """Base: an object in the machine's memory whose operations are methods here, in the order of `operations`."""

    operations = ()
    interfaces = ()

    def __init__(self, machine):
        self.machine, self.references = machine, 0
        names = ("QueryInterface", "AddRef", "Release") + self.operations
        table = machine.heap.take(4 * len(names), lasting=True)
        for place, name in enumerate(names):
            taken = {"QueryInterface": 12, "AddRef": 4, "Release": 4}.get(name) or self.taken[name]
            machine.put_number(table + 4 * place, machine.trap(f"{type(self).__name__}.{name}", getattr(self, name), taken))
        self.place = machine.heap.take(4, lasting=True)
        machine.put_number(self.place, table)

    def QueryInterface(self, call):
        wanted = self.machine.read(call[1], 16)
        found = self.part(wanted)
        self.machine.put_number(call[2], found.place if found else 0)
        if not found:
            return windows.NO_INTERFACE
        found.references += 1
        return windows.OK

    def part(self, wanted):
        return self if wanted == IUNKNOWN or wanted in self.interfaces else None

    def AddRef(self, _):
        self.references += 1
        return self.references

    def Release(self, _):
        assert self.references > 0, f"{self} is released once too often"
        self.references -= 1
        return self.references


class Point(ComObject):
    """A connection point: one interface's listeners."""

    operations = ("GetConnectionInterface", "GetConnectionPointContainer", "Advise", "Unadvise", "EnumConnections")
    interfaces = (POINT,)
    taken = {"GetConnectionInterface": 8, "GetConnectionPointContainer": 8, "Advise": 12, "Unadvise": 8, "EnumConnections": 8}

    def __init__(self, machine, interface):
        super().__init__(machine)
        self.interface, self.listeners, self.last = interface, {}, 0

    def GetConnectionInterface(self, call):
        self.machine.write(call[1], self.interface)
        return windows.OK

    def GetConnectionPointContainer(self, _):
        return windows.FAIL

    EnumConnections = GetConnectionPointContainer

    def Advise(self, call):
        machine = self.machine
        wanted, answer = machine.heap.take(16), machine.heap.take(4)
        machine.write(wanted, self.interface)
        result = machine.call(windows.method(machine, call[1], 0), call[1], wanted, answer, what="a sink's QueryInterface")
        if result == windows.OK:
            self.last += 1
            self.listeners[self.last] = machine.number(answer)
            machine.put_number(call[2], self.last)
        machine.heap.free(wanted)
        machine.heap.free(answer)
        return result

    def Unadvise(self, call):
        if call[1] not in self.listeners:
            return NO_CONNECTION
        windows.release(self.machine, self.listeners.pop(call[1]))
        return windows.OK


class Container(ComObject):
    operations = ("EnumConnectionPoints", "FindConnectionPoint")
    interfaces = (CONTAINER,)
    taken = {"EnumConnectionPoints": 8, "FindConnectionPoint": 12}

    def __init__(self, owner):
        super().__init__(owner.machine)
        self.owner, self.points = owner, {}

    def part(self, wanted):
        return super().part(wanted) or self.owner.part(wanted)

    def EnumConnectionPoints(self, _):
        return windows.FAIL

    def FindConnectionPoint(self, call):
        interface = self.machine.read(call[1], 16)
        point = self.points.setdefault(interface, None) or Point(self.machine, interface)
        self.points[interface] = point
        point.references += 1
        self.machine.put_number(call[2], point.place)
        return windows.OK


class Object(ComObject):
    """An object asked by names. `members`: a value, or a function of the arguments. What is asked is noted in `asked`."""

    operations = ("GetTypeInfoCount", "GetTypeInfo", "GetIDsOfNames", "Invoke")
    interfaces = (IDISPATCH,)
    taken = {"GetTypeInfoCount": 8, "GetTypeInfo": 16, "GetIDsOfNames": 24, "Invoke": 36}

    def __init__(self, machine, name, members, asked):
        super().__init__(machine)
        self.name, self.members, self.asked = name, members, asked
        self.names = list(members)
        self.container = Container(self)

    def part(self, wanted):
        return self.container if wanted == CONTAINER else super().part(wanted)

    def changed(self, value):
        """A member was given a value."""

    def GetTypeInfoCount(self, call):
        self.machine.put_number(call[1], 0)
        return windows.OK

    def GetTypeInfo(self, _):
        return windows.NO_INTERFACE

    def GetIDsOfNames(self, call):
        name = self.machine.text(self.machine.number(call[2]))
        known = next((place for place, own in enumerate(self.names) if own.lower() == name.lower()), None)
        self.machine.put_number(call[5], 0xFFFFFFFF if known is None else known + 1)
        if known is None:
            self.asked.append(f"{self.name}.{name}?")
            return UNKNOWN_NAME
        return windows.OK

    def Invoke(self, call):
        number, flags, parameters, answer = call[1], call[4] & 0xFFFF, call[5], call[6]
        if not 1 <= number <= len(self.names):
            return NO_MEMBER
        name = self.names[number - 1]
        values, count = self.machine.number(parameters), self.machine.number(parameters + 8)
        arguments = [self.value(values + 16 * place) for place in reversed(range(count))]
        shown = ", ".join(map(str, arguments))
        self.asked.append(f"{self.name}.{name}" + (f" = {shown}" if flags & PUT else f"({shown})" if arguments else ""))
        if flags & PUT:
            self.members[name] = arguments[-1]
            self.changed(arguments[-1])
            return windows.OK
        member = self.members[name]
        try:
            result = member(*arguments) if callable(member) else member
        except Raised as error:
            self.tell_failure(call[7], str(error))
            return RAISED
        if answer:
            self.give(answer, result)
        return windows.OK

    def tell_failure(self, details, text):
        """Fills the 32 bytes in which a caller is told more of a failure: code, source, description, ..., result."""
        if details:
            self.machine.write(details, struct.pack("<HHIIIIII", 0, 0, self.text(self.name), self.text(text), 0, 0, 0, 0))
            self.machine.put_number(details + 28, windows.FAIL)

    def text(self, text):
        """A text of the system's, with its length before it."""
        data = text.encode("utf-16-le")
        block = self.machine.heap.take(4 + len(data) + 2)
        self.machine.write(block, struct.pack("<I", len(data)) + data + b"\0\0")
        return block + 4

    def value(self, place):
        kind = struct.unpack("<H", self.machine.read(place, 2))[0]
        held = self.machine.number(place + 8)
        if kind & BY_REFERENCE:
            return f"by reference {kind & ~BY_REFERENCE}"
        if kind == TEXT:
            return self.machine.text(held, self.machine.number(held - 4) // 2) if held else ""
        if kind == DATE:
            return struct.unpack("<d", self.machine.read(place + 8, 8))[0]
        if kind == BOOLEAN:
            return bool(held & 0xFFFF)
        return {EMPTY: None, SHORT: held & 0xFFFF, INTEGER: held, ERROR: "left out"}.get(kind, f"a value of kind {kind}")

    def give(self, place, value):
        write = self.machine.write
        if isinstance(value, bool):
            write(place, struct.pack("<HHHHHH", BOOLEAN, 0, 0, 0, 0xFFFF if value else 0, 0))
        elif isinstance(value, int):
            write(place, struct.pack("<HHHHi", INTEGER, 0, 0, 0, value))
        elif isinstance(value, str):
            write(place, struct.pack("<HHHHI", TEXT, 0, 0, 0, self.text(value)))
        elif isinstance(value, float):
            write(place, struct.pack("<HHHHd", DATE, 0, 0, 0, value))
        elif isinstance(value, Object):
            value.references += 1
            write(place, struct.pack("<HHHHI", DISPATCH, 0, 0, 0, value.place))
        else:
            write(place, struct.pack("<HHHHI", DISPATCH if value is None else EMPTY, 0, 0, 0, 0))
