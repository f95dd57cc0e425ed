#compdef tintloom
# Commands and options are read from tintloom's own help.

local help=$($words[1] --help 2>/dev/null)
local -a commands options
commands=(${(f)"$(sed -n 's/^  tintloom \([a-z][a-z-]*\) .*/\1/p' <<<$help)"})
options=(${(f)"$(sed -n -e 's|^  \(--[a-z-]*\) DIR .*|*\1:folder:_files -/|p' \
    -e 's|^  \(--[a-z-]*\) FILE .*|*\1:file:_files|p' \
    -e 's|^  \(--[a-z-]*\) [A-Z][A-Za-z=]* .*|*\1:value:|p' \
    -e 's|^  \(--[a-z-]*\)  .*|*\1|p' <<<$help)"})
[[ $words[2] == (import|export) ]] && options+=('*:file:_files')
_arguments "1:command:($commands)" $options
