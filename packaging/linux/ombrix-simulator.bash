# SPDX-License-Identifier: MIT
# Completion for ombrix-simulator. Commands come from the program; cameras, keys and faults from the
# simulator, where one answers.
_ombrix_simulator()
{
    local program=$1 word=$2 at=() words=("${COMP_WORDS[@]:1:COMP_CWORD-1}") choice=
    if [[ ${words[0]-} == --at ]]; then
        # What stands behind "=" is a word of its own for bash.
        [[ ${words[1]-} != = ]] || unset 'words[1]'
        words=("${words[@]}")
        at=(--at "${words[1]-}")
        words=("${words[@]:2}")
        [[ -n ${at[1]} ]] || return 0 # the path of the socket
    fi
    case ${#words[@]}:${words[0]-} in
        0:) choice=$("$program" --help | sed -n 's/^  \([a-z]\{1,\}\) .*/\1/p') ;;
        1:get | 1:set | 1:pull | 1:plug)
            choice=$("$program" "${at[@]}" list 2>/dev/null |
                sed -n 'h; s/^\[\([^] ]*\)\] .*/\1/p; g; s/^\[.*\] serial number \([0-9]*\) .*/\1/p')
            ;;
        2:get) choice=$("$program" "${at[@]}" get "${words[1]}" 2>/dev/null | sed 's/=.*//') ;;
        *:set)
            [[ ${words[-1]} != = ]] || return 0 # a value
            choice=$("$program" "${at[@]}" get "${words[1]}" 2>/dev/null | sed 's/=.*/=/')
            compopt -o nospace 2>/dev/null
            ;;
        1:lift) choice=$("$program" "${at[@]}" list 2>/dev/null | sed -n 's/^fault \[\(.*\)\]$/\1/p') ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$choice" -- "$word")
}
complete -o default -F _ombrix_simulator ombrix-simulator
