# The 32-bit DLL runs in an emulator as it would in a 32-bit Outlook: Wine for 32-bit programs is not to be had everywhere.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"
parts say install build
install_packages "${build_packages[@]}" "${emulator_packages[@]}"

lock "$BUILD/build.lock" "another ./tarnwell is building; waiting for it"
for preset in x86 x64; do build_preset "$preset" TarnwellNote; done
unlock
dll=build/x86/bin/TarnwellNote.dll other=build/x64/bin/TarnwellNote.dll
python=/usr/bin/python3 # Debian's own, which has the packages

expect 0 "$python" tests/x86/run_dll.py "$dll" "$other"
[[ $out =~ ^5\ runs:\ [0-9]{3}\ calls ]] || wrong "it was not run: $out"

# What it would say of a DLL whose functions take nothing from the stack, as those of C do.
"$python" - "$dll" "$work/planted.dll" <<'PLANT'
import sys
import pefile
image = pefile.PE(sys.argv[1])
start = next(e.address for e in image.DIRECTORY_ENTRY_EXPORT.symbols if e.name == b"DllGetClassObject")
place = image.get_offset_from_rva(start)
with open(sys.argv[1], "rb") as file:
    data = bytearray(file.read())
data[place:place + 6] = b"\x31\xc0\xc3\x90\x90\x90"  # xor eax, eax; ret
with open(sys.argv[2], "wb") as file:
    file.write(data)
PLANT
expect 1 "$python" tests/x86/run_dll.py "$work/planted.dll" "$other"
says "DllGetClassObject takes 0 bytes of arguments from the stack instead of 12"
expect 1 "$python" tests/x86/run_dll.py "$other" "$other"
says "is no 32-bit DLL"
