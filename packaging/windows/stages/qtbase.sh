# SPDX-License-Identifier: MIT
# Qt's libraries as Windows DLLs, its tools (moc, uic, rcc, qmake) as programs of this machine.
#
# Debian's archive lacks the parts of Qt that are not free by its rules, so features that need them
# are off: SQL (SQLite), tablet events (Wintab). The rest of the list is what the tool does not use.
# Qt's own copies of zlib, pcre2, libpng, harfbuzz and freetype are built in: no such Windows
# libraries are packaged, and one DLL less each.
options=(
    -opensource -confirm-license -release -shared -strip -prefix "$qt"
    -xplatform win32-g++ -device-option CROSS_COMPILE="$triple-"
    -nomake examples -nomake tests
    -qt-zlib -qt-pcre -qt-libpng -qt-harfbuzz -qt-freetype
    -no-libjpeg -no-opengl -no-icu -no-dbus -no-openssl
    -no-feature-vulkan -no-feature-tabletevent -no-feature-sql -no-feature-network -no-feature-xml
    -no-feature-concurrent -no-feature-printer -no-feature-direct2d1_1
)
# configure takes no -j, and builds qmake by make.
export MAKEFLAGS=-j$jobs

fresh "$cache/build-qtbase" "$qt"
cd "$cache/build-qtbase"
"$src/qtbase/configure" "${options[@]}"
make
make install
cd "$cache"
rm -rf "$cache/build-qtbase"
