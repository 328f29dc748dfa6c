#!/bin/bash
# Prints a generated cue list from the headless console and reads the PDF
# back: every cue's captions and values must be there, in order, over
# several pages, and nothing else may be said.
#   cuelist_print.sh BINARY
set -u
bin=$1
command -v pdftotext >/dev/null || { echo "pdftotext missing (package poppler-utils)"; exit 77; }
home=$(mktemp -d) || exit 2
trap 'rm -rf "$home"' EXIT

# Sixty cues: memory cues and message cues, fractional numbers, names with
# commas, channel lists from one pair to ones that need several lines.
expected="Printed showGenerated for the test"
{
  printf "'%s\r\n" "**********************************************************************"
  printf 'SHOW:Printed show\r\nDATE:Generated for the test\r\n'
  for i in $(seq 1 60); do
    num=$i; [ $((i % 7)) -eq 0 ] && num="$i.5"
    fn=1; var=""; [ $((i % 10)) -eq 0 ] && { fn=7; var="Message $i"; }
    times="$((i % 10)),$((i * 3 % 50)),0,$((i % 20)),"
    name="Cue $i, scene $((i % 5))"
    chan=""
    for j in $(seq 1 $((i % 30 + 1))); do chan="$chan${j}a$(((i * j) % 255 + 1)),"; done
    printf 'MEM:%s\r\nFUNCTION:%s\r\nTIMES:%s\r\nNAME:%s\r\n' "$num" "$fn" "$times" "$name"
    [ -n "$var" ] && printf 'VAR:%s\r\n' "$var"
    printf 'CHAN:%s\r\n' "$chan"
    expected="$expected""CUE NUMBER: $num""CUE TYPE: $fn""TIMES: $times""CUE NAME: $name"
    expected="$expected""VARIABLE: $var""CHANNELS: $chan"
  done
} > "$home/list.qcl"

printf 'load cuelist %s\nclick Cuewin.mnuPrint\nget CueCount\n' "$home/list.qcl" > "$home/print.qcmd"
said=$("$bin" --headless --virtual-clock -nosplash --home "$home" --script "$home/print.qcmd" 2>/dev/null)
status=$?
case "$said" in
  *"has no printer"*) echo "this console was built without its PDF writer"; exit 77 ;;
esac
[ "$status" -eq 0 ] && [ "$said" = "CueCount = 60" ] || { echo "the console said: $said (exit $status)"; exit 1; }
[ -s "$home/CueList.pdf" ] || { echo "no CueList.pdf"; exit 1; }
[ -s "$home/temp.qcl" ] || { echo "the list was not saved to temp.qcl first"; exit 1; }

pdftotext -enc UTF-8 "$home/CueList.pdf" "$home/CueList.txt" || exit 1
pages=$(tr -cd '\f' < "$home/CueList.txt" | wc -c)
[ "$pages" -ge 3 ] || { echo "expected several pages, found $pages"; exit 1; }
# Compared without the blanks and line ends that the layout puts in.
squeeze() { tr -d ' \t\r\n\f'; }
got=$(squeeze < "$home/CueList.txt")
want=$(printf '%s' "$expected" | squeeze)
if [ "$got" != "$want" ]; then
  echo "the printed text differs from the list"
  diff <(printf '%s' "$want" | fold -w 100) <(printf '%s' "$got" | fold -w 100) | head -20
  exit 1
fi
echo "60 cues on $pages pages"
