#compdef tintloom
# Commands and options are read from tintloom's own help, themes from its catalogue.

local help=$($words[1] --help 2>/dev/null)
local -a commands options themes
commands=(${(f)"$(sed -n 's/^  tintloom \([a-z][a-z-]*\) .*/\1/p' <<<$help)"})
options=(${(f)"$(sed -n -e 's|^  \(--[a-z-]*\) DIR .*|*\1:folder:_files -/|p' \
    -e 's|^  \(--[a-z-]*\) FILE .*|*\1:file:_files|p' \
    -e 's|^  \(--[a-z-]*\) [A-Z][A-Za-z=]* .*|*\1:value:|p' \
    -e 's|^  \(--[a-z-]*\)  .*|*\1|p' <<<$help)"})
local documents=${TINTLOOM_DOCUMENTS:-${XDG_DATA_HOME:-$HOME/.local/share}/Tintloom}
local -a phones # to which was sent before
if [[ $words[2] == send && $CURRENT -gt 2 && $words[CURRENT] != -* ]]; then
    phones=(${(f)"$(awk -F '[<>]' '/<key>name</ { getline; print $3 }' $documents/Phones.plist 2>/dev/null)"})
    compadd -a phones
fi
themes=(${(f)"$($words[1] themes 2>/dev/null | sed -n '/^My Themes$/,/^$/{s/^[* ] //p;d;};
    /Coming soon!$/d; s/^[* ] \([^ ]\( \{0,1\}[^ ]\)*\)  .*/\1/p')"})
local second="2:theme:compadd -a themes"
[[ $words[2] == (import|export) ]] && second='*:file:{ [[ $words[2] == export ]] && compadd -a themes; _files }'
_arguments "1:command:($commands)" $second $options
