# SPDX-License-Identifier: MIT
# The SVG library and its two plugins, which draw the tool's pictures at any size.
fresh "$cache/build-qtsvg"
cd "$cache/build-qtsvg"
"$qt/bin/qmake" "$src/qtsvg/qtsvg.pro"
make -j"$jobs"
make install
cd "$cache"
rm -rf "$cache/build-qtsvg"
