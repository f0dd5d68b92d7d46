# SPDX-License-Identifier: LGPL-2.1-or-later
# Bash completion for kxcommon: commands, their second words and their options, read from the
# program's own help, so that it never lists a command the program does not have.
_kxcommon() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    local program=${COMP_WORDS[0]} i word
    local -a typed=()
    case $prev in
        --db | --def | --search-path | --to) COMPREPLY=($(compgen -f -- "$cur")); return ;;
    esac
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        case $word in
            --db | --def | --search-path | --to | --type | --user | --lager | --action | --mode) ((i++)) ;;
            -*) ;;
            *) typed+=("$word") ;;
        esac
    done
    local commands
    commands=$("$program" --help 2>/dev/null | sed -n 's/^  \([a-z][a-z-]*\)\( [a-z][a-z-]*\)\?\( .*\)\?$/\1\2/p')
    if [ ${#typed[@]} -eq 0 ]; then
        COMPREPLY=($(compgen -W "$(cut -d' ' -f1 <<<"$commands" | sort -u) --db --json --verbose --help --version" -- "$cur"))
    elif [ ${#typed[@]} -eq 1 ] && grep -q "^${typed[0]} " <<<"$commands" && [[ $cur != -* ]]; then
        COMPREPLY=($(compgen -W "$(sed -n "s/^${typed[0]} //p" <<<"$commands")" -- "$cur"))
    elif [[ $cur == -* ]]; then
        local options
        options=$("$program" "${typed[@]:0:2}" --help 2>/dev/null | grep -o -- '--[a-z][a-z-]*' | sort -u)
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
    else
        COMPREPLY=($(compgen -f -- "$cur"))
    fi
}
complete -F _kxcommon kxcommon
