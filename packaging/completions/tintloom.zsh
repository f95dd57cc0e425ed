#compdef tintloom
# Commands are read from tintloom's own help; _arguments reads the options there itself.

local -a commands
commands=(${(f)"$($words[1] --help 2>/dev/null |
    sed -n 's/^  tintloom \([a-z][a-z-]*\) .*/\1/p')"})
_arguments "1:command:($commands)" '*:: :' -- '*=DIR*:folder:_files -/' '* DIR:folder:_files -/'
