"""Runs the 32-bit TarnwellNote.dll in an emulator, as a 32-bit host would.

    run_dll.py FILE OTHER

OTHER is the 64-bit DLL, which exports the same and needs the same of the system. There is no 32-bit Wine on many machines, so this is where that DLL is seen at work: loaded and told of the process, registered, made
by its class object, connected to a host of Python objects, told of events, asked by names, disconnected, unloaded. Each call of its
functions is held to take as many bytes from the stack as it was given, to keep its caller's registers, and to get along with a stack
that is aligned to four bytes only. At the end nothing of the host is held and no block of memory is left over.
"""

import struct
import sys

import pefile

import host
import windows
from machine import Fault, Machine

CONNECT = host.guid("A9939A0C-D199-41D1-9BDD-2217BB6DD341")
CLASS_FACTORY = host.guid("00000001-0000-0000-C000-000000000046")
EXTENSIBILITY = host.guid("B65AD801-ABAF-11D0-BB8B-00A0C90F2744")
ITEMS_EVENTS = host.guid("00063077-0000-0000-C000-000000000046")
INSPECTORS_EVENTS = host.guid("00063079-0000-0000-C000-000000000046")
ITEM_ADD, ITEM_CHANGE, NEW_INSPECTOR = 0xF001, 0xF002, 0xF001

# the operations of interfaces, counted from 0
QUERY, ADD_REF, RELEASE = range(3)
CREATE_INSTANCE, LOCK_SERVER = 3, 4
TYPE_INFO_COUNT, TYPE_INFO, IDS_OF_NAMES, INVOKE = range(3, 7)
ON_CONNECTION, ON_DISCONNECTION, ON_ADD_INS_UPDATE, ON_STARTUP_COMPLETE, ON_BEGIN_SHUTDOWN = range(7, 12)


class Desk:
    """A host with an explorer, folders and the family's object, and what was asked of them."""

    def __init__(self, machine, system):
        self.machine, self.asked, self.all = machine, [], []
        self.items = {number: self.object(f"Items{number}", {"Count": 0}) for number in (6, 9, 13)}
        folders = {number: self.object(f"Folder{number}", {"Items": items}) for number, items in self.items.items()}
        contact = self.object("Contact", {
            "FullName": "Ann One", "EntryID": "C1",
            "UserProperties": self.properties("Contact", {"AccountID": "A-1", "ContactID": "C-1"}),
        })
        self.note_properties = {}
        self.note = self.object("Note", {
            "MessageClass": "IPM.Post.Note", "Subject": "", "Body": "", "Categories": "", "BillingInformation": "",
            "UserProperties": self.properties("Note", self.note_properties), "Post": self.posted, "Save": None,
            "Attachments": self.object("Attachments", {"Add": lambda *_: None, "Count": 0}),
        })
        notes = self.object("NoteItems", {"Add": lambda _: self.note, "Count": 0})
        found = self.object("ContactItems", {"Count": 1, "Find": lambda text: contact if "ann@one.example" in text else None})
        below = {"Account Contacts": self.object("AccountContacts", {"Items": found}),
                 "Email": self.object("Email", {"Items": notes})}
        profiles = self.object("AccountProfiles", {"Folders": self.object("Folders", {"Item": lambda name: below[name]})})
        self.posts = 0
        native, kind = 0x0C1F001E, 0x0C1E001E
        safe = self.object("SafeMailItem", {
            "Item": None, "To": "Pat Example", "SenderName": "Ann One", "Subject": "Hello", "Body": "Dear Pat", "SentOn": 38000.25,
            "Fields": lambda tag: {native: "ann@one.example", kind: "SMTP"}.get(tag, ""), "EntryID": "1",
        })
        session = self.object("Session", {
            "GetDefaultFolder": lambda number: folders[number],
            "GetFolderFromID": lambda *_: profiles,
        })
        bars = self.object("CommandBars", {"Item": self.raises("There is no such bar.")})
        explorer = self.object("Explorer", {"CommandBars": bars, "Caption": "Inbox"})
        self.inspectors = self.object("Inspectors", {"Count": 0})
        self.entry = self.object("COMAddIn", {"Object": None, "ProgId": "CreateNote.Connect"})
        self.application = self.object("Application", {
            "Version": "16.0.0.0", "ActiveExplorer": explorer, "Inspectors": self.inspectors,
            "Explorers": self.object("Explorers", {"Count": 1}), "GetNamespace": lambda _: session, "Session": session,
            "COMAddIns": self.object("COMAddIns", {"Item": lambda _: self.entry}),
        })
        family = self.object("Tarnwell.connect", {
            "GetFolderId": lambda _: "folder", "GetStoreId": "store", "getcurrentusername": "Pat Example", "getEmailAutoFile": "1",
        })
        system.servers.update({"Outlook.Application": self.application, "Tarnwell.connect": family, "TarnwellOMG.SafeMailItem": safe})

    def object(self, name, members):
        self.all.append(host.Object(self.machine, name, members, self.asked))
        return self.all[-1]

    def posted(self, *_):
        self.posts += 1

    def properties(self, owner, values):
        """User properties by their names; one that is not there is made by `Add`."""
        def found(name, *_):
            values.setdefault(name, "")
            one = self.object(f"{owner}[{name}]", {"Value": values[name], "Name": name})
            one.changed = lambda value: values.update({name: value})
            return one
        return self.object(f"{owner}.UserProperties", {
            "Find": lambda name, *_: found(name) if name in values else None, "Item": found, "Add": found, "Count": 0,
        })

    @staticmethod
    def raises(text):
        def member(*_):
            raise host.Raised(text)
        return member


