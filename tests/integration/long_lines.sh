#!/bin/sh
# Input no operator types, through the real binary, as a script on the
# virtual clock and piped into standard input on the real clock: a 100 MB
# line, a 5000-digit number and points that are no decimal numbers. Each is
# one short ERROR line, the lines after it run, and the run ends with status 1.
#   long_lines.sh QUINTARA
set -u
bin=$1
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT

digits=$(head -c 5000 /dev/zero | tr '\0' '9')
{
  echo "get GrandMaster"
  printf 'type Direct '
  head -c 100000000 /dev/zero | tr '\0' '1'
  echo
  echo "get Direct"
  echo "set SMaster $digits"
  echo "down Tecles.BTN(1) $digits 0"
  echo "move Tecles.BTN(1) nan inf"
  echo "press Tecles.BTN(1) left 0 1e309"
  printf 'get MaxChans\r\n'
  printf 'get SMaster'  # the last line without its newline
} >"$work/input.qcmd"

cut64=$(printf '%.64s' "$digits")
cat >"$work/expected" <<EXPECTED
GrandMaster = 255
ERROR line 2: line too long (more than 65536 bytes)
Direct = 
ERROR line 4: value is not a number: '$cut64...'
ERROR line 5: X out of range (-1000000000 to 1000000000): $cut64...
ERROR line 6: X is not a number: 'nan'
ERROR line 7: Y is not a number: '1e309'
MaxChans = 128
SMaster = 0
exit 1
EXPECTED

status=0
for mode in script stdin; do
  if [ $mode = script ]; then
    "$bin" --headless --virtual-clock -nosplash --home "$work" --script "$work/input.qcmd" >"$work/out"
  else
    "$bin" --headless -nosplash --home "$work" <"$work/input.qcmd" >"$work/out" 2>/dev/null
  fi
  echo "exit $?" >>"$work/out"
  diff -u "$work/expected" "$work/out" || { echo "FAIL: $mode"; status=1; }
done
exit $status
