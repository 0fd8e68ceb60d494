# SPDX-License-Identifier: MIT
# OpenCV's core module alone, static: the program then needs no DLL of it.
#
# Debian's archive carries none of OpenCV's bundled libraries, and its build looks for every image
# and video format even when only the core is asked for, so each is switched off by name.
formats=(JPEG TIFF WEBP OPENJPEG JASPER PNG OPENEXR PROTOBUF FFMPEG VTK)
accelerators=(ITT IPP OPENCL DIRECTX LAPACK EIGEN ADE QUIRC CAROTENE TBB OPENMP)
builds=(ITT ZLIB SHARED_LIBS TESTS PERF_TESTS EXAMPLES DOCS JAVA opencv_apps opencv_python3)
off=()
for name in "${formats[@]}" "${accelerators[@]}"; do off+=("-DWITH_$name=OFF"); done
for name in "${builds[@]}"; do off+=("-DBUILD_$name=OFF"); done

fresh "$cache/build-opencv" "$opencv"
# The static zlib by name: otherwise the import library is taken, and the program wants zlib1.dll.
# SSE3 and no run-time dispatch: one small matrix gains nothing from more.
cross_cmake "$src/opencv" "$cache/build-opencv" -DCMAKE_INSTALL_PREFIX="$opencv" -DBUILD_LIST=core \
    "${off[@]}" \
    -DZLIB_LIBRARY="/usr/$triple/lib/libz.a" -DCV_TRACE=OFF -DCPU_BASELINE=SSE3 -DCPU_DISPATCH= \
    -DENABLE_PRECOMPILED_HEADERS=OFF
ninja -C "$cache/build-opencv" -j"$jobs" opencv_core
cmake --install "$cache/build-opencv"
rm -rf "$cache/build-opencv"
