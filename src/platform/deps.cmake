# Libraries of the platform adapters, linked into quintara_platform.
pkg_check_modules(LIBFTDI1 REQUIRED IMPORTED_TARGET libftdi1)
pkg_check_modules(LIBOLA REQUIRED IMPORTED_TARGET libola)
target_link_libraries(quintara_platform PUBLIC PkgConfig::LIBFTDI1 PkgConfig::LIBOLA)

# MIDI ports: RtMidi over the ALSA sequencer or JACK.
# The ALSA library itself only to keep its own error prints off standard error.
pkg_check_modules(RTMIDI REQUIRED IMPORTED_TARGET rtmidi)
pkg_check_modules(ALSA REQUIRED IMPORTED_TARGET alsa)
target_link_libraries(quintara_platform PUBLIC PkgConfig::RTMIDI PkgConfig::ALSA)

# Media players: GStreamer's playbin.
pkg_check_modules(GSTREAMER REQUIRED IMPORTED_TARGET gstreamer-1.0)
target_link_libraries(quintara_platform PUBLIC PkgConfig::GSTREAMER)

# OSC: liblo reads and writes the messages' wire format.
pkg_check_modules(LIBLO REQUIRED IMPORTED_TARGET liblo)
target_link_libraries(quintara_platform PUBLIC PkgConfig::LIBLO)
