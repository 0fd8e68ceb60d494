# SPDX-License-Identifier: MIT
# The compiler for Windows, Wine, and what building and testing needs. libqt5serialport5-dev gives
# Qt's real serial port headers, behind which our stand-in is built.
packages=(
    g++-mingw-w64-x86-64-posix libz-mingw-w64-dev binutils-mingw-w64-x86-64
    cmake ninja-build make perl python3 dpkg-dev xz-utils zip unzip
    libqt5serialport5-dev libcli11-dev libtomlplusplus-dev
    wine wine64 fonts-wine fonts-liberation fonts-dejavu-core
    xvfb xauth xdotool openbox imagemagick
)

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
if ((${#missing[@]})); then
    [ "$(id -u)" = 0 ] || die "these packages are missing, and only root can install them: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq
    apt-get -o DPkg::Lock::Timeout=900 install -qq -y --no-install-recommends "${missing[@]}"
fi
tell "$(${triple}-g++-posix --version | head -n 1)"
tell "$(wine --version)"
