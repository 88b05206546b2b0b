"""A 32-bit Windows process in an emulator: memory, stack, thread block, heap, and a DLL loaded as the system does it.

What the DLL imports is answered by Python functions (`windows.py`). How many bytes such a function takes from the stack is read
from the import libraries of the compiler, whose names tell it ("_SetEvent@4"), so that it is no belief of ours.
"""

import functools
import re
import struct
import subprocess

import pefile
import unicorn
from unicorn import x86_const as x86

PAGE = 0x1000
STACK, STACK_SIZE = 0x10000000, 0x100000
HEAP, HEAP_SIZE = 0x20000000, 0x4000000
TRAPS, TRAPS_SIZE = 0x70000000, 0x20000
BLOCKS = 0x60000000  # descriptors, thread block
THREAD_BLOCK, DESCRIPTORS = BLOCKS, BLOCKS + 0x2000
TRAP_BYTES = 16

PROCESS_ATTACH, PROCESS_DETACH = 1, 0
STILL = 0x5AFE57AC  # what lies on the stack above a call's arguments


class Fault(Exception):
    """What the 32-bit code does wrong."""


class Heap:
    """Blocks of their own, filled with garbage; freeing twice or what was never given is a fault."""

    def __init__(self, machine):
        self.machine, self.next, self.live = machine, HEAP, {}

    def take(self, size, zeroed=False, lasting=False):
        """`lasting`: belongs to the machine or the host, so nobody gives it back."""
        place = self.next
        self.next += (size + 8 + 15) & ~15  # no block touches the next
        if self.next > HEAP + HEAP_SIZE:
            raise Fault("the heap is used up")
        if not lasting:
            self.live[place] = size
        self.machine.write(place, (b"\0" if zeroed else b"\xcd") * size)
        return place

    def free(self, place):
        if place == 0:
            return
        if place not in self.live:
            raise Fault(f"frees {place:#x}, which is not allocated")
        self.machine.write(place, b"\xdd" * self.live.pop(place))

    def again(self, place, size):
        if place == 0:
            return self.take(size)
        if place not in self.live:
            raise Fault(f"enlarges {place:#x}, which is not allocated")
        fresh = self.take(size)
        self.machine.write(fresh, self.machine.read(place, min(size, self.live[place])))
        self.free(place)
        return fresh


