# What `./tarnwell package` makes: two builds are the same byte for byte, wherever they stand; installers and zip hold the same files of
# one version, for one user; and each program and installer bears a signature where a command signs.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"
parts say install build package
install_packages "${package_packages[@]}" "${package_check_packages[@]}"

lock "$BUILD/package-tests.lock" "another test of the packages runs; waiting for it"
env -u TARNWELL_PREPARED -u TARNWELL_SIGN ./tarnwell package
version=$(project_version)
cp -r build/packages "$work/first"
first=$work/first
for kind in x64 x86; do
    make_package "$kind" "$version" "$work/second"
    cmp "$first/TarnwellNote-$version-$kind.msi" "$work/second/TarnwellNote-$version-$kind.msi" || wrong "the installers differ"
done
make_policy "$version" "$work/second/policy"
make_zip "$work/second" "$work/second.zip" x64 x86 policy
cmp "$first/TarnwellNote-$version.zip" "$work/second.zip" || wrong "the zips differ"

# property KIND NAME: of an installer.
property() { msiinfo export "$first/TarnwellNote-$version-$1.msi" Property | tr -d '\r' | sed -n "s/^$2\t//p"; }
for kind in x64 x86; do
    installer=$first/TarnwellNote-$version-$kind.msi
    mkdir -p "$work/$kind"
    (cd "$work/$kind" && msiextract "$installer" >/dev/null)
    diff -r "$work/$kind/Programs/Tarnwell" "$work/second/$kind" || wrong "installer and zip hold other files"
    [[ $(property "$kind" ProductVersion) == "$version" ]] || wrong "the installer is of version $(property "$kind" ProductVersion)"
    msiinfo suminfo "$installer" | grep '^Source: 10 ' >/dev/null || wrong "the installer asks for an administrator"
    [[ -z $(property "$kind" ALLUSERS) ]] || wrong "the installer installs for everybody"
done
[[ $(property x64 ProductCode) != "$(property x86 ProductCode)" ]] || wrong "two packages have one id"
[[ $(property x64 UpgradeCode) == "$(property x86 UpgradeCode)" ]] || wrong "one kind does not replace the other"
x86_64-w64-mingw32-objdump -f "$work/second/x64/TarnwellNote.dll" | grep pei-x86-64 >/dev/null || wrong "the DLL for x64 is another one"
i686-w64-mingw32-objdump -f "$work/second/x86/TarnwellNote.dll" | grep pei-i386 >/dev/null || wrong "the DLL for x86 is another one"
while read -r told; do
    [[ $told == "$version" ]] || wrong "docs/ tells of version $told"
done < <(grep -ohE 'TarnwellNote-[0-9.]+[0-9]' docs/*.md | sed 's/^TarnwellNote-//')

# A certificate for the test, and a command with arguments that signs by it.
openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj '/CN=Tarnwell test' -addext extendedKeyUsage=codeSigning \
    -keyout "$work/key.pem" -out "$work/certificate.pem" 2>/dev/null
cat >"$work/sign it" <<'SH'
#!/bin/bash
set -e
echo "$2" >>"$1/signed"
osslsigncode sign -certs "$1/certificate.pem" -key "$1/key.pem" -h sha256 -in "$2" -out "$2.signed"
mv "$2.signed" "$2"
SH
chmod +x "$work/sign it"
export TARNWELL_SIGN="'$work/sign it' '$work'"
make_package x64 "$version" "$work/third"
mapfile -t files < <(find "$work/third" -name '*.dll' -o -name '*.exe' -o -name '*.msi')
((${#files[@]} == 7)) || wrong "there are ${#files[@]} programs and installers, not 7"
for file in "${files[@]}"; do
    osslsigncode verify -CAfile "$work/certificate.pem" -in "$file" >"$work/verified" 2>&1 || wrong "$file is not signed: $(<"$work/verified")"
done
[[ $(tail -n 1 "$work/signed") == *.msi ]] || wrong "the installer was signed before its files"
mkdir "$work/signed files"
(cd "$work/signed files" && msiextract "$work/third/TarnwellNote-$version-x64.msi" >/dev/null)
diff -r "$work/signed files/Programs/Tarnwell" "$work/third/x64" || wrong "the installer holds files without signatures"

unsigned() (
    TARNWELL_SIGN=false
    make_package x64 "$version" "$work/fourth"
)
expect 1 unsigned
says "could not sign TarnwellNote.dll"
