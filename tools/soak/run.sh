#!/usr/bin/env bash
# An hour of show on the desk, as tools/soak/soak.cpp describes: on an X
# server of its own (Xvfb), its frames going to a private olad on loopback,
# every output tick sent (ContinuousOutput=1) every DMXRate ms.
#
#   tools/soak/run.sh BUILD_DIR [MINUTES] [SOAK OPTIONS...]
#
# Needs the packages xvfb, xauth, ola and util-linux (setpriv: olad won't run as root).
set -eu
build=$(cd "$1" && pwd)
minutes=${2:-60}
shift $(($# < 2 ? $# : 2))
root=$(cd "$(dirname "$0")/../.." && pwd)
quintara=$build/src/quintara
soak=$build/tools/soak/soak
readback=$build/tools/ola_readback
for f in "$quintara" "$soak" "$readback"; do [ -x "$f" ] || { echo "missing $f: build it first"; exit 1; }; done

. "$root/tools/ola_readback/private_olad.sh"
make_olad_workdir quintara-soak
start_private_olad "$work" "$readback" || { echo "could not start a private olad"; exit 1; }
listen=$((40000 + RANDOM % 10000))

home="$work/home"
mkdir -p "$home"
printf '[Setup]\r\nInterface=10\r\nOlaUniverse=1\r\nOlaPort=%s\r\nDMXRate=25\r\nContinuousOutput=1\r\nMaxChans=512\r\n' \
  "$ola_port" >"$home/Quintara.INI"
cd "$root/examples"
xvfb-run -a -s "-screen 0 1920x1080x24" \
  "$soak" --ola-port "$ola_port" --listen "$listen" --minutes "$minutes" --rate 25 "$@" -- \
  "$quintara" --home "$home" -nosplash --listen "$listen" demo.qsh
