#!/usr/bin/env bash
# The web remote in real headless chromium: the desk runs with the remote on
# an address beyond its own (so a PIN is asked) and its command port open;
# tests/browser/web_remote_test.mjs does the rest. Skipped, with the reason,
# where node, chromium or playwright-core is not there.
#
#   web_remote.sh QUINTARA [SCREENSHOT.png]      exit 0 pass, 1 fail, 77 skip
set -u
quintara=$1
screenshot=${2:-}
here=$(cd "$(dirname "$0")" && pwd)
browser_dir="$here/../browser"

command -v node >/dev/null || { echo "SKIP: no node here"; exit 77; }
[ -x /usr/bin/chromium ] || { echo "SKIP: no /usr/bin/chromium here"; exit 77; }
[ -d "$browser_dir/node_modules/playwright-core" ] ||
  { echo "SKIP: playwright-core is not installed (scripts/install-deps.sh does it)"; exit 77; }

work=$(mktemp -d "${TMPDIR:-/tmp}/quintara-web.XXXXXX")
desk_pid=
cleanup() {
  [ -n "$desk_pid" ] && { kill -TERM "$desk_pid"; wait "$desk_pid"; } 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT
fail() {
  echo "FAIL: $*"
  echo "--- desk"; cat "$work/desk.out" 2>/dev/null
  exit 1
}

# Two free ports, the page's beyond the desk's own loopback address.
free_port() {
  node -e 'const s = require("net").createServer().listen(0, process.argv[1], () => {
             console.log(s.address().port); s.close(); });' "$1"
}
web_port=$(free_port 127.0.0.2)
command_port=$(free_port 127.0.0.1)
home="$work/home"
mkdir -p "$home"
printf '[Remote]\r\nWebPort=%s\r\nWebAddress=127.0.0.2\r\n' "$web_port" >"$home/Quintara.INI"
# Three cues on channels nothing else lights.
cues() {
  local n=1
  for cue in "House to half:1a128" "Dawn:2a255" "Morning full:1a255,2a255"; do
    printf "'****\nMEM:%s\nFUNCTION:1\nTIMES:0,20,0,20,\nNAME:%s\nCHAN:%s,\n" "$n" "${cue%%:*}" "${cue#*:}"
    n=$((n + 1))
  done
}
{ printf "SHOW:Web remote\nDATE:23/11/2026\n"; cues; } >"$work/cues.qcl"

QT_QPA_PLATFORM=offscreen "$quintara" -nosplash --home "$home" --listen "$command_port" \
  "$work/cues.qcl" >"$work/desk.out" 2>&1 &
desk_pid=$!
for _ in $(seq 1 100); do
  (exec 3<>"/dev/tcp/127.0.0.2/$web_port") 2>/dev/null && break
  kill -0 "$desk_pid" 2>/dev/null || fail "the desk ended at start"
  sleep 0.1
done

cd "$browser_dir" && node web_remote_test.mjs "http://127.0.0.2:$web_port/" "$command_port" "$screenshot"
status=$?
[ $status -eq 1 ] && fail "the browser test failed"
[ $status -eq 0 ] && { kill -0 "$desk_pid" 2>/dev/null || fail "the desk did not survive the page"; }
exit $status
