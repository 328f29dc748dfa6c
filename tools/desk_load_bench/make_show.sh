# Sourced by desk_load_bench/run.sh: writes the full-change show into a folder.
#   make_full_show DIR
# DIR/full.qsh: all 512 channels mapped one to one with the patch switched
# off (switched on, the live display's label test of the "Output" view skips
# outputs 2..30, as the console always has: they would never change); chaser 1 with 8 steps in
# which every channel changes at every step (levels 1..255, never 0, so a
# frame with the grand master up is never dark); strip 1 set to the chaser's
# speed at position 4 (LEVEL:251), a step every 21 ms, so every 25 ms output tick has a new frame.
# DIR/cues1000.qcl and DIR/cues10000.qcl: cue lists with every cue holding all
# 512 channels, to load while the chaser runs.
make_full_show() {
  local dir=$1 rule="'**********************************************************************"
  mkdir -p "$dir"
  awk -v rule="$rule" 'BEGIN {
    ORS = "\r\n"
    print rule; print "\047   Full change patch"; print rule; print "PATCH: OFF"
    for (c = 1; c <= 512; c++) print c ":" c
  }' >"$dir/full.qpf"
  awk -v rule="$rule" 'BEGIN {
    ORS = "\r\n"
    print "FX:0"; print "SHOW:Full change"; print "DATE:01/01/2026"; print "RANDOM:NO"
    for (s = 0; s < 8; s++) {
      print rule; line = "CHAN:"
      for (c = 1; c <= 512; c++) line = line c "a" ((s * 37 + c * 13) % 254 + 1) ","
      print line
    }
  }' >"$dir/full1.qfx"
  awk -v rule="$rule" 'BEGIN {
    ORS = "\r\n"
    print rule; print "SHOW:Full change"; print "DATE:01/01/2026"; print rule
    print "SUB:1"; print "KNOB: 1 "; print "FUNCTION:SP1"; print "NAME:Speed"; print "TOOLTIP:"
    print "FONT:;0;False;False;False;False;-2147483640"; print "BACKGROUND:-2147483643"
    print "MIDI:0"; print "LEVEL:251"; print "CHAN:"
  }' >"$dir/full.qsm"
  printf "%s\r\nNAME:Full change\r\nDATE:01/01/2026\r\n%s\r\nSUBMASTERS:full.qsm\r\nFX1:full1.qfx\r\nPATCH:full.qpf\r\n" \
    "$rule" "$rule" >"$dir/full.qsh"
  local n
  for n in 1000 10000; do
    awk -v rule="$rule" -v n="$n" 'BEGIN {
      ORS = "\r\n"
      print rule; print "SHOW:Full change"; print "DATE:01/01/2026"
      for (m = 1; m <= n; m++) {
        print rule; print "MEM:" m; print "FUNCTION:1"; print "TIMES:25,25,25,25,"
        print "NAME:Cue number " m; line = "CHAN:"
        for (c = 1; c <= 512; c++) line = line c "a" ((m * 7 + c * 13) % 255 + 1) ","
        print line
      }
    }' >"$dir/cues$n.qcl"
  done
}
