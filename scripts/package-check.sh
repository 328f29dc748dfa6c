#!/usr/bin/env bash
# Checks the Debian package as a new user would meet it: lintian finds no
# error; unpacked into a fresh root, the installed console answers --version
# and, headless, finds its skin and demo show where the package put them and
# writes its settings to ~/.config/quintara.
#   scripts/package-check.sh [PACKAGE_BUILD_DIR]
set -uo pipefail
cd "$(dirname "$0")/.."
build=${1:-build-package}
deb=$(ls -t "$build"/quintara_*.deb 2>/dev/null | head -1)
[ -n "$deb" ] || { echo "FAIL: no package in $build (make package)"; exit 1; }
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
echo "checking $deb"

# lintian: errors fail, warnings are shown.
lintian --fail-on error "$deb" | tee "$root/lintian.txt" || fail "lintian reports errors"

fields=$(dpkg-deb --field "$deb" Depends Recommends)
for dep in libqt6widgets6 libftdi1 librtmidi gstreamer1.0-plugins-good qt6-qpa-plugins; do
  grep -q "$dep" <<<"$fields" || fail "Depends does not name $dep: $fields"
done
grep -q '^Recommends:.*\bola\b' <<<"$fields" || fail "OLA is not recommended: $fields"

dpkg -x "$deb" "$root/fs" || fail "dpkg -x"
for f in usr/bin/quintara usr/share/quintara/skins/default.bmp usr/share/quintara/examples/demo.qsh \
  usr/share/applications/org.quintara.Quintara.desktop usr/share/metainfo/org.quintara.Quintara.metainfo.xml \
  usr/share/icons/hicolor/scalable/apps/quintara.svg usr/share/man/man1/quintara.1.gz \
  lib/udev/rules.d/70-quintara-dmx.rules usr/share/doc/quintara/command-language.md; do
  [ -e "$root/fs/$f" ] || fail "the package lacks /$f"
done
grep -q 'ATTR{idVendor}=="0403".*TAG+="uaccess"' "$root/fs/lib/udev/rules.d/70-quintara-dmx.rules" ||
  fail "the udev rule does not give FTDI adapters to the seat's user"
if command -v desktop-file-validate >/dev/null; then
  desktop-file-validate "$root/fs/usr/share/applications/org.quintara.Quintara.desktop" ||
    fail "desktop entry"
fi
if command -v appstreamcli >/dev/null; then
  appstreamcli validate --no-net --pedantic "$root/fs/usr/share/metainfo/org.quintara.Quintara.metainfo.xml" \
    >"$root/appstream.txt" 2>&1 || { cat "$root/appstream.txt"; fail "AppStream metainfo"; }
fi
man -l "$root/fs/usr/share/man/man1/quintara.1.gz" 2>&1 >/dev/null | grep . && fail "the manual page has faults"

# The unpacked console, as an ordinary user's session without a screen would run it.
bin=$root/fs/usr/bin/quintara
user=$root/user
mkdir -p "$user"
run() { env -u DISPLAY -u QT_QPA_PLATFORM -u XDG_CONFIG_HOME HOME="$user" "$@"; }
version=$(run "$bin" --version) || fail "--version ended with an error"
grep -q '^quintara [0-9]' <<<"$version" || fail "--version printed: $version"

share=$root/fs/usr/share/quintara
printf 'get Skin\nload show %s\nget ShowName\nget CueCount\n' "$share/examples/demo.qsh" >"$root/check.qcmd"
out=$(run "$bin" --headless --virtual-clock -nosplash --script "$root/check.qcmd" 2>"$root/err") ||
  fail "the headless check ended with an error: $out $(cat "$root/err")"
echo "$out"
grep -q "^Skin = $share/skins/default.bmp$" <<<"$out" || fail "the installed skin was not found"
grep -q '^MSGBOX' <<<"$out" && fail "a box opened"
grep -q '^ShowName = Unnamed$' <<<"$out" && fail "the demo show was not loaded"
[ -s "$root/err" ] && fail "standard error: $(cat "$root/err")"
[ -f "$user/.config/quintara/Quintara.INI" ] || fail "no settings in ~/.config/quintara"
ls "$root/fs/usr/bin" | grep -qv '^quintara$' && fail "stray files in /usr/bin"
echo "ok: $(basename "$deb") builds, passes lintian, and runs from a fresh root"
