#!/bin/sh
# Installs the Debian packages that building, running and testing Quorvel need, when any is missing.
# With the argument "fuzz", also those that the fuzz targets need; with "package", those that building
# the Debian package needs; with "coverage", the coverage report; with "format", the formatter.
set -eu

PACKAGES="
  cmake ninja-build g++ make pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-qpa-plugins
  libfreexl-dev python3-xlwt
  libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth imagemagick fonts-dejavu-core poppler-utils
"
case "${1:-}" in
  fuzz) PACKAGES="$PACKAGES clang libclang-rt-14-dev" ;;
  package) PACKAGES="$PACKAGES dpkg-dev file" ;;
  coverage) PACKAGES="$PACKAGES gcovr" ;;
  format) PACKAGES="$PACKAGES clang-format" ;;
esac

missing=""
for package in $PACKAGES; do
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  case "$status" in
    *"install ok installed"*) ;;
    *) missing="$missing $package" ;;
  esac
done

[ -z "$missing" ] && exit 0

echo "Installing missing packages:$missing"
if [ "$(id -u)" -eq 0 ]; then
  SUDO=""
elif command -v sudo >/dev/null 2>&1; then
  SUDO="sudo"
else
  echo "These packages are missing and this user cannot install them:$missing" >&2
  echo "Install them as root (apt-get install$missing), then run make again." >&2
  exit 1
fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -q
# shellcheck disable=SC2086
$SUDO apt-get install -y -q --no-install-recommends $missing
