# Completion of tintloom's arguments in bash. Commands and options are read from its own help, keys
# from its list of elements, so that there is nothing here to keep in step.

_tintloom()
{
    local program=$1 current=$2 before=$3
    local help kind=
    help=$("$program" --help 2>/dev/null) || return
    COMPREPLY=()
    [[ $current != *=* && $before != = ]] || return # a value of the user's own

    # The word after an option is what the help calls its value.
    [[ $before == --* ]] &&
        kind=$(sed -n "s/^  $before \([A-Z][A-Za-z=]*\) .*/\1/p" <<<"$help")
    case $kind in
        DIR)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
            ;;
        KEY | KEY=VALUE)
            local end=
            [[ $kind == KEY ]] || { end== && compopt -o nospace 2>/dev/null; }
            mapfile -t COMPREPLY < <(compgen -S "$end" -W "$("$program" list 2>/dev/null |
                awk -F '   *' '/^  / { print $3 }')" -- "$current")
            ;;
        FILE)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            ;;
        VIEW | EYES | HARMONY) # the usage lists them: [--view one|another]
            mapfile -t COMPREPLY < <(compgen -W \
                "$(sed -n "s/.*\[$before \([a-z|]*\)\].*/\1/p" <<<"$help" | tr '|' ' ')" -- "$current")
            ;;
        "")
            if [[ $current == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$(sed -n 's/^  \(--[a-z-]*\).*/\1/p' <<<"$help")" \
                    -- "$current")
            else
                mapfile -t COMPREPLY < <(compgen -W \
                    "$(sed -n 's/^  tintloom \([a-z][a-z-]*\).*/\1/p' <<<"$help")" -- "$current")
            fi
            ;;
    esac
}
complete -F _tintloom tintloom
