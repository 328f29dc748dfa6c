#!/usr/bin/env bash
# The desk in a real show, measured: every channel changing at every output
# frame, frames through a private olad, cue lists of 1,000 and 10,000 cues
# loaded while it runs. desk_load_bench.cpp says what is printed.
#
#   tools/desk_load_bench/run.sh BUILD_DIR [FULL_SECONDS] [IDLE_SECONDS]
#
# Needs the packages xvfb, xauth, ola and util-linux (setpriv: olad won't run as root).
set -eu
build=$(cd "$1" && pwd)
full=${2:-60}
idle=${3:-20}
here=$(cd "$(dirname "$0")" && pwd)
. "$here/../desk_probe/desk_session.sh"
. "$here/make_show.sh"
start_desk_session quintara-load "$build" desk_load_bench/desk_load_bench 0 512
make_full_show "$work/show"
xvfb-run -a -s "-screen 0 1920x1080x24" \
  "$tool" --ola-port "$ola_port" --listen "$listen" --olad "$olad_pid" \
  --full "$full" --idle "$idle" --cues-dir "$work/show" -- \
  "$quintara" --home "$home" -nosplash --listen "$listen" "$work/show/full.qsh"
