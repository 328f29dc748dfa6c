#!/usr/bin/env bash
# Installs every Debian package Quintara needs to build, run and test.
# Safe to run again: apt only installs what is missing.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config ccache clang clang-format libclang-rt-14-dev
  qt6-base-dev qt6-base-dev-tools libgl1-mesa-dev
  libftdi1-dev librtmidi-dev libasound2-dev
  libgstreamer1.0-dev libgstreamer-plugins-base1.0-dev
  # The players: playbin (base); WAV, MP3, scaletempo, audiopanorama, wavenc (good); ALSA output.
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-alsa
  libola-dev ola
  # OSC: the library, and oscsend/oscdump for the tests.
  liblo-dev liblo-tools
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  xvfb xauth util-linux poppler-utils
)

# "install-deps.sh package": also what making and checking the Debian package needs.
if [ "${1:-}" = package ]; then
  packages+=(dpkg-dev fakeroot lintian desktop-file-utils appstream)
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/tmp/quintara-apt.log 2>&1 || { cat /tmp/quintara-apt.log; exit 1; }
