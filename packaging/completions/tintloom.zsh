#compdef tintloom
# Commands and options are read from tintloom's own help.

local help=$($words[1] --help 2>/dev/null)
local -a commands options
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
_arguments "1:command:($commands)" $options
