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
root=$(cd "$(dirname "$0")/../.." && pwd)
quintara=$build/src/quintara
bench=$build/tools/desk_bench/desk_bench
readback=$build/tools/ola_readback
for f in "$quintara" "$bench" "$readback"; do [ -x "$f" ] || { echo "missing $f: build it first"; exit 1; }; done

. "$root/tools/ola_readback/private_olad.sh"
make_olad_workdir quintara-bench
start_private_olad "$work" "$readback" || { echo "could not start a private olad"; exit 1; }
listen=$((40000 + RANDOM % 10000))

home="$work/home"
mkdir -p "$home"
printf '[Setup]\r\nInterface=10\r\nOlaUniverse=1\r\nOlaPort=%s\r\nDMXRate=25\r\nContinuousOutput=%s\r\nMaxChans=%s\r\n' \
  "$ola_port" "$continuous" "${BENCH_MAXCHANS:-128}" \
  >"$home/Quintara.INI"
cd "$root/examples"
xvfb-run -a -s "-screen 0 1920x1080x24" \
  "$bench" --ola-port "$ola_port" --listen "$listen" --idle "$idle" "$@" -- \
  "$quintara" --home "$home" -nosplash --listen "$listen" demo.qsh
