#!/bin/sh
# The players of the headless console on the real clock, through GStreamer
# into a sink that needs no sound card: a WAV loads in the background, plays,
# pauses and stops, and a missing file is told once while the console goes on.
#   players.sh BINARY
set -u
bin=$1
dir=$(mktemp -d) || exit 2
trap 'rm -rf "$dir"' EXIT

# Two seconds of silence, 44.1 kHz stereo 16-bit: a 44-byte header and zeros.
{
  printf 'RIFF\044\264\005\000WAVEfmt \020\000\000\000\001\000\002\000'
  printf '\104\254\000\000\020\261\002\000\004\000\020\000data\000\264\005\000'
  head -c 368640 /dev/zero
} > "$dir/quiet.wav"

QUINTARA_AUDIO_SINK="fakesink sync=true" "$bin" --headless -nosplash --home "$dir" > "$dir/out" 2>/dev/null <<SCRIPT
drop MpLoad(0) $dir/quiet.wav
advance 1000
get WMP(0).Ready
get WMP(0).Visible
press MpPlay(0)
advance 300
get WMP(0).PlayState
press MpPlay(0)
advance 300
get WMP(0).PlayState
type Direct 1a50
enter Direct
drop MpPlay(1) $dir/missing.wav
advance 300
get WMP(1).Ready
tick DMXTimer
dmx 1 1
SCRIPT
echo "exit $?" >> "$dir/out"

expected="WMP(0).Ready = -1
WMP(0).Visible = 0
WMP(0).PlayState = 2
WMP(0).PlayState = 1
MSGBOX Quintara | Media Player 2 can't play $dir/missing.wav: the file can't be found
WMP(1).Ready = 0
DMX 1-1: 127
exit 0"
if [ "$(cat "$dir/out")" != "$expected" ]; then
  echo "expected:"; echo "$expected"; echo "got:"; cat "$dir/out"
  exit 1
fi
