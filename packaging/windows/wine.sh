# SPDX-License-Identifier: MIT
# How Wine is set up for this lane. Sourced after or instead of lib.sh, never run.
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

wine_prefix=${WINEPREFIX:-$cache/wine}

# The DLLs of the compiler, by their folders.
runtime_folders() {
    local dll
    for dll in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
        dirname "$(runtime_dll "$dll")"
    done | sort -u
}

runtime_dll() {
    local path
    path=$("$triple-g++-posix" -print-file-name="$1")
    # The compiler repeats the bare name of a file that it does not know.
    [ -e "$path" ] || path=/usr/$triple/lib/$1
    [ -e "$path" ] || die "no $1 comes with the compiler"
    readlink -f "$path"
}

# A Linux path as Wine's programs see it.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

wine_environment() {
    export WINEPREFIX=$wine_prefix
    export WINEARCH=win64
    # Names of files are UTF-8, whatever the machine says.
    export LC_ALL=C.UTF-8
    export WINEDEBUG=${WINEDEBUG:--all}
    # Neither the browser nor .NET: no program here needs them, and Wine would ask to fetch them.
    export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe='
    export WINEQT_FORCE_STDERR_LOGGING=1
    # Without a folder of fonts the offscreen platform draws no text.
    export WINEQT_QPA_FONTDIR
    WINEQT_QPA_FONTDIR=$(windows_path /usr/share/fonts/truetype/dejavu)
    local folder
    export WINEPATH=''
    for folder in "$tool/bin" "$qt/bin" "$serialport/bin" $(runtime_folders); do
        WINEPATH+=$(windows_path "$folder")\;
    done
}

# wine_prepare: makes the Wine folder when it is not there yet or when its settings changed, and starts
# its server for as long as wine_end is not called. The list of ports is volatile: it lives as long as
# the server.
wine_prepare() {
    wine_environment
    local settings
    settings=$(sha256sum <"$here/wine.reg")
    if [ "$(cat "$wine_prefix/settings" 2>/dev/null || true)" != "$settings" ]; then
        rm -rf "$wine_prefix"
        wineboot --init
        wineserver -w
        wine regedit /S "$(windows_path "$here/wine.reg")"
        wineserver -w
        echo "$settings" >"$wine_prefix/settings"
    fi
    wineserver -p
}

wine_end() {
    wine_environment
    wineserver -k || true
    wineserver -w || true
}
