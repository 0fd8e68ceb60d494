# SPDX-License-Identifier: MIT
# Completion for tavrelctl. The program itself knows its words.
_tavrelctl()
{
    local line=${COMP_LINE:0:COMP_POINT} words
    read -ra words <<<"$line"
    [[ $line != *[[:space:]] ]] || words+=('')
    mapfile -t COMPREPLY < <("${words[0]}" --complete "${words[@]:1}" 2>/dev/null)
    # What stands behind "=" is a word of its own for bash.
    [[ ${words[-1]} != *=* || $COMP_WORDBREAKS != *=* ]] || COMPREPLY=("${COMPREPLY[@]#*=}")
    [[ ${COMPREPLY[0]-} != *= ]] || compopt -o nospace 2>/dev/null
}
complete -o default -F _tavrelctl tavrelctl
