# SPDX-License-Identifier: MIT
# The stand-in for Qt's serial port module, whose source package the archive does not hold.
fresh "$cache/build-serialport" "$serialport"
cross_cmake "$here/serialport" "$cache/build-serialport" -DCMAKE_INSTALL_PREFIX="$serialport"
ninja -C "$cache/build-serialport" -j"$jobs"
cmake --install "$cache/build-serialport"
rm -rf "$cache/build-serialport"
