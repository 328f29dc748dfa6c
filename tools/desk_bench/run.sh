#!/usr/bin/env bash
# Measures the desk on an X server of its own (Xvfb), with its frames going to
# a private olad on loopback, as tools/desk_bench/desk_bench.cpp describes.
#
#   tools/desk_bench/run.sh BUILD_DIR [IDLE_SECONDS]
#
# Needs the packages xvfb, xauth, ola and util-linux (setpriv: olad won't run as root).
set -eu
build=$(cd "$1" && pwd)
idle=${2:-60}
root=$(cd "$(dirname "$0")/../.." && pwd)
quintara=$build/src/quintara
bench=$build/tools/desk_bench/desk_bench
readback=$build/tools/ola_readback
for f in "$quintara" "$bench" "$readback"; do [ -x "$f" ] || { echo "missing $f: build it first"; exit 1; }; done

work=$(mktemp -d /tmp/quintara-bench.XXXXXX)
olad_pid=
cleanup() {
  [ -n "$olad_pid" ] && kill "$olad_pid" 2>/dev/null && wait "$olad_pid" 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT

conf="$work/olad"
mkdir -p "$conf"
for plugin in artnet e131 espnet ftdidmx gpio karate kinet milinst opendmx openpixelcontrol osc \
              pathport renard sandnet shownet spi stageprofi uartdmx usbdmx usbserial; do
  echo "enabled = false" > "$conf/ola-$plugin.conf"
done
printf 'enabled = true\ndummy_device_count = 1\n' > "$conf/ola-dummy.conf"
chmod 777 "$work" "$conf"; chmod 666 "$conf"/*
ola_port=$((20000 + RANDOM % 20000))
listen=$((40000 + RANDOM % 10000))
run_as=()
[ "$(id -u)" -eq 0 ] && run_as=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
"${run_as[@]}" olad -c "$conf" --no-http --no-register-with-dns-sd --rpc-port "$ola_port" -l 1 \
  >"$work/olad.log" 2>&1 &
olad_pid=$!
for i in $(seq 1 100); do
  "$readback" --port "$ola_port" --patch-dummy 1 >/dev/null 2>&1 && break
  sleep 0.1
done

home="$work/home"
mkdir -p "$home"
printf '[Setup]\r\nInterface=10\r\nOlaUniverse=1\r\nOlaPort=%s\r\nDMXRate=25\r\n' "$ola_port" \
  >"$home/Quintara.INI"
cd "$root/examples"
xvfb-run -a -s "-screen 0 1920x1080x24" \
  "$bench" --ola-port "$ola_port" --listen "$listen" --idle "$idle" -- \
  "$quintara" --home "$home" -nosplash --listen "$listen" demo.qsh
