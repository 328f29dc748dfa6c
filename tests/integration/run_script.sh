#!/bin/sh
# Runs the real console on a command script and compares everything it printed,
# its exit status and the files it left in its program folder with an expected file.
#   run_script.sh BINARY SCRIPT EXPECTED [script|stdin]
# "script" runs on the virtual clock with --script; "stdin" pipes the script into
# standard input on the real clock, as a remote controller would.
set -u
bin=$1 script=$2 expected=$3 mode=${4:-script}
home=$(mktemp -d) || exit 2
out=$(mktemp) || exit 2
trap 'rm -rf "$home" "$out"' EXIT
# Relative paths in a script name files in the program folder, so they are listed below.
bin=$(cd "$(dirname "$bin")" && pwd)/$(basename "$bin")
script=$(cd "$(dirname "$script")" && pwd)/$(basename "$script")
cd "$home" || exit 2

if [ "$mode" = stdin ]; then
  "$bin" --headless -nosplash --home "$home" < "$script" > "$out"
else
  "$bin" --headless --virtual-clock -nosplash --home "$home" --script "$script" > "$out"
fi
echo "exit $?" >> "$out"
echo "home: $(ls "$home" | tr '\n' ' ')" >> "$out"
diff -u "$expected" "$out"
