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
. "$(dirname "$0")/../desk_probe/desk_session.sh"
start_desk_session quintara-soak "$build" soak/soak 1 512
xvfb-run -a -s "-screen 0 1920x1080x24" \
  "$tool" --ola-port "$ola_port" --listen "$listen" --minutes "$minutes" --rate 25 "$@" -- \
  "$quintara" --home "$home" -nosplash --listen "$listen" demo.qsh
