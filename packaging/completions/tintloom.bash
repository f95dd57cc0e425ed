# Completion of tintloom's arguments in bash. Commands and options are read from its own help, keys
# from its list of elements, themes from its catalogue, so that there is little here to keep in step.

# The names of themes that begin so: of the user's own, or of all that are there.
_tintloom_themes()
{
    local name all=
    [[ $2 == all ]] && all='/Coming soon!$/d; s/^[* ] \([^ ]\( \{0,1\}[^ ]\)*\)  .*/\1/p'
    while IFS= read -r name; do
        printf -v name %q "$name"
        [[ $name == "$3"* ]] && COMPREPLY+=("$name")
    done < <("$1" themes 2>/dev/null | sed -n "/^My Themes\$/,/^\$/{s/^[* ] //p;d;}; $all")
}

_tintloom()
{
    local program=$1 current=$2 before=$3
    local help kind=
    local phones=${TINTLOOM_DOCUMENTS:-${XDG_DATA_HOME:-$HOME/.local/share}/Tintloom}/Phones.plist
    help=$("$program" --help 2>/dev/null) || return
    COMPREPLY=()
    [[ $current != *=* && $before != = ]] || return # a value of the user's own

    # What is opened or written is a file, which may have any name.
    if [[ $current != -* && ($before == import || $before == export) ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        [[ $before == import ]] && compopt -o filenames 2>/dev/null
        [[ $before == export ]] && _tintloom_themes "$program" all "$current"
        return
    fi

    # The word after an option is what the help calls its value.
    [[ $before == --* ]] &&
        kind=$(sed -n "s/^  $before \([A-Z][A-Za-z=]*\) .*/\1/p" <<<"$help")
    [[ ${COMP_WORDS[1]} == set && -z $kind && $current != -* ]] && kind=KEY=VALUE
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
        THEME)
            _tintloom_themes "$program" all "$current"
            ;;
        VIEW | EYES | HARMONY) # the usage lists them: [--view one|another]
            mapfile -t COMPREPLY < <(compgen -W \
                "$(sed -n "s/.*\[$before \([a-z|]*\)\].*/\1/p" <<<"$help" | tr '|' ' ')" -- "$current")
            ;;
        "")
            if [[ $current == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$(sed -n 's/^  \(--[a-z-]*\).*/\1/p' <<<"$help")" \
                    -- "$current")
            elif [[ ${COMP_WORDS[1]} == send && $COMP_CWORD -gt 1 ]]; then # the phones sent to before
                mapfile -t COMPREPLY < <(compgen -W "$(awk -F '[<>]' \
                    '/<key>name</ { getline; print $3 }' "$phones" 2>/dev/null)" -- "$current")
            elif [[ $before == @(install|edit|preview|check|share) ]]; then
                _tintloom_themes "$program" all "$current"
            elif [[ $before == @(keep|rename|duplicate|remove) ]]; then
                _tintloom_themes "$program" own "$current"
            else
                mapfile -t COMPREPLY < <(compgen -W \
                    "$(sed -n 's/^  tintloom \([a-z][a-z-]*\).*/\1/p' <<<"$help")" -- "$current")
                # or a theme to open
                [[ -n $current && ${#COMPREPLY[@]} -eq 0 ]] && compopt -o default 2>/dev/null
            fi
            ;;
    esac
}
complete -F _tintloom tintloom
