#!/usr/bin/env bash
# Installs every Debian package Quintara needs to build, run and test.
# Safe to run again: apt only installs what is missing.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config ccache clang clang-format libclang-rt-14-dev
  qt6-base-dev qt6-base-dev-tools libgl1-mesa-dev
  # The web remote: its page over HTTP and its socket.
  qt6-httpserver-dev qt6-websockets-dev
  libftdi1-dev librtmidi-dev libasound2-dev
  libgstreamer1.0-dev libgstreamer-plugins-base1.0-dev
  # The players: playbin (base); WAV, MP3, scaletempo, audiopanorama, wavenc (good); ALSA output.
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-alsa
  libola-dev ola
  # OSC: the library, and oscsend/oscdump for the tests.
  liblo-dev liblo-tools
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  xvfb xauth util-linux poppler-utils
  # The web remote's browser test: Debian's chromium, driven from node.
  chromium nodejs
)
# Debian's nodejs comes without npm; some builds of node bring their own.
command -v npm >/dev/null 2>&1 || packages+=(npm)

# "install-deps.sh package": also what making and checking the Debian package needs.
if [ "${1:-}" = package ]; then
  packages+=(dpkg-dev fakeroot lintian desktop-file-utils appstream)
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $sudo apt-get update -qq
  $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/tmp/quintara-apt.log 2>&1 || { cat /tmp/quintara-apt.log; exit 1; }
fi

# playwright-core for the browser test, from npm into tests/browser (no
# browser download: the test drives Debian's chromium).
browser="$(dirname "$0")/../tests/browser"
if [ ! -d "$browser/node_modules/playwright-core" ]; then
  # Without the registry the console still builds and tests; only the
  # browser test is skipped, and says why.
  (cd "$browser" && npm ci --no-audit --no-fund --loglevel=error) ||
    echo "install-deps: playwright-core not installed; the browser test will be skipped"
fi
