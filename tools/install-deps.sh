#!/usr/bin/env bash
# Installs what building and testing Ombro needs on a Debian machine.
set -euo pipefail
packages=(
  build-essential cmake pkg-config
  libgtest-dev libgmock-dev libbenchmark-dev
  libfftw3-dev libsndfile1-dev
  libcairo2-dev libfontconfig-dev libfreetype-dev fonts-liberation
  clang libclang-rt-14-dev
  libx11-dev libxtst-dev libasound2-dev xvfb xdotool x11-utils
  ardour
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""; [ "$(id -u)" -eq 0 ] || SUDO=sudo
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}"
fi
