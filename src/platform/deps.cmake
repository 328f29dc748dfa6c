# Libraries of the platform adapters, linked into quintara_platform.
pkg_check_modules(LIBFTDI1 REQUIRED IMPORTED_TARGET libftdi1)
pkg_check_modules(LIBOLA REQUIRED IMPORTED_TARGET libola)
target_link_libraries(quintara_platform PUBLIC PkgConfig::LIBFTDI1 PkgConfig::LIBOLA)

# MIDI ports: RtMidi over the ALSA sequencer or JACK.
pkg_check_modules(RTMIDI REQUIRED IMPORTED_TARGET rtmidi)
target_link_libraries(quintara_platform PUBLIC PkgConfig::RTMIDI)

# Media players: GStreamer's playbin.
pkg_check_modules(GSTREAMER REQUIRED IMPORTED_TARGET gstreamer-1.0)
target_link_libraries(quintara_platform PUBLIC PkgConfig::GSTREAMER)
