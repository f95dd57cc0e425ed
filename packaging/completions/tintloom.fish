# Commands and options are read from tintloom's own help.

complete -c tintloom -f
complete -c tintloom -n __fish_use_subcommand \
    -a '(tintloom --help | string replace -rf "^  tintloom ([a-z][a-z-]*) .*" "\$1")'
complete -c tintloom -n 'string match -q -- "-*" (commandline -ct)' \
    -a '(tintloom --help | string replace -rf "^  (--[a-z-]+)(?: [A-Z]\S*)?  +(.*)" "\$1\t\$2")'
complete -c tintloom -n 'string match -qr -- "^--(view|eyes|harmony)\$" (commandline -opc)[-1]' \
    -a '(tintloom --help | string replace -rf ".*\["(commandline -opc)[-1]" ([a-z|]+)\].*" "\$1" | string split "|")'
complete -c tintloom -n 'string match -qr -- "^--(out|picture)\$" (commandline -opc)[-1]' -F
complete -c tintloom -n 'string match -qr -- "^--(package-root|documents|resources)\$" (commandline -opc)[-1]' \
    -a '(__fish_complete_directories)'
