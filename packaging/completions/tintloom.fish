# Commands and options are read from tintloom's own help, themes from its catalogue.

complete -c tintloom -f
complete -c tintloom -n __fish_use_subcommand \
    -a '(tintloom --help | string replace -rf "^  tintloom ([a-z][a-z-]*) .*" "\$1")'
complete -c tintloom -n 'string match -q -- "-*" (commandline -ct)' \
    -a '(tintloom --help | string replace -rf "^  (--[a-z-]+)(?: [A-Z]\S*)?  +(.*)" "\$1\t\$2")'
complete -c tintloom -n 'string match -qr -- "^--(view|eyes|harmony)\$" (commandline -opc)[-1]' \
    -a '(tintloom --help | string replace -rf ".*\["(commandline -opc)[-1]" ([a-z|]+)\].*" "\$1" | string split "|")'
complete -c tintloom -n 'string match -qr -- "^(--(out|qr|picture)|import|export)\$" (commandline -opc)[-1]' -F
complete -c tintloom -n 'string match -qr -- "^--(package-root|documents|resources)\$" (commandline -opc)[-1]' \
    -a '(__fish_complete_directories)'
complete -c tintloom -n '__fish_seen_subcommand_from install edit preview check export share' \
    -a '(tintloom themes | sed -n "/^My Themes\$/,/^\$/{s/^[* ] //p;d;}; /Coming soon!\$/d; s/^[* ] \([^ ]\( \{0,1\}[^ ]\)*\)  .*/\1/p")'
complete -c tintloom -n '__fish_seen_subcommand_from keep rename duplicate remove' \
    -a '(tintloom themes | sed -n "/^My Themes\$/,/^\$/s/^[* ] //p")'
complete -c tintloom -n '__fish_seen_subcommand_from send' \
    -a '(set -q TINTLOOM_DOCUMENTS; and set -l folder $TINTLOOM_DOCUMENTS; or set -l folder ~/.local/share/Tintloom; awk -F "[<>]" "/<key>name</ { getline; print \$3 }" $folder/Phones.plist 2>/dev/null)'
