"""What the system and the C library answer to the DLL, as far as the tests here let it ask.

A table of functions by library and name. What is not in it fails the test that needs it, by name.
"""

import struct

from machine import Code

SUCCESS, NOT_FOUND, BAD_HANDLE = 0, 2, 6
OK, FALSE = 0, 1
FAIL, NO_INTERFACE, NOT_REGISTERED = 0x80004005, 0x80004002, 0x80040154
FILE = "C:\\Programs\\Tarnwell\\TarnwellNote.dll"


class System:
    """The state behind the functions: registry, module count, local storage of the thread."""

    def __init__(self):
        self.registry = {}  # path of a key, without case, to its values
        self.handles = {}
        self.last_error = 0
        self.references = 1  # of the DLL
        self.storage = []
        self.ticks = 1000
        self.said = []  # what went to the debugger or to stderr
        self.servers = {}  # by ProgID: the object of the class

    # registry

    ROOTS = {0x80000000: "HKCR", 0x80000001: "HKCU", 0x80000002: "HKLM"}

    def path(self, key, name):
        whole = self.ROOTS.get(key) or self.handles[key]
        return (whole + "\\" + name).rstrip("\\")

    def opened(self, path):
        handle = 0x500 + 4 * len(self.handles)
        self.handles[handle] = path
        return handle

    def find(self, path):
        return next((known for known in self.registry if known.lower() == path.lower()), None)

    def functions(self):
        return {**self._kernel(), **self._c_library(), **self._registry(), **self._automation(), **self._windows()}

    def _kernel(self):
        def error(value, answer=0):
            self.last_error = value
            return answer

        def storage_made(_):
            self.storage.append(0)
            return len(self.storage) - 1

        def stored(call):
            self.storage[call[0]] = call[1]
            return 1

        def module_of(call):
            flags, place = call[0], call[2]
            if not flags & 2:  # not GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT
                self.references += 1
            call.machine.put_number(place, call.machine.base)
            return 1

        def freed(_):
            self.references -= 1
            return 1

        def file_name(call):
            call.machine.write(call[1], FILE.encode("utf-16-le") + b"\0\0")
            return len(FILE)

        def protected(call):
            call.machine.put_number(call[3], 4)
            return 1

        def queried(call):
            # base, allocation base, allocation protection, size, state, protection, type
            call.machine.write(call[1], struct.pack("<7I", call[0] & ~0xFFF, call.machine.base, 4, 0x1000, 0x1000, 4, 0x1000000))
            return 28

        def ticks(_):
            self.ticks += 1
            return self.ticks

        def counted(call):
            self.ticks += 1
            call.machine.write(call[0], struct.pack("<Q", self.ticks))
            return 1

        def said(call):
            self.said.append(call.machine.bytes_to_zero(call[0]).decode("latin-1"))

        def wide(call):
            data = call.machine.bytes_to_zero(call[2]) + b"\0" if call.signed(3) < 0 else call.machine.read(call[2], call[3])
            text = data.decode("latin-1").encode("utf-16-le")
            if call[5]:
                call.machine.write(call[4], text[: 2 * call[5]])
            return len(text) // 2

        def narrow(call):
            if call.signed(3) < 0:
                text = call.machine.text(call[2]) + "\0"
            else:
                text = call.machine.text(call[2], call[3])
            data = text.encode("latin-1", "replace")
            if call[5]:
                call.machine.write(call[4], data[: call[5]])
            return len(data)

        def compared(call):
            texts = [call.machine.text(call[place], None if call.signed(place + 1) < 0 else call[place + 1]) for place in (2, 4)]
            if call[1] & 1:  # NORM_IGNORECASE
                texts = [text.lower() for text in texts]
            return 2 + (texts[0] > texts[1]) - (texts[0] < texts[1])

        nothing = lambda _: 0
        yes = lambda _: 1
        return by("kernel32", {
            "GetLastError": lambda _: self.last_error,
            "SetLastError": lambda call: error(call[0]),
            "InitializeCriticalSection": nothing, "DeleteCriticalSection": nothing,
            "EnterCriticalSection": nothing, "LeaveCriticalSection": nothing, "TryEnterCriticalSection": yes,
            "GetCurrentProcessId": lambda _: 0x400, "GetCurrentThreadId": lambda _: 0x404,
            "GetCurrentProcess": lambda _: 0xFFFFFFFF, "GetCurrentThread": lambda _: 0xFFFFFFFE,
            "GetModuleHandleA": nothing, "GetModuleHandleW": nothing, "LoadLibraryA": nothing, "LoadLibraryW": nothing,
            "GetProcAddress": nothing,
            "GetModuleHandleExW": module_of, "FreeLibrary": freed, "GetModuleFileNameW": file_name,
            "TlsAlloc": storage_made, "TlsGetValue": lambda call: self.storage[call[0]], "TlsSetValue": stored,
            "VirtualProtect": protected, "VirtualQuery": queried,
            "GetTickCount": ticks, "GetTickCount64": ticks, "QueryPerformanceCounter": counted,
            "QueryPerformanceFrequency": counted, "GetSystemTimeAsFileTime": counted,
            "AddVectoredExceptionHandler": lambda _: 0x7001, "RemoveVectoredExceptionHandler": yes,
            "CreateSemaphoreA": lambda _: 0x600, "CreateEventA": lambda _: 0x604, "CloseHandle": yes,
            "ReleaseSemaphore": yes, "SetEvent": yes, "ResetEvent": yes, "WaitForSingleObject": nothing,
            "DuplicateHandle": lambda call: call.machine.put_number(call[3], 0x608) or 1,
            "GetThreadPriority": nothing, "Sleep": nothing, "IsDebuggerPresent": nothing, "OutputDebugStringA": said,
            "MultiByteToWideChar": wide, "WideCharToMultiByte": narrow, "CompareStringW": compared,
            "MulDiv": lambda call: call.signed(0) * call.signed(1) // call.signed(2),
            "LocalFree": nothing, "FormatMessageW": nothing, "FormatMessageA": nothing,
            "GetPrivateProfileStringA": nothing, "GetPrivateProfileSectionNamesA": nothing,
            "DeleteFileW": nothing, "FindFirstFileW": lambda _: error(NOT_FOUND, 0xFFFFFFFF),
        })

    def _c_library(self):
        def filled(call):
            call.machine.write(call[0], bytes([call[1] & 0xFF]) * call[2])
            return call[0]

        def copied(call):
            call.machine.write(call[0], call.machine.read(call[1], call[2]))
            return call[0]

        def differs(call):
            left, right = (call.machine.read(call[place], call[2]) for place in (0, 1))
            return (left > right) - (left < right)

        def texts_differ(call, most=None):
            left, right = (call.machine.bytes_to_zero(call[place])[:most] for place in (0, 1))
            return (left > right) - (left < right)

        def byte_found(call):
            place = call.machine.read(call[0], call[2]).find(call[1] & 0xFF)
            return call[0] + place if place >= 0 else 0

        def duplicated(call):
            data = call.machine.bytes_to_zero(call[0]) + b"\0"
            place = call.machine.heap.take(len(data))
            call.machine.write(place, data)
            return place

        def ended(call):
            raise AssertionError("the DLL ends its host: " + "".join(self.said))

        heap = lambda call: call.machine.heap
        return by("msvcrt", {
            "malloc": lambda call: heap(call).take(call[0]),
            "calloc": lambda call: heap(call).take(call[0] * call[1], zeroed=True),
            "realloc": lambda call: heap(call).again(call[0], call[1]),
            "free": lambda call: heap(call).free(call[0]),
            "memset": filled, "memcpy": copied, "memmove": copied, "memcmp": differs, "memchr": byte_found,
            "strlen": lambda call: len(call.machine.bytes_to_zero(call[0])),
            "wcslen": lambda call: len(call.text(0)),
            "strcmp": texts_differ, "strncmp": lambda call: texts_differ(call, call[2]),
            "_strdup": duplicated, "_lock": lambda _: 0, "_unlock": lambda _: 0,
            "abort": ended, "exit": ended, "_amsg_exit": ended,
            "fwrite": lambda call: self.said.append(call.machine.read(call[0], call[1] * call[2]).decode("latin-1")) or call[2],
            "fputs": lambda call: self.said.append(call.machine.bytes_to_zero(call[0]).decode("latin-1")) or 0,
            "fputc": lambda call: self.said.append(chr(call[0] & 0xFF)) or call[0],
            "fprintf": lambda call: self.said.append(call.machine.bytes_to_zero(call[1]).decode("latin-1")) or 0,
            "vfprintf": lambda call: self.said.append(call.machine.bytes_to_zero(call[1]).decode("latin-1")) or 0,
            "_iob": bytes(32 * 3), "__mb_cur_max": struct.pack("<I", 1),
            "_setjmp3": lambda _: 0,
            "_initterm": INITTERM,
        })

    def _registry(self):
        def created(call, place, name):
            path = self.path(call[0], name)
            known = self.find(path)
            self.registry.setdefault(known or path, {})
            call.machine.put_number(call[place], self.opened(known or path))
            return SUCCESS

        def opened(call, place, name):
            known = self.find(self.path(call[0], name))
            if known is None:
                return NOT_FOUND
            call.machine.put_number(call[place], self.opened(known))
            return SUCCESS

        def ansi(call, index):
            return call.machine.bytes_to_zero(call[index]).decode("latin-1") if call[index] else ""

        def set_wide(call):
            data = call.machine.read(call[4], call[5])
            self.registry[self.handles[call[0]]][call.text(1)] = (call[3], data)
            return SUCCESS

        def set_ansi(call):
            data = call.machine.read(call[4], call[5])
            self.registry[self.handles[call[0]]][ansi(call, 1)] = (call[3], data)
            return SUCCESS

        def asked_ansi(call):
            if call[0] not in self.handles:
                return BAD_HANDLE
            found = self.registry[self.handles[call[0]]].get(ansi(call, 1))
            if not found:
                return NOT_FOUND
            kind, data = found
            if call[3]:
                call.machine.put_number(call[3], kind)
            if call[4]:
                call.machine.write(call[4], data)
            call.machine.put_number(call[5], len(data))
            return SUCCESS

        def informed(call):
            here = self.handles[call[0]]
            below = [key for key in self.registry if key.lower().startswith(here.lower() + "\\")]
            for place, count in ((4, len(below)), (7, len(self.registry[here]))):
                if call[place]:
                    call.machine.put_number(call[place], count)
            return SUCCESS

        def deleted(call):
            known = self.find(self.path(call[0], call.text(1)))
            if known is None:
                return NOT_FOUND
            for key in [key for key in self.registry if key == known or key.lower().startswith(known.lower() + "\\")]:
                del self.registry[key]
            return SUCCESS

        return by("advapi32", {
            "RegCreateKeyExW": lambda call: created(call, 7, call.text(1)),
            "RegCreateKeyA": lambda call: created(call, 2, ansi(call, 1)),
            "RegOpenKeyExW": lambda call: opened(call, 4, call.text(1)),
            "RegOpenKeyA": lambda call: opened(call, 2, ansi(call, 1)),
            "RegSetValueExW": set_wide, "RegSetValueExA": set_ansi, "RegQueryValueExA": asked_ansi,
            "RegQueryInfoKeyW": informed, "RegDeleteTreeW": deleted, "RegDeleteKeyW": deleted,
            "RegCloseKey": lambda call: SUCCESS if call[0] in self.handles else BAD_HANDLE,
        })

    def _automation(self):
        def text_made(call):
            length = call[1]
            place = call.machine.heap.take(4 + 2 * length + 2)
            data = call.machine.read(call[0], 2 * length) if call[0] else bytes(2 * length)
            call.machine.write(place, struct.pack("<I", 2 * length) + data + b"\0\0")
            return place + 4

        def text_freed(call):
            if call[0]:
                call.machine.heap.free(call[0] - 4)

        def emptied(call):
            empty(call.machine, call[0])
            call.machine.write(call[0], bytes(8))
            return OK

        def none(call):
            call.machine.write(call[0], bytes(16))

        names = {}  # a class id is the number of its name here

        def class_of(call):
            name = call.text(0)
            if name not in self.servers:
                return NOT_REGISTERED
            names[names.setdefault(name, len(names) + 1)] = name
            call.machine.write(call[1], struct.pack("<I12x", names[name]))
            return OK

        def made(call):
            name = names.get(call.machine.number(call[0]))
            if not name:
                return NOT_REGISTERED
            server = self.servers[name]
            found = server.part(call.machine.read(call[3], 16))
            call.machine.put_number(call[4], found.place if found else 0)
            if not found:
                return NO_INTERFACE
            found.references += 1
            return OK

        return {
            **by("oleaut32", {
                "SysAllocStringLen": text_made, "SysFreeString": text_freed,
                "SysStringLen": lambda call: call.machine.number(call[0] - 4) // 2 if call[0] else 0,
                "VariantInit": none, "VariantClear": emptied,
            }),
            **by("ole32", {
                "CLSIDFromProgID": class_of, "CoCreateInstance": made,
                "CoGetClassObject": lambda _: NOT_REGISTERED, "CoRegisterPSClsid": lambda _: OK,
                "CoRegisterClassObject": lambda call: call.machine.put_number(call[4], 1) or OK, "CoRevokeClassObject": lambda _: OK,
            }),
        }

    def _windows(self):
        return {
            **by("user32", {
                "GetDC": lambda _: 0x900, "ReleaseDC": lambda _: 1, "GetSystemMetrics": lambda _: 96,
                "RegisterWindowMessageW": lambda _: 0xC001, "LoadCursorW": lambda _: 0x904, "LoadIconW": lambda _: 0x908,
                "RegisterClassW": lambda _: 0xC010, "GetSysColorBrush": lambda _: 0x90C,
                "SetCursor": lambda _: 0, "PeekMessageW": lambda _: 0, "UnregisterClassW": lambda _: 1,
                "GetActiveWindow": lambda _: 0, "GetDesktopWindow": lambda _: 0x910,
                "EnumThreadWindows": lambda _: 1,
            }),
            **by("gdi32", {"GetDeviceCaps": lambda _: 96, "GetStockObject": lambda _: 0xA00, "DeleteObject": lambda _: 1}),
            **by("comctl32", {"InitCommonControlsEx": lambda _: 1}),
        }


def empty(machine, variant):
    """Gives back what a value of the system's holds."""
    kind = struct.unpack("<H", machine.read(variant, 2))[0]
    held = machine.number(variant + 8)
    if kind == 8 and held:  # VT_BSTR
        machine.heap.free(held - 4)
    elif kind in (9, 13) and held:  # VT_DISPATCH, VT_UNKNOWN
        release(machine, held)


def method(machine, unknown, place):
    """The address of an interface's operation, counted from 0."""
    return machine.number(machine.number(unknown) + 4 * place)


def release(machine, unknown):
    return machine.call(method(machine, unknown, 2), unknown, what="Release")


def by(library, functions):
    return {(library, name): function for name, function in functions.items()}


# _initterm(first, last): calls each function of a table but the null ones.
#   push ebx; push esi; mov ebx,[esp+12]; mov esi,[esp+16]
#   next: cmp ebx,esi; jae done; mov eax,[ebx]; add ebx,4; test eax,eax; jz next; call eax; jmp next
#   done: pop esi; pop ebx; ret
INITTERM = Code(bytes.fromhex("53568b5c240c8b74241039f3730d8b0383c30485c074f3ffd0ebef5e5bc3"))
