#!/usr/bin/env bash
# Output through OLA, end to end: a private olad on loopback (its own
# configuration folder, only the dummy plugin, its own RPC port), the
# headless console with interface 10, and the universe read back through the
# OLA client. The frame read back must be the console's DMXData. Then the
# console without olad: it says so once and goes on.
#
#   ola_output.sh QUINTARA OLA_READBACK      exit 0 pass, 1 fail, 77 skip
set -u
quintara=$1
readback=$2

command -v olad >/dev/null || { echo "SKIP: olad is not installed (package ola)"; exit 77; }

. "$(dirname "$0")/../../tools/ola_readback/private_olad.sh"
make_olad_workdir quintara-ola
fail() { echo "FAIL: $*"; [ -f "$work/olad.log" ] && tail -20 "$work/olad.log"; exit 1; }

start_private_olad "$work" "$readback"
case $? in 0) ;; 77) echo "SKIP: cannot run olad here"; exit 77 ;; *) fail "private olad" ;; esac
port=$ola_port

# The console sends every 25 ms; the universe is read back while it runs,
# and the frame is printed by the console at the end (nothing changes in between).
home="$work/home"
mkdir -p "$home"
printf '[Setup]\r\nInterface=10\r\nOlaUniverse=1\r\nOlaPort=%s\r\nDMXRate=25\r\n' "$port" >"$home/Quintara.INI"
cat >"$work/show.qcmd" <<'SCRIPT'
type Direct 1/10aff
enter Direct
type Direct 20/24a128
enter Direct
type Direct 512a7
enter Direct
advance 4000
get InterfaceType
dmx 1 512
SCRIPT
"$quintara" --headless --home "$home" -nosplash --script "$work/show.qcmd" >"$work/console.out" 2>&1 &
console_pid=$!

fetched=
for i in $(seq 1 30); do
  sleep 0.1
  frame=$("$readback" --port "$port" --fetch 1 2>/dev/null) || continue
  case " $frame " in *" 255 "*) fetched=$frame; break ;; esac
done
wait "$console_pid" || fail "console ended with an error: $(cat "$work/console.out")"
[ -n "$fetched" ] || fail "the universe never received the console's frame"

grep -q '^InterfaceType = 10$' "$work/console.out" || fail "interface 10 not in force: $(cat "$work/console.out")"
grep -q '^MSGBOX' "$work/console.out" && fail "unexpected box: $(grep '^MSGBOX' "$work/console.out")"
sent=$(sed -n 's/^DMX 1-512: //p' "$work/console.out")
[ -n "$sent" ] || fail "no DMX line from the console"
[ "$fetched" = "$sent" ] || fail "universe differs from DMXData
sent:    ${sent:0:120}...
fetched: ${fetched:0:120}..."
echo "ok: universe 1 read back through OLA equals DMXData"

# Without olad: one box, then silence, and the console goes on.
kill "$olad_pid"; wait "$olad_pid" 2>/dev/null; olad_pid=
printf 'advance 2500\nget InterfaceType\n' >"$work/alone.qcmd"
"$quintara" --headless --home "$home" -nosplash --script "$work/alone.qcmd" >"$work/alone.out" 2>&1 ||
  fail "console without olad ended with an error: $(cat "$work/alone.out")"
boxes=$(grep -c '^MSGBOX' "$work/alone.out")
[ "$boxes" -eq 1 ] || fail "expected one box without olad, got $boxes: $(cat "$work/alone.out")"
grep -q 'olad' "$work/alone.out" || fail "the box does not name olad"
grep -q '^InterfaceType = 10$' "$work/alone.out" || fail "the console gave up interface 10"
echo "ok: without olad the console says so once and goes on"
exit 0
