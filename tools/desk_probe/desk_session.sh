# Sourced by the desk measurements (desk_bench/run.sh, soak/run.sh): a
# private olad on loopback and a program folder whose settings send every
# DMXRate=25 ms to universe 1 of that olad.
#   start_desk_session NAME BUILD_DIR TOOL CONTINUOUS MAXCHANS
# sets quintara, tool, home, listen and ola_port; the folder and olad go
# when the script ends.
start_desk_session() {
  local name=$1 build=$2 continuous=$4 maxchans=$5 readback f
  root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
  quintara=$build/src/quintara
  tool=$build/tools/$3
  readback=$build/tools/ola_readback
  for f in "$quintara" "$tool" "$readback"; do
    [ -x "$f" ] || { echo "missing $f: build it first"; exit 1; }
  done
  . "$root/tools/ola_readback/private_olad.sh"
  make_olad_workdir "$name"
  start_private_olad "$work" "$readback" || { echo "could not start a private olad"; exit 1; }
  listen=$((40000 + RANDOM % 10000))
  home="$work/home"
  mkdir -p "$home"
  printf '[Setup]\r\nInterface=10\r\nOlaUniverse=1\r\nOlaPort=%s\r\nDMXRate=25\r\nContinuousOutput=%s\r\nMaxChans=%s\r\n' \
    "$ola_port" "$continuous" "$maxchans" >"$home/Quintara.INI"
  cd "$root/examples"
}
