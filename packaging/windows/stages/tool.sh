# SPDX-License-Identifier: MIT
# The tool, the SDK stand-in ombrix.sdk.dll and the tests, from the work tree as it is. CTest starts
# the tests through Wine.
cross_cmake "$project" "$tool" -DTAVREL_BUILD_TESTS=ON -DCMAKE_CROSSCOMPILING_EMULATOR="$here/wine-run" \
    -DCMAKE_PROJECT_tavrel_INCLUDE="$here/session/add.cmake"
ninja -C "$tool" -j"$jobs"
tell "tavrel $(tool_version), $(stat -c %s "$tool/bin/tavrel.exe") bytes before stripping"
