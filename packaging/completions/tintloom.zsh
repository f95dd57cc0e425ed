#compdef tintloom
# Commands and options are read from tintloom's own help, keys from its list of elements, themes from its catalogue.

local program=$words[1] state
local help=$($program --help 2>/dev/null)
local documents=${TINTLOOM_DOCUMENTS:-${XDG_DATA_HOME:-$HOME/.local/share}/Tintloom}
local -a commands options found line
local -A opt_args
commands=(${(f)"$(sed -n 's/^  tintloom \([a-z][a-z-]*\) .*/\1/p' <<<$help)"})
# What an option's value is called says what it can be.
options=(${(f)"$(sed -n -e 's|^  \(--[a-z-]*\) DIR .*|*\1:folder:_files -/|p' \
    -e 's|^  \(--[a-z-]*\) FILE .*|*\1:file:_files|p' \
    -e 's|^  \(--[a-z-]*\) KEY=[A-Z]* .*|*\1:element:->edit|p' \
    -e 's|^  \(--[a-z-]*\) KEY .*|*\1:element:->key|p' \
    -e 's|^  \(--[a-z-]*\) THEME .*|*\1:theme:->theme|p' \
    -e 's|^  \(--[a-z-]*\) [VEH][A-Z]* .*|*\1:value:->one|p' \
    -e 's|^  \(--[a-z-]*\) [A-Z][A-Za-z=]* .*|*\1:value:|p' \
    -e 's|^  \(--[a-z-]*\)  .*|*\1|p' <<<$help)"})
_arguments -C "1:command:($commands)" '*:word:->word' $options && return

[[ $state != word ]] || case $words[2] in
    install|edit|preview|check|share) state=theme ;;
    export) _files; state=theme ;;
    import) _files ;;
    keep|rename|duplicate|remove) state=own ;;
    set) state=edit ;;
    send) state=phone ;;
esac
case $state in
    theme) found=(${(f)"$($program themes 2>/dev/null | sed -n '/^My Themes$/,/^$/{s/^[* ] //p;d;};
        /Coming soon!$/d; s/^[* ] \([^ ]\( \{0,1\}[^ ]\)*\)  .*/\1/p')"}) ;;
    own) found=(${(f)"$($program themes 2>/dev/null | sed -n '/^My Themes$/,/^$/s/^[* ] //p')"}) ;;
    key|edit) found=(${(f)"$($program list 2>/dev/null | awk -F '   *' '/^  / { print $3 }')"}) ;;
    one) found=(${(s:|:)"$(sed -n "s/.*\[$words[CURRENT-1] \([a-z|]*\)\].*/\1/p" <<<$help)"}) ;;
    phone) found=(${(f)"$(awk -F '[<>]' '/<key>name</ { getline; print $3 }' \
        $documents/Phones.plist 2>/dev/null)"}) ;;
esac
[[ $state == edit ]] && compadd -S = -a found || compadd -a found
