# A machine that lacks a package and can't get it hears which one, in one sentence at the end, and how to get it.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"
unset TARNWELL_PREPARED

# Stand-ins for the package tools: all is there but xdotool, and no mirror answers.
mkdir "$work/bin"
cat >"$work/bin/dpkg-query" <<'SH'
#!/bin/bash
for name in "$@"; do [[ $name == -* || $name == xdotool ]] || echo "installed $name"; done
SH
cat >"$work/bin/apt-get" <<SH
#!/bin/bash
echo "apt-get \$*" >>"$work/apt.calls"
echo "E: no mirror" >&2
exit 100
SH
printf '#!/bin/bash\nexec "$@"\n' >"$work/bin/sudo"
sed -i '1a [[ $1 != -v ]] || exit 0' "$work/bin/sudo"
chmod +x "$work"/bin/*
PATH=$work/bin:$PATH expect 1 ./tarnwell build
says "installing packages: xdotool"
[[ $(tail -n 1 <<<"$err") == *"could not be installed: xdotool; "*"apt-get install"* ]] || wrong "the end is: $err"
grep -q "install -y --no-install-recommends xdotool" "$work/apt.calls" || wrong "apt was asked for $(<"$work/apt.calls")"
