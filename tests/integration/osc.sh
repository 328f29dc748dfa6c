#!/usr/bin/env bash
# OSC on loopback through the real binary: the headless console on the real
# clock listens where its settings file says and sends its feedback to a
# port this test watches with oscdump. GO and a fader sent with oscsend move
# the light (read back with `dmx`), the feedback tells the cue, the lamp and
# the fader; then 100,000 datagrams, good, broken and truncated, and the
# console still answers at once, its fade still ends on time and its memory
# stays where it was.
#
#   osc.sh QUINTARA OSC_FLOOD SOURCE_DIR      exit 0 pass, 1 fail, 77 skip
set -u
bin=$1
flood=$2
src=$3
for tool in oscsend oscdump; do
  command -v $tool >/dev/null || { echo "SKIP: $tool missing (package liblo-tools)"; exit 77; }
done
# A loopback of its own where the machine allows one: the ports are free there.
if [ -z "${QUINTARA_OSC_NETNS:-}" ] && command -v ip >/dev/null && unshare -n true 2>/dev/null; then
  exec env QUINTARA_OSC_NETNS=1 unshare -n bash -c 'ip link set lo up && exec bash "$0" "$@"' "$0" "$@"
fi
work=$(mktemp -d) || exit 2
pids=()
cleanup() {
  for p in "${pids[@]}"; do kill "$p" 2>/dev/null; done
  wait 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT
fail() {
  echo "FAIL: $*"
  echo "--- console output:"; cat "$work/out"
  echo "--- console errors:"; cat "$work/err"
  exit 1
}

base=$((20000 + RANDOM % 20000))
port=$base
feedback=$((base + 1))
oscdump -L "$feedback" >"$work/dump" 2>&1 &
pids+=($!)

home="$work/home"
mkdir -p "$home"
printf '[OSC]\r\nPort=%s\r\nAddress=127.0.0.1\r\nFeedbackHost=127.0.0.1\r\nFeedbackPort=%s\r\n' \
  "$port" "$feedback" >"$home/Quintara.INI"
mkfifo "$work/in"
"$bin" --headless -nosplash --home "$home" <"$work/in" >"$work/out" 2>"$work/err" &
console=$!
pids+=($console)
exec 3>"$work/in"

# One command; its answer, the next line the console prints (5 s at most).
ask() {
  local before
  before=$(wc -l <"$work/out")
  printf '%s\n' "$1" >&3
  for _ in $(seq 1 100); do
    if [ "$(wc -l <"$work/out")" -gt "$before" ]; then
      sed -n "$((before + 1))p" "$work/out"
      return 0
    fi
    sleep 0.05
  done
  echo "no answer to $1"
}
send() { oscsend 127.0.0.1 "$port" "$@" || fail "oscsend $*"; }
expect() { [ "$2" = "$3" ] || fail "$1: got '$2', wanted '$3'"; }

expect "status" "$(ask 'get OscStatus')" \
  "OscStatus = OSC listens on 127.0.0.1:$port, feedback to 127.0.0.1:$feedback"
printf 'load cuelist %s\nload submasters %s\n' "$src/examples/demo.qcl" "$src/examples/demo.qsm" >&3

# The strip of the front light down, then GO plays cue 1, "House to half", in 3 s.
sleep 0.3
send /quintara/fader/1 f 0
send /quintara/go
sleep 3.6
expect "GO" "$(ask 'dmx 1 4')" "DMX 1-4: 128 128 128 128"
send /quintara/fader/1 f 1.0
sleep 0.3
expect "fader" "$(ask 'get Fader(3)')" "Fader(3) = 0"
expect "fader's light" "$(ask 'dmx 1 4')" "DMX 1-4: 255 255 255 255"
send /quintara/fader/1 i 0
send /quintara/grandmaster s full
sleep 0.3
expect "wrong type" "$(ask 'get OscIgnored')" "OscIgnored = 1"
expect "fader to 0" "$(ask 'dmx 1 4')" "DMX 1-4: 128 128 128 128"

for line in '/quintara/stage/cue s "1"' '/quintara/stage/name s "House to half"' \
  '/quintara/golamp i 1' '/quintara/fader/1 f 1.000000' '/quintara/fader/1 f 0.000000' \
  '/quintara/fading i 1' '/quintara/fading i 0'; do
  grep -qF " $line" "$work/dump" || fail "no feedback $line; oscdump saw:
$(cat "$work/dump")"
done
grep -q ' /quintara/fade f 0\.[0-9]*' "$work/dump" || fail "no fade progress in the feedback"

# The flood, with cue 2 fading meanwhile (5 s up, 4 s down after 1 s).
rss() { awk '/^VmRSS/ { print $2 }' "/proc/$console/status"; }
before=$(rss)
went=$(date +%s%N)
send /quintara/go
"$flood" "$port" 100000 >"$work/flood" &
flooder=$!
pids+=($flooder)
slowest=0
while kill -0 "$flooder" 2>/dev/null; do
  t0=$(date +%s%N)
  answer=$(ask 'get DMXTimer')
  ms=$((($(date +%s%N) - t0) / 1000000))
  expect "during the flood" "$answer" "DMXTimer = -1"
  [ "$ms" -gt "$slowest" ] && slowest=$ms
done
wait "$flooder"
sent=$(cat "$work/flood")
[ "$sent" = 100000 ] || fail "the flood sent $sent datagrams"
[ "$slowest" -lt 1000 ] || fail "the console took $slowest ms to answer during the flood"
# The fade's 5 s are kept by the console's timers whatever came in meanwhile.
while [ "$(ask 'get STAGEMem')" != "STAGEMem = 2" ]; do
  [ $(($(date +%s%N) - went)) -lt 10000000000 ] || fail "cue 2 never reached Stage"
  sleep 0.05
done
faded=$((($(date +%s%N) - went) / 1000000))
[ "$faded" -ge 4800 ] && [ "$faded" -le 5800 ] || fail "the 5 s fade took $faded ms under the flood"
expect "cue 2" "$(ask 'dmx 1 1')" "DMX 1-1: 100"
received=$(ask 'get OscReceived' | awk '{ print $3 }')
ignored=$(ask 'get OscIgnored' | awk '{ print $3 }')
[ "$ignored" -gt 1000 ] || fail "only $ignored ignored after the flood"
grown=$(($(rss) - before))
[ "$grown" -lt 65536 ] || fail "the console grew by $grown kB in the flood"
expect "still listening" "$(ask 'get OscStatus')" \
  "OscStatus = OSC listens on 127.0.0.1:$port, feedback to 127.0.0.1:$feedback"

# The setup window moves the socket; the old port is closed.
moved=$((base + 2))
printf 'click mnuOscSetup\ntype OscSetup.txtPort %s\nclick OscSetup.CmdOk\n' "$moved" >&3
expect "moved" "$(ask 'get OscStatus')" \
  "OscStatus = OSC listens on 127.0.0.1:$moved, feedback to 127.0.0.1:$feedback"
grep -q "^Port=$moved" "$home/Quintara.INI" || fail "the new port is not in the settings file"
oscsend 127.0.0.1 "$moved" /quintara/blackout i 1
sleep 0.3
expect "blackout" "$(ask 'get BlackOut')" "BlackOut = -1"

exec 3>&-
wait "$console" || fail "the console ended with $?"
grep -v '^quintara: No \(MIDI\|sound output\)' "$work/err" | grep -q . && fail "noise on standard error"
echo "ok: OSC in and out; $received of 100000 flood datagrams' messages taken, $ignored ignored, slowest answer $slowest ms, the 5 s fade in $faded ms, memory +$grown kB"
exit 0
