#!/usr/bin/env bash
# Installs the Debian packages Vonari needs to build, test and run. Safe to run again.
set -euo pipefail

PACKAGES=(
  build-essential cmake ninja-build pkg-config ccache
  qt6-base-dev qt6-base-dev-tools libqt6opengl6-dev libqt6sql6-sqlite qt6-charts-dev qt6-svg-dev
  libsqlite3-dev sqlite3 libcurl4-openssl-dev libxlsxwriter-dev libzint-dev qtkeychain-qt6-dev msmtp-mta openssl
  libgtest-dev libbenchmark-dev
  libgl1-mesa-dev libxkbcommon-dev
  xvfb xauth imagemagick poppler-utils zbar-tools python3-aiosmtpd xdotool
  fonts-dejavu-core fonts-liberation2 locales unzip qt6-translations-l10n
  clang-14 libfuzzer-14-dev
)

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then
    SUDO="sudo"
  else
    echo "deps.sh: puuttuvat paketit (${missing[*]}) vaativat pääkäyttäjän oikeudet" >&2
    exit 1
  fi
fi

echo "deps.sh: asennetaan ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
