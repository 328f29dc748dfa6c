#!/usr/bin/env bash
# A DMX USB PRO pulled out in the middle of a show and plugged in again: the
# simulated widget on a pty, reached through a fixed link name as a udev
# rule would give it, is killed while the headless console sends to it and
# started again on the same link. The console must say so once, and the new
# widget must get the levels the stage had, with no restart and no menu.
#
#   widget_comes_back.sh QUINTARA DMX_WIDGET_SIM      exit 0 pass, 1 fail, 77 skip
set -u
quintara=$1
sim=$2

work=$(mktemp -d "${TMPDIR:-/tmp}/quintara-widget.XXXXXX")
sim_pid=
console_pid=
cleanup() {
  [ -n "$sim_pid" ] && { kill -KILL "$sim_pid"; wait "$sim_pid"; } 2>/dev/null
  [ -n "$console_pid" ] && { kill -KILL "$console_pid"; wait "$console_pid"; } 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT
fail() {
  echo "FAIL: $*"
  echo "--- console"; cat "$work/console.out" 2>/dev/null
  echo "--- widget"; tail -5 "$work/sim1.out" 2>/dev/null
  echo "--- widget after the restart"; tail -5 "$work/sim2.out" 2>/dev/null
  exit 1
}
link="$work/ttyDMX"

# Starts the widget on the link and waits until the link is there.
start_widget() {
  "$sim" --link "$link" >"$1" 2>&1 &
  sim_pid=$!
  for _ in $(seq 1 50); do
    [ -e "$link" ] && return 0
    sleep 0.1
  done
  return 1
}
# Waits up to 10 s for a line matching $2 in file $1.
wait_for() {
  for _ in $(seq 1 100); do
    grep -q "$2" "$1" 2>/dev/null && return 0
    sleep 0.1
  done
  return 1
}

start_widget "$work/sim1.out" || { echo "SKIP: no pseudo-terminal here"; exit 77; }

home="$work/home"
mkdir -p "$home"
printf '[Setup]\r\nInterface=2\r\nWidgetPort=%s\r\nDMXRate=25\r\n' "$link" >"$home/Quintara.INI"
cat >"$work/show.qcmd" <<'SCRIPT'
type Direct 1aff
enter Direct
type Direct 3a50
enter Direct
advance 1000
get OutputLamp.Caption
advance 2500
get OutputLamp.Caption
advance 3000
get OutputLamp.Caption
get OutputLamp
SCRIPT
"$quintara" --headless --home "$home" -nosplash --script "$work/show.qcmd" >"$work/console.out" 2>&1 &
console_pid=$!

wait_for "$work/console.out" '^OutputLamp.Caption = ' || fail "the console never answered"
grep -q '^OutputLamp.Caption = sending$' "$work/console.out" || fail "not sending at first"
wait_for "$work/sim1.out" '^frame .*: 255 0 127' || fail "the first widget never got the levels"

# Pulled out: the widget's end of the link is gone at once.
{ kill -KILL "$sim_pid"; wait "$sim_pid"; } 2>/dev/null
sim_pid=
# Plugged in again on the same link, once the console has shown it away.
wait_for "$work/console.out" '^OutputLamp.Caption = not reachable$' ||
  fail "the lamp did not show the widget not reachable while it was away"
start_widget "$work/sim2.out" || fail "the widget could not start again"
wait_for "$work/sim2.out" '^frame .*: 255 0 127' || fail "no frame after the widget came back"

wait "$console_pid" || fail "the console ended with an error"
console_pid=
tail -2 "$work/console.out" | head -1 | grep -q '^OutputLamp.Caption = sending$' ||
  fail "the lamp did not come back to sending"
grep -q '^OutputLamp = Led_On2$' "$work/console.out" || fail "the lamp is not lit at the end"
boxes=$(grep -c '^MSGBOX' "$work/console.out")
[ "$boxes" -eq 1 ] || fail "expected one message about the widget, got $boxes"
grep -q '^MSGBOX Quintara | The Enttec DMXUSB PRO does not answer' "$work/console.out" ||
  fail "the message does not name the widget"
echo "ok: the widget killed and started again on the same link gets its frames back"
exit 0
