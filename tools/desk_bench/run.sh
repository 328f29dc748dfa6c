#!/usr/bin/env bash
# Measures the desk on an X server of its own (Xvfb), with its frames going to
# a private olad on loopback, as tools/desk_bench/desk_bench.cpp describes.
#
#   tools/desk_bench/run.sh BUILD_DIR [IDLE_SECONDS] [continuous|steady] [DESK_BENCH OPTIONS...]
#
# With "continuous" the desk sends every output tick even while nothing
# changes (ContinuousOutput=1), as some network receivers want. Options
# after the third word go to desk_bench, e.g. to measure with the channels
# matrix open on 512 channels:
#   BENCH_MAXCHANS=512 tools/desk_bench/run.sh build 20 steady --before "click mnuMatrix"
# BENCH_MAXCHANS sets the channels in use (default 128, the console's own default).
#
# Needs the packages xvfb, xauth, ola and util-linux (setpriv: olad won't run as root).
set -eu
build=$(cd "$1" && pwd)
idle=${2:-60}
continuous=0
[ "${3:-}" = continuous ] && continuous=1
shift $(($# < 3 ? $# : 3))
. "$(dirname "$0")/../desk_probe/desk_session.sh"
start_desk_session quintara-bench "$build" desk_bench/desk_bench "$continuous" "${BENCH_MAXCHANS:-128}"
xvfb-run -a -s "-screen 0 1920x1080x24" \
  "$tool" --ola-port "$ola_port" --listen "$listen" --idle "$idle" "$@" -- \
  "$quintara" --home "$home" -nosplash --listen "$listen" demo.qsh
