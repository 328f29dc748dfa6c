#!/usr/bin/env bash
# The first minutes of a new user: --help and --version answer without a
# screen, and a start on a bare machine (no display, no XDG_RUNTIME_DIR, no
# olad, maybe no ALSA sequencer or sound) says each missing thing once, in one
# plain line, and nothing else on standard error.
#
#   quiet_start.sh QUINTARA      exit 0 pass, 1 fail
set -u
bin=$1
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

# A session as ssh or a service manager gives it: no display, no runtime folder.
bare() { env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM -u XDG_RUNTIME_DIR \
  HOME="$work/user" XDG_CONFIG_HOME= "$@"; }
mkdir -p "$work/user"

for word in --help --version; do
  bare "$bin" $word >"$work/out" 2>"$work/err"
  status=$?
  [ $status -eq 0 ] || fail "$word ended with $status: $(cat "$work/err")"
  [ -s "$work/err" ] && fail "$word wrote to standard error: $(cat "$work/err")"
done
grep -q '^Usage: quintara' "$work/out" && fail "--version printed the usage"
grep -q '^quintara [0-9]' "$work/out" || fail "--version printed: $(cat "$work/out")"
bare "$bin" --help | grep -q -- '--headless' || fail "--help does not mention --headless"

# The headless console on the real clock with the OLA interface chosen and no
# olad listening (a port nothing listens on): the box is the console's own
# news on standard output; standard error holds only the plain lines.
home="$work/home"
mkdir -p "$home"
printf '[Setup]\r\nInterface=10\r\nOlaUniverse=1\r\nOlaPort=1\r\n' >"$home/Quintara.INI"
printf 'get InterfaceType\n' | bare timeout 60 "$bin" --headless -nosplash --home "$home" \
  >"$work/out" 2>"$work/err"
status=$?
[ $status -eq 0 ] || fail "the headless start ended with $status: $(cat "$work/err")"
grep -q '^InterfaceType = 10$' "$work/out" || fail "interface 10 not in force: $(cat "$work/out")"
allowed='^quintara: No (MIDI|sound output) on this computer[^:]*: [^.]*\.$'
unexpected=$(grep -Ev "$allowed" "$work/err")
[ -z "$unexpected" ] || fail "noise on standard error:
$unexpected"
repeated=$(sort "$work/err" | uniq -d)
[ -z "$repeated" ] || fail "said more than once: $repeated"
if [ ! -e /dev/snd/seq ]; then
  grep -q 'No MIDI' "$work/err" || fail "no word about the missing MIDI system"
fi

# The virtual clock touches neither MIDI nor sound: not a word.
printf 'get ShowName\n' | bare "$bin" --headless --virtual-clock -nosplash --home "$home" \
  >"$work/out" 2>"$work/err" || fail "the virtual-clock start failed"
[ -s "$work/err" ] && fail "the virtual-clock start wrote: $(cat "$work/err")"
[ -d "$work/user/.config/quintara" ] && fail "--home was not the program's folder"
echo "ok: quiet start"
exit 0
