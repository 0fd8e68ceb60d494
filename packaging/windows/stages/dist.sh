# SPDX-License-Identifier: MIT
# The folder that an operator gets: the program, every DLL it needs, Qt's plugins, notes.
. "$here/wine.sh"

name=tavrel-$(tool_version)-windows-x86_64
folder=$dist/$name
rm -rf "$dist"
mkdir -p "$folder/licences"

# Loaded at run time, so no import table names them.
plugins=(
    platforms/qwindows.dll
    styles/qwindowsvistastyle.dll
    imageformats/qico.dll
    imageformats/qsvg.dll
    iconengines/qsvgicon.dll
)
cp "$tool/bin/tavrel.exe" "$tool/bin/tavrelctl.exe" "$folder/"
for plugin in "${plugins[@]}"; do
    install -D "$qt/plugins/$plugin" "$folder/$plugin"
done

# The DLLs, by following the import tables. What is neither built here nor comes with Windows (for
# which Wine's own list stands) would be missing on the operator's PC.
mapfile -t places < <(printf '%s\n' "$tool/bin" "$qt/bin" "$serialport/bin" && runtime_folders)
system=/usr/lib/x86_64-linux-gnu/wine/x86_64-windows
queue=("$folder"/*.exe "$folder"/*/*.dll)
while ((${#queue[@]})); do
    file=${queue[0]}
    queue=("${queue[@]:1}")
    while read -r dll; do
        [ ! -e "$folder/$dll" ] || continue
        found=$(find "${places[@]}" -maxdepth 1 -iname "$dll" -print -quit)
        if [ -n "$found" ]; then
            cp -L "$found" "$folder/$dll"
            queue+=("$folder/$dll")
        elif [ -z "$(find "$system" -maxdepth 1 -iname "$dll" -print -quit)" ]; then
            die "$(basename "$file") needs $dll, which is neither ours nor a part of Windows"
        fi
    done < <("$triple-objdump" -p "$file" | sed -n 's/^\tDLL Name: //p')
done
find "$folder" -name '*.dll' -o -name '*.exe' | xargs "$triple-strip"

# Licences: the tool's, what the packages' own files say, and the licences they refer to.
cp "$project/LICENSE" "$folder/licences/tavrel.txt"
cp "$src/qtbase/debian/copyright" "$folder/licences/qtbase.txt"
cp "$src/qtsvg/debian/copyright" "$folder/licences/qtsvg.txt"
cp "$src/opencv/LICENSE" "$folder/licences/opencv.txt"
cp "$src/opencv/debian/copyright" "$folder/licences/opencv-parts.txt"
cp /usr/share/doc/g++-mingw-w64-x86-64-posix/copyright "$folder/licences/gcc-runtime.txt"
cp /usr/share/doc/mingw-w64-common/copyright "$folder/licences/winpthreads.txt"
cp /usr/share/doc/libz-mingw-w64-dev/copyright "$folder/licences/zlib.txt"
cp /usr/share/doc/libcli11-dev/copyright "$folder/licences/cli11.txt"
cp /usr/share/doc/libtomlplusplus-dev/copyright "$folder/licences/tomlplusplus.txt"
for licence in GPL-2 GPL-3 LGPL-2.1 LGPL-3 Apache-2.0; do
    cp "/usr/share/common-licenses/$licence" "$folder/licences/$licence.txt"
done
sed -e "s/@VERSION@/$(tool_version)/" \
    -e "s/@QTBASE@/$(cat "$src/qtbase-opensource-src.version")/" \
    -e "s/@QTSVG@/$(cat "$src/qtsvg-opensource-src.version")/" \
    -e "s/@OPENCV@/$(cat "$src/opencv.version")/" \
    -e "s/@COMPILER@/$("$triple-g++-posix" -dumpfullversion)/" \
    "$here/notes.txt.in" >"$folder/NOTES.txt"
# For Notepad.
find "$folder" -name '*.txt' -print0 | xargs -0 sed -i 's/\r*$/\r/'

tell "$name: $(find "$folder" -type f | wc -l) files, $(du -sm "$folder" | cut -f 1) MB"