def check(what, held, told=""):
    if not held:
        raise Fault(f"{what}{': ' if told else ''}{told}")


class Run:
    def __init__(self, file, alignment, base=None):
        self.system = windows.System()
        self.machine = Machine(self.system.functions(), alignment)
        self.machine.load(file, base)

    def ask(self, unknown, place, *arguments, what):
        return self.machine.call(windows.method(self.machine, unknown, place), unknown, *arguments, what=what)

    def block(self, data):
        place = self.machine.heap.take(len(data))
        self.machine.write(place, data)
        return place

    def object_of(self, what, ask):
        """The object that a call answers at the address that it is handed. `ask`: the call by that address, and its result."""
        answer = self.block(bytes(4))
        check(what, ask(answer) == windows.OK)
        found = self.machine.number(answer)
        self.machine.heap.free(answer)
        return found

    def registers_itself(self):
        exports, registry = self.machine.exports, self.system.registry
        check("DllRegisterServer", self.machine.call(exports["DllRegisterServer"]) == windows.OK)
        server = registry["HKCU\\Software\\Classes\\CLSID\\{A9939A0C-D199-41D1-9BDD-2217BB6DD341}\\InprocServer32"]
        check("the file of the class", server[""][1].decode("utf-16-le") == windows.FILE + "\0")
        entry = registry["HKCU\\Software\\Microsoft\\Office\\Outlook\\Addins\\CreateNote.Connect"]
        check("LoadBehavior", entry["LoadBehavior"] == (4, struct.pack("<I", 3)))
        check("DllUnregisterServer", self.machine.call(exports["DllUnregisterServer"]) == windows.OK)
        check("what registering leaves", all(not values for values in registry.values()), str(registry))

    def add_in(self):
        """The add-in's object by its host's interface."""
        class_id, factory_id, wanted = self.block(CONNECT), self.block(CLASS_FACTORY), self.block(EXTENSIBILITY)
        get = self.machine.exports["DllGetClassObject"]
        factory = self.object_of("DllGetClassObject", lambda answer: self.machine.call(get, class_id, factory_id, answer,
                                                                                       what="DllGetClassObject"))
        check("LockServer", self.ask(factory, LOCK_SERVER, 1, what="LockServer") == windows.OK)
        check("DllCanUnloadNow of a locked server", self.machine.call(self.machine.exports["DllCanUnloadNow"]) == windows.FALSE)
        check("LockServer", self.ask(factory, LOCK_SERVER, 0, what="LockServer") == windows.OK)
        made = self.object_of("CreateInstance", lambda answer: self.ask(factory, CREATE_INSTANCE, 0, wanted, answer,
                                                                       what="CreateInstance"))
        self.ask(factory, RELEASE, what="Release")
        for place in (class_id, factory_id, wanted):
            self.machine.heap.free(place)
        return made

    def id_of(self, dispatch, name):
        text = self.machine.text_block(name)
        names, answer, nothing = self.block(struct.pack("<I", text)), self.block(bytes(4)), self.block(bytes(16))
        result = self.ask(dispatch, IDS_OF_NAMES, nothing, names, 1, 0, answer, what="GetIDsOfNames")
        number = self.machine.number(answer)
        for place in (text, names, answer, nothing):
            self.machine.heap.free(place)
        return number if result == windows.OK else None

    def invoke(self, dispatch, number, *values, flags=1):
        """The result of a call by its number, and the number or text that it answers."""
        variants = self.block(bytes(16 * max(len(values), 1)))
        helper = host.Object(self.machine, "arguments", {}, [])
        for place, value in enumerate(reversed(values)):
            helper.give(variants + 16 * place, value)
        parameters = self.block(struct.pack("<4I", variants, 0, len(values), 0))
        answer, nothing, details = self.block(bytes(16)), self.block(bytes(16)), self.block(bytes(32))
        result = self.ask(dispatch, INVOKE, number, nothing, 0x400, flags, parameters, answer, details, 0, what="Invoke")
        value = helper.value(answer)
        for variant in [answer] + [variants + 16 * place for place in range(len(values))]:
            windows.empty(self.machine, variant)
        for place in (variants, parameters, answer, nothing, details):
            self.machine.heap.free(place)
        return result, value

    def tell(self, source, interface, event, *values):
        """An event of a host's object, to all who listen."""
        point = source.container.points.get(interface)
        check(f"nobody listens to {source.name}", point and point.listeners)
        for listener in list(point.listeners.values()):
            result, _ = self.invoke(listener, event, *values)
            check(f"an event of {source.name}", result == windows.OK, f"{result:#x} {source.asked[-12:]}")

    def lives(self):
        """One life of the add-in in a host. Answers what it asked of the host."""
        desk = Desk(self.machine, self.system)
        connect = self.add_in()
        own = desk.object("AddInInst", {"ProgId": "CreateNote.Connect", "Object": None})
        for place, arguments, what in (
            (ON_CONNECTION, (desk.application.place, 1, own.place, 0), "OnConnection"),
            (ON_ADD_INS_UPDATE, (0,), "OnAddInsUpdate"),
            (ON_STARTUP_COMPLETE, (0,), "OnStartupComplete"),
        ):
            check(what, self.ask(connect, place, *arguments, what=what) == windows.OK)

        count = self.block(bytes(4))
        check("GetTypeInfoCount", self.ask(connect, TYPE_INFO_COUNT, count, what="GetTypeInfoCount") == windows.OK)
        self.ask(connect, TYPE_INFO, 0, 0, count, what="GetTypeInfo")
        self.machine.heap.free(count)

        wanted = self.block(host.IDISPATCH)
        published = self.object_of("IDispatch", lambda answer: self.ask(connect, QUERY, wanted, answer, what="QueryInterface"))
        self.machine.heap.free(wanted)
        exists = self.id_of(published, "FileExists")
        check("the number of FileExists", exists is not None)
        check("a name that nobody knows", self.id_of(published, "Nonsense") is None)
        result, answer = self.invoke(published, exists, "C:\\nowhere.txt")
        check("FileExists", result == windows.OK and not answer, f"{result:#x} {answer}")
        result, _ = self.invoke(published, exists)
        check("FileExists without a file", result != windows.OK)  # what is thrown inside comes out as a number
        windows.release(self.machine, published)

        mail = desk.object("Mail", {
            "Class": 43, "EntryID": "1", "BillingInformation": "", "Body": "Dear Pat", "Save": None, "Size": 100,
            "MessageClass": "IPM.Note", "UnRead": False, "Subject": "Hello", "SenderEmailAddress": "ann@one.example",
            "UserProperties": desk.properties("Mail", {}), "Categories": "", "Sensitivity": 0, "ReceivedTime": 38000.5,
        })
        self.tell(desk.items[6], ITEMS_EVENTS, ITEM_ADD, mail)
        self.tell(desk.items[6], ITEMS_EVENTS, ITEM_CHANGE, mail)
        self.tell(desk.items[9], ITEMS_EVENTS, ITEM_CHANGE, mail)
        self.tell(desk.inspectors, INSPECTORS_EVENTS, NEW_INSPECTOR, desk.object("Inspector", {"CurrentItem": mail}))

        filed = {name: value for name, value in desk.note_properties.items() if value != ""}
        check("the note", filed == FILED and desk.posts == 1, f"{desk.posts} {filed}")
        check("the mail's mark", mail.members["BillingInformation"] == "TW Auto Filed")

        for place, arguments, what in ((ON_BEGIN_SHUTDOWN, (0,), "OnBeginShutdown"), (ON_DISCONNECTION, (0, 0), "OnDisconnection")):
            check(what, self.ask(connect, place, *arguments, what=what) == windows.OK)
        windows.release(self.machine, connect)
        held = {one.name: one.references for one in desk.all if one.references}
        # the desk's entry of the add-in holds what the add-in has put there
        check("what of the host is held at the end", not held, str(held))
        check("DllCanUnloadNow", self.machine.call(self.machine.exports["DllCanUnloadNow"]) == windows.OK)
        return desk.asked


