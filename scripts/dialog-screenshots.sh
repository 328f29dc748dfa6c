#!/usr/bin/env bash
# Pictures of a message box and of the file chooser on the desk, for the
# documentation: docs/desk-message-box.png and docs/desk-file-dialog.png.
# Needs xvfb-run (xvfb), xwd and xwininfo (x11-apps, x11-utils), and netpbm.
#   scripts/dialog-screenshots.sh [BUILD_DIR]
set -euo pipefail
cd "$(dirname "$0")/.."
bin=$(realpath "${1:-build}/src/quintara")
demo=$(realpath examples/demo.qsh)
for tool in xvfb-run xwd xwininfo xwdtopnm pnmpaste pnmcrop pnmtopng; do
  command -v $tool >/dev/null || { echo "missing $tool (apt install xvfb x11-apps netpbm)"; exit 1; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/Documents"

# Runs inside the X server: the desk, one command through its remote port,
# then the screen. Qt draws into windows of a deeper visual than the root,
# which xwd -root shows black, so each of the console's windows is taken on
# its own and laid in its place, bottom to top (xwininfo lists the top first).
cat >"$work/inside.sh" <<'INSIDE'
set -u
bin=$1 home=$2 port=$3 command=$4 out=$5 demo=$6 tmp=$7
"$bin" -nosplash --zoom 1.2 --home "$home" --listen "127.0.0.1:$port" "$demo" &
desk=$!
for _ in $(seq 100); do sleep 0.2; (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null && break; done
exec 3<>"/dev/tcp/127.0.0.1/$port"
printf '%s\n' "$command" >&3
sleep 3
xwd -root -silent | xwdtopnm 2>/dev/null >"$tmp/screen.pnm"
xwininfo -root -tree | grep '("quintara" "Quintara")' | awk '{print $1, $NF}' | tac |
  while read -r id place; do
    IFS=+ read -r _ x y <<<"$place"
    xwd -id "$id" -silent | xwdtopnm 2>/dev/null >"$tmp/window.pnm"
    pnmpaste "$tmp/window.pnm" "$x" "$y" "$tmp/screen.pnm" >"$tmp/next.pnm"
    mv "$tmp/next.pnm" "$tmp/screen.pnm"
  done
# The empty screen right of and below the desk is cut away.
pnmcrop -black -right -bottom "$tmp/screen.pnm" 2>/dev/null | pnmtopng >"$out"
kill "$desk"
wait "$desk" || true
INSIDE

shoot() {
  local out=$1 command=$2 home=$work/home-$RANDOM
  mkdir -p "$home"
  HOME=$work xvfb-run -a -s "-screen 0 1500x1000x24" bash "$work/inside.sh" "$bin" "$home" \
    $((20000 + RANDOM % 20000)) "$command" "$(realpath -m "$out")" "$demo" "$work"
  echo "wrote $out"
}
shoot docs/desk-message-box.png "load show $work/Documents/missing.qsh"
shoot docs/desk-file-dialog.png "click mnuOpen"