class Machine:
    """`functions` answers imports: (library, name) to a function of a `Call`. `taken` tells their bytes of arguments."""

    def __init__(self, functions, alignment=0):
        self.functions, self.alignment = functions, alignment
        self.uc = unicorn.Uc(unicorn.UC_ARCH_X86, unicorn.UC_MODE_32)
        for place, size in ((STACK, STACK_SIZE), (HEAP, HEAP_SIZE), (TRAPS, TRAPS_SIZE), (BLOCKS, 4 * PAGE)):
            self.uc.mem_map(place, size)
        self.heap = Heap(self)
        self.traps, self.trap_of, self.called = [], {}, set()
        self.failure = None
        self.uc.hook_add(unicorn.UC_HOOK_CODE, self._trapped, begin=TRAPS, end=TRAPS + TRAPS_SIZE - 1)
        self._make_thread()

    # memory

    def read(self, place, size):
        try:
            return bytes(self.uc.mem_read(place, size))
        except unicorn.UcError as error:
            raise Fault(f"{size} bytes at {place:#x} can't be read") from error

    def write(self, place, data):
        try:
            self.uc.mem_write(place, data)
        except unicorn.UcError as error:
            raise Fault(f"{len(data)} bytes at {place:#x} can't be written") from error

    def number(self, place):
        return struct.unpack("<I", self.read(place, 4))[0]

    def put_number(self, place, value):
        self.write(place, struct.pack("<I", value & 0xFFFFFFFF))

    def text(self, place, length=None):
        """UTF-16 text, up to its end or of so many units."""
        if length is not None:
            return self.read(place, 2 * length).decode("utf-16-le", "surrogatepass")
        end = place
        while self.read(end, 2) != b"\0\0":
            end += 2
        return self.text(place, (end - place) // 2)

    def bytes_to_zero(self, place):
        end = place
        while self.read(end, 1) != b"\0":
            end += 1
        return self.read(place, end - place)

    def text_block(self, text):
        data = text.encode("utf-16-le") + b"\0\0"
        place = self.heap.take(len(data))
        self.write(place, data)
        return place

    # the thread

    def _make_thread(self):
        """Flat segments, and the thread block behind FS, as 32-bit code finds it."""

        def descriptor(base, limit, access):
            return struct.pack("<HHBBBB", limit & 0xFFFF, base & 0xFFFF, base >> 16 & 0xFF, access,
                               0xC0 | limit >> 16 & 0xF, base >> 24)

        code, data, thread = (index << 3 for index in (1, 2, 3))
        self.write(DESCRIPTORS, bytes(8) + descriptor(0, 0xFFFFF, 0x9B) + descriptor(0, 0xFFFFF, 0x93)
                   + descriptor(THREAD_BLOCK, 0xFFFFF, 0x93))
        self.uc.reg_write(x86.UC_X86_REG_GDTR, (0, DESCRIPTORS, 0x1000, 0))
        self.uc.reg_write(x86.UC_X86_REG_CS, code)
        for register in (x86.UC_X86_REG_SS, x86.UC_X86_REG_DS, x86.UC_X86_REG_ES):
            self.uc.reg_write(register, data)
        self.uc.reg_write(x86.UC_X86_REG_FS, thread)
        self.local_storage = THREAD_BLOCK + 0x1000
        for place, value in ((0, 0xFFFFFFFF), (4, STACK + STACK_SIZE), (8, STACK), (0x18, THREAD_BLOCK),
                             (0x2C, self.local_storage)):
            self.put_number(THREAD_BLOCK + place, value)
        # The system promises a stack aligned to four bytes and no more.
        self.stack = STACK + STACK_SIZE - 0x1000 - 4 * self.alignment
        self.uc.reg_write(x86.UC_X86_REG_ESP, self.stack)
        self.put_number(STACK + STACK_SIZE - 0x800, STILL)
        self.end = self.trap("nowhere", None, 0)

    # calls out of the code

    def trap(self, name, function, taken):
        """The address of code that does what a Python function does, and takes its arguments from the stack."""
        place = TRAPS + TRAP_BYTES * len(self.traps)
        self.traps.append((name, function, taken))
        self.write(place, b"\xc2" + struct.pack("<H", taken))
        return place

    def _trapped(self, uc, place, _size, _data):
        name, function, _ = self.traps[(place - TRAPS) // TRAP_BYTES]
        if name == "nowhere":
            return
        self.called.add(name)
        try:
            if function is None:
                raise Fault(f"calls {name}, which nobody answers here")
            answer = function(Call(self, uc.reg_read(x86.UC_X86_REG_ESP)))
            uc.reg_write(x86.UC_X86_REG_EAX, int(answer or 0) & 0xFFFFFFFF)
            uc.reg_write(x86.UC_X86_REG_EDX, (int(answer or 0) >> 32) & 0xFFFFFFFF)
        except Exception as error:  # nothing may be thrown through the emulator
            self.failure = self.failure or error
            uc.emu_stop()

    # calls into the code

    def call(self, place, *arguments, cleans=True, what="a call"):
        """Calls a function at an address, on top of what runs. Its answer is what it leaves in EAX.

        `cleans`: it takes its arguments from the stack, as all do that the system or another module calls."""
        before = self.uc.reg_read(x86.UC_X86_REG_ESP)
        saved = [self.uc.reg_read(register) for register in KEPT]
        top = before - 4 * (len(arguments) + 2)
        self.write(top, struct.pack(f"<{len(arguments) + 2}I", self.end, *[a & 0xFFFFFFFF for a in arguments], STILL))
        self.uc.reg_write(x86.UC_X86_REG_ESP, top)
        try:
            self.uc.emu_start(place, self.end)
        except unicorn.UcError as error:
            here = self.uc.reg_read(x86.UC_X86_REG_EIP)
            raise self.failure or Fault(f"{what}: {error} at {here:#x}") from error
        if self.failure:
            raise self.failure
        after = self.uc.reg_read(x86.UC_X86_REG_ESP)
        if self.uc.reg_read(x86.UC_X86_REG_EIP) != self.end:
            raise Fault(f"{what} does not return")
        taken = after - top - 4
        if taken != (4 * len(arguments) if cleans else 0):
            raise Fault(f"{what} takes {taken} bytes of arguments from the stack instead of {4 * len(arguments)}")
        if [self.uc.reg_read(register) for register in KEPT] != saved:
            raise Fault(f"{what} changes registers that are its caller's")
        if self.uc.reg_read(x86.UC_X86_REG_EFLAGS) & 0x400:
            raise Fault(f"{what} leaves the direction flag set")
        self.uc.reg_write(x86.UC_X86_REG_ESP, before)
        return self.uc.reg_read(x86.UC_X86_REG_EAX)

    # the DLL

    def load(self, file, base=None):
        """Maps a DLL, at its own base or another one, fills in what it imports, and tells it of the process."""
        self.image = pefile.PE(file)
        original = self.image.OPTIONAL_HEADER.ImageBase
        self.base = base or original
        size = (self.image.OPTIONAL_HEADER.SizeOfImage + PAGE - 1) // PAGE * PAGE
        self.uc.mem_map(self.base, size)
        self.write(self.base, bytes(self.image.get_memory_mapped_image(ImageBase=self.base)))
        for library in self.image.DIRECTORY_ENTRY_IMPORT:
            name = library.dll.decode().lower().removesuffix(".dll")
            for entry in library.imports:
                self.put_number(entry.address - self.image.OPTIONAL_HEADER.ImageBase + self.base, self.import_of(name, entry.name.decode()))
        self.exports = {entry.name.decode(): self.base + entry.address for entry in self.image.DIRECTORY_ENTRY_EXPORT.symbols}
        self._call_at_attach()

    def import_of(self, library, name):
        key = (library, name)
        if key not in self.trap_of:
            function = self.functions.get(key)
            if isinstance(function, bytes):  # a variable
                place = self.heap.take(len(function), lasting=True)
                self.write(place, function)
                self.trap_of[key] = place
            elif isinstance(function, Code):
                place = self.heap.take(len(function.code), lasting=True)
                self.write(place, function.code)
                self.trap_of[key] = place
            else:
                self.trap_of[key] = self.trap(f"{library}.{name}", function, bytes_taken(library, name))
        return self.trap_of[key]

    def _call_at_attach(self):
        self.callbacks = []
        if hasattr(self.image, "DIRECTORY_ENTRY_TLS"):
            table = self.image.DIRECTORY_ENTRY_TLS.struct
            start, end = table.StartAddressOfRawData, table.EndAddressOfRawData
            block = self.heap.take(max(end - start, 4) + table.SizeOfZeroFill, zeroed=True, lasting=True)
            self.write(block, self.read(start, end - start))
            self.put_number(table.AddressOfIndex, 0)
            self.put_number(self.local_storage, block)
            place = table.AddressOfCallBacks
            while self.number(place):
                self.callbacks.append(self.number(place))
                place += 4
        self.tell_all(PROCESS_ATTACH)

    def tell_all(self, reason):
        for callback in self.callbacks:
            self.call(callback, self.base, reason, 0, what="a callback of the loader's")
        entry = self.base + self.image.OPTIONAL_HEADER.AddressOfEntryPoint
        if self.call(entry, self.base, reason, 0, what="the entry point") != 1:
            raise Fault("the entry point does not agree")

    def unload(self):
        self.tell_all(PROCESS_DETACH)


# A function keeps these for its caller.
KEPT = (x86.UC_X86_REG_EBX, x86.UC_X86_REG_ESI, x86.UC_X86_REG_EDI, x86.UC_X86_REG_EBP)


class Code:
    """What is answered by machine code, since it calls back."""

    def __init__(self, code):
        self.code = code


class Call:
    """One call of a function that is answered here: its arguments, from the first."""

    def __init__(self, machine, stack):
        self.machine, self.stack = machine, stack

    def __getitem__(self, index):
        return self.machine.number(self.stack + 4 + 4 * index)

    def signed(self, index):
        value = self[index]
        return value - (1 << 32) if value & 0x80000000 else value

    def text(self, index):
        return self.machine.text(self[index]) if self[index] else ""


@functools.cache
def import_names(library):
    """The functions of an import library of the compiler and how many bytes each takes, by the index of the archive."""
    file = subprocess.run(["i686-w64-mingw32-gcc", f"-print-file-name=lib{library}.a"], check=True, capture_output=True,
                          text=True).stdout.strip()
    with open(file, "rb") as archive:
        archive.read(8)  # what it is
        size = int(archive.read(60)[48:58])
        index = archive.read(size)
    names = index[4 + 4 * struct.unpack(">I", index[:4])[0]:].split(b"\0")
    decorated = (re.fullmatch(r"_([A-Za-z_0-9]+)@(\d+)", name.decode()) for name in names)
    return {found[1]: int(found[2]) for found in decorated if found}


def bytes_taken(library, name):
    """The bytes of arguments that a system function takes from the stack; those of the C library take none."""
    if library == "msvcrt":
        return 0
    names = import_names(library)
    if name not in names:
        raise Fault(f"imports {library}.{name}, which the compiler's library doesn't know")
    return names[name]