# What the note of the mail bears.
FILED = {"AccountID": "A-1", "ContactID": "C-1", "Contact Name": "Ann One", "Type": "Email (Received)", "Activity Date": 38000.25}

# The promise of a 32-bit stack is four bytes, so each place to which it can be aligned; and one image that is moved.
RUNS = [(0, None), (1, None), (2, None), (3, None), (0, 0x30000000)]


def names_of(file):
    """What a DLL exports, and what it imports but from the C library, by names that both kinds have in common."""
    image = pefile.PE(file)
    imported = {
        f"{library.dll.decode().lower()} {entry.name.decode().replace('LongPtr', 'Long')}"
        for library in image.DIRECTORY_ENTRY_IMPORT for entry in library.imports
    }
    exported = {entry.name.decode() for entry in image.DIRECTORY_ENTRY_EXPORT.symbols}
    return exported, {name for name in imported if not name.startswith("msvcrt.dll") and name not in RUNTIME}


# What the compilers' own libraries need on one of the two kinds.
RUNTIME = {f"kernel32.dll {name}" for name in ("LoadLibraryA", "RtlCaptureContext", "RtlLookupFunctionEntry", "RtlUnwindEx",
                                               "RtlVirtualUnwind", "__C_specific_handler")}


def main(file, other):
    check("is no 32-bit DLL", pefile.PE(file, fast_load=True).FILE_HEADER.Machine == pefile.MACHINE_TYPE["IMAGE_FILE_MACHINE_I386"])
    (exports, imports), (other_exports, other_imports) = names_of(file), names_of(other)
    check("exports other names than the 64-bit DLL", exports == other_exports, str(exports ^ other_exports))
    check("imports other names than the 64-bit DLL", imports == other_imports, str(imports ^ other_imports))
    for alignment, base in RUNS:
        run = Run(file, alignment, base)
        run.registers_itself()
        run.lives()
        before = len(run.machine.heap.live)
        asked = run.lives()
        check("blocks of memory left by a life", len(run.machine.heap.live) == before, f"{before}, then {len(run.machine.heap.live)}")
        run.machine.unload()
        check("references to itself", run.system.references == 1, str(run.system.references))
    system = sorted(name for name in run.machine.called if name.split(".")[0] in LIBRARIES)
    print(f"{len(RUNS)} runs: {len(asked)} calls of the host in a life, {len(system)} functions of the system")


LIBRARIES = {"advapi32", "comctl32", "gdi32", "kernel32", "msvcrt", "ole32", "oleaut32", "shell32", "user32"}

if __name__ == "__main__":
    try:
        main(*sys.argv[1:3])
    except Fault as fault:
        sys.exit(f"{sys.argv[1]}: {fault}")
