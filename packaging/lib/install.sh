# shellcheck shell=bash
# Installs what is missing: Debian packages by name, and the one npm package that carries the SQLite amalgamation.

build_packages=(cmake ninja-build g++ ccache pkg-config g++-mingw-w64-x86-64 g++-mingw-w64-i686 libgmime-3.0-dev
    libxml2-dev nlohmann-json3-dev libcli11-dev libgtest-dev libgmock-dev googletest libbenchmark-dev python3)
wine_packages=(wine wine64 fonts-wine xvfb openbox xdotool imagemagick)
package_packages=(wixl msitools zip)
package_check_packages=(osslsigncode openssl libxml2-utils)
emulator_packages=(python3-unicorn python3-pefile)
check_packages=(clang-format clang-tidy "${package_packages[@]}" "${package_check_packages[@]}" "${emulator_packages[@]}")

# install_packages NAME...: one query tells what is missing; apt is called only then.
install_packages() {
    local have name missing=() log=$BUILD/logs/apt.log apt=(env DEBIAN_FRONTEND=noninteractive apt-get)
    apt+=(-o DPkg::Lock::Timeout=300)
    command -v dpkg-query >/dev/null && command -v apt-get >/dev/null ||
        fail "this is made for Debian 12: apt-get is not here, so these packages must be brought in by hand: $*"
    have=$(dpkg-query --show --showformat='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    for name in "$@"; do
        grep -qxF "installed $name" <<<"$have" || missing+=("$name")
    done
    ((${#missing[@]} > 0)) || return 0

    if ((EUID != 0)); then
        command -v sudo >/dev/null ||
            fail "these packages are missing, and without root or sudo they can't be installed: ${missing[*]}; as root: apt-get install --no-install-recommends ${missing[*]}"
        say "sudo may ask for a password now"
        apt=(sudo "${apt[@]}")
        sudo -v || fail "sudo refused, so these packages can't be installed: ${missing[*]}"
    fi
    say "installing packages: ${missing[*]}"
    with_progress "fetching the package lists" "$log" "${apt[@]}" update ||
        say "the package lists could not be fetched; trying with those that are here"
    with_progress "installing packages" "$log" "${apt[@]}" install -y --no-install-recommends \
        "${missing[@]}" || {
        show_tail "$log"
        fail "these packages could not be installed: ${missing[*]}; see to it that apt-get reaches a Debian 12 mirror, or install them by: apt-get install --no-install-recommends ${missing[*]}"
    }
}

# The pinned packages of package-lock.json, without their install scripts: only one C file of them is compiled.
install_libraries() {
    local stamp=$ROOT/node_modules/.tarnwell-stamp hash log=$BUILD/logs/npm.log
    hash=$(cat "$ROOT/package.json" "$ROOT/package-lock.json" | sha256sum)
    if [[ -f $stamp && $(<"$stamp") == "$hash" && -f $ROOT/node_modules/better-sqlite3/deps/sqlite3/sqlite3.c ]]; then
        return 0
    fi
    command -v npm >/dev/null || install_packages nodejs npm
    with_progress "fetching the SQLite sources with npm" "$log" \
        npm --prefix "$ROOT" ci --ignore-scripts --no-audit --no-fund || {
        show_tail "$log"
        fail "the npm package better-sqlite3 could not be fetched; see to it that npm reaches its registry (npm config get registry) and try again"
    }
    printf '%s\n' "$hash" >"$stamp"
}
