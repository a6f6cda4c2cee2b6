#!/usr/bin/env bash
# Builds the Debian package from a configured build folder, unpacks it into a scratch root and runs
# the installed numarel-cli as a user would, with HOME and XDG_DATA_HOME in a scratch folder.
#   test_package.sh BUILD_DIR SOURCE_DIR
set -euo pipefail
build=$(realpath "$1")
source=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

(cd "$build" && cpack -G DEB -B "$work/pkg" >/dev/null)
deb=$(ls "$work"/pkg/numarel_*_*.deb)
root=$work/root
dpkg-deb -x "$deb" "$root"
cli=$root/usr/bin/numarel-cli
[ -x "$cli" ] || fail "no numarel-cli in the package"
[ -f "$root/usr/share/numarel/data/Synthetic-Demo.txt" ] || fail "no sample lottery"
[ -d "$root/usr/share/numarel/help" ] || fail "no help pages"
snapshot() { (cd "$root" && find . -printf '%p %s %T@\n' | sort); }
installed=$(snapshot)

unset NUMAREL_HOME XDG_DATA_HOME
export HOME=$work/home
mkdir -p "$HOME"
user=$HOME/.local/share/numarel

# The first run sets up the user's folder and reports on the sample.
out=$("$cli" report frmbjiouhe --tail 2)
grep -q ':' <<<"$out" || fail "no report of the sample: $out"
[ "$("$cli" where)" = "$user" ] || fail "where: $("$cli" where)"
[ -f "$user/data/Synthetic-Demo.txt" ] || fail "the sample was not copied"
grep -q '"Synthetic-Demo.txt"' "$user/Numarel/shujuwenjian.ini" || fail "no selection file"

# What the user keeps there survives a second run and a reinstall, the sample included.
printf '2020001 1 2 3\r\n2020002 4 5 6\r\n' > "$user/data/Mine.txt"
printf '"Mine.txt"\r\n' > "$user/Numarel/shujuwenjian.ini"
echo "2020999 9 9 9" >> "$user/data/Synthetic-Demo.txt"
before=$(cd "$user" && find . -type f -exec md5sum {} + | sort)
"$cli" report frmbjiouhe --tail 1 | grep -q '2020002:456' || fail "the user's lottery is not current"
dpkg-deb -x "$deb" "$root"
"$cli" list >/dev/null
after=$(cd "$user" && find . -type f -exec md5sum {} + | sort)
[ "$before" = "$after" ] || fail "the user's folder changed"

# XDG_DATA_HOME moves the folder; NUMAREL_HOME wins over everything, relative to the current folder.
[ "$(XDG_DATA_HOME=$work/xdg "$cli" where)" = "$work/xdg/numarel" ] || fail "XDG_DATA_HOME"
[ -f "$work/xdg/numarel/data/Synthetic-Demo.txt" ] || fail "XDG folder not set up"
[ "$(cd "$work" && NUMAREL_HOME=mine XDG_DATA_HOME=$work/xdg "$cli" where)" = "$work/mine" ] ||
  fail "NUMAREL_HOME"

# A home that cannot hold the folder: one clear line and a non-zero exit.
touch "$work/file"
if msg=$(HOME=$work/file "$cli" list 2>&1); then fail "a home under a file was accepted"; fi
grep -q "$work/file" <<<"$msg" || fail "the message does not name the folder: $msg"

# The installed tree was never written (a reinstall puts the same files back).
[ "$(snapshot | awk '{print $1, $2}')" = "$(awk '{print $1, $2}' <<<"$installed")" ] ||
  fail "the installed tree changed"

# The package's own checks, where their tools are installed.
if command -v lintian >/dev/null && command -v appstreamcli >/dev/null &&
   command -v desktop-file-validate >/dev/null; then
  "$source/scripts/check_package.sh" "$deb" >/dev/null 2>&1 || "$source/scripts/check_package.sh" "$deb"
fi
echo "package test passed"
