# Sourced by the OLA tests and the desk measurement: starts a private olad on
# loopback with only the dummy device, patched to universe 1.
#   start_private_olad WORK READBACK   sets olad_pid and ola_port; 77 = cannot run here
# olad refuses to run as root, so as root it runs as nobody, in a folder nobody can write.

# Makes $work, a scratch folder that goes, with any private olad started in
# it, when the script ends.
make_olad_workdir() {
  work=$(mktemp -d "/tmp/$1.XXXXXX")
  olad_pid=
  trap stop_private_olad EXIT
}

stop_private_olad() {
  [ -n "$olad_pid" ] && kill "$olad_pid" 2>/dev/null && wait "$olad_pid" 2>/dev/null
  rm -rf "$work"
}

start_private_olad() {
  local work=$1 readback=$2 conf="$1/olad" plugin try candidate
  mkdir -p "$conf"
  for plugin in artnet e131 espnet ftdidmx gpio karate kinet milinst opendmx openpixelcontrol osc \
                pathport renard sandnet shownet spi stageprofi uartdmx usbdmx usbserial; do
    echo "enabled = false" > "$conf/ola-$plugin.conf"
  done
  printf 'enabled = true\ndummy_device_count = 1\n' > "$conf/ola-dummy.conf"
  chmod 777 "$work" "$conf"
  chmod 666 "$conf"/*

  ola_port=
  for try in $(seq 1 20); do
    candidate=$((20000 + RANDOM % 20000))
    if ! ss -ltn 2>/dev/null | grep -q ":$candidate\b"; then ola_port=$candidate; break; fi
  done
  [ -n "$ola_port" ] || { echo "no free port"; return 1; }

  local run_as=()
  if [ "$(id -u)" -eq 0 ]; then
    command -v setpriv >/dev/null || { echo "running as root without setpriv to drop to nobody"; return 77; }
    run_as=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
  fi
  "${run_as[@]}" olad -c "$conf" --no-http --no-register-with-dns-sd --rpc-port "$ola_port" -l 2 \
    >"$work/olad.log" 2>&1 &
  olad_pid=$!

  for try in $(seq 1 100); do
    "$readback" --port "$ola_port" --patch-dummy 1 >/dev/null 2>&1 && return 0
    kill -0 "$olad_pid" 2>/dev/null || { echo "olad did not start"; return 1; }
    sleep 0.1
  done
  "$readback" --port "$ola_port" --patch-dummy 1 || { echo "could not patch the dummy device to universe 1"; return 1; }
}
