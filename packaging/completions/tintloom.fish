# Commands and options are read from tintloom's own help, keys from its list of elements, themes from its catalogue.

# What the help calls the value of the option before the word; nothing where there is none.
function __tintloom_value
    tintloom --help | string replace -rf -- "^  "(commandline -opc)[-1]" ([A-Z]\S*) .*" '$1'
end
function __tintloom_takes
    test "$(__tintloom_value)" = "$argv[1]"
end
# That command, whose words are no values of options.
function __tintloom_in
    __fish_seen_subcommand_from $argv; and test -z "$(__tintloom_value)"
end
function __tintloom_themes
    tintloom themes 2>/dev/null | sed -n '/^My Themes$/,/^$/{s/^[* ] //p;d;}; /Coming soon!$/d; s/^[* ] \([^ ]\( \{0,1\}[^ ]\)*\)  .*/\1/p'
end
function __tintloom_keys
    tintloom list 2>/dev/null | awk -F '   *' '/^  / { print $3 }'
end
function __tintloom_phones
    set -l folder ~/.local/share/Tintloom
    set -q XDG_DATA_HOME; and set folder $XDG_DATA_HOME/Tintloom
    set -q TINTLOOM_DOCUMENTS; and set folder $TINTLOOM_DOCUMENTS
    awk -F '[<>]' '/<key>name</ { getline; print $3 }' $folder/Phones.plist 2>/dev/null
end

complete -c tintloom -f
complete -c tintloom -n '__fish_use_subcommand; and test -z "$(__tintloom_value)"' \
    -a '(tintloom --help | string replace -rf "^  tintloom ([a-z][a-z-]*) .*" "\$1")'
complete -c tintloom -n 'string match -q -- "-*" (commandline -ct)' \
    -a '(tintloom --help | string replace -rf "^  (--[a-z-]+)(?: [A-Z]\S*)?  +(.*)" "\$1\t\$2")'
complete -c tintloom -n 'string match -qr -- "^--(view|eyes|harmony)\$" (commandline -opc)[-1]' \
    -a '(tintloom --help | string replace -rf ".*\["(commandline -opc)[-1]" ([a-z|]+)\].*" "\$1" | string split "|")'
complete -c tintloom -n '__tintloom_takes FILE; or __tintloom_in import export' -F
complete -c tintloom -n '__tintloom_takes DIR' -a '(__fish_complete_directories)'
complete -c tintloom -n '__tintloom_takes THEME; or __tintloom_in install edit preview check export share' \
    -a '(__tintloom_themes)'
complete -c tintloom -n '__tintloom_in keep rename duplicate remove' \
    -a '(tintloom themes 2>/dev/null | sed -n "/^My Themes\$/,/^\$/s/^[* ] //p")'
complete -c tintloom -n '__tintloom_takes KEY' -a '(__tintloom_keys)'
complete -c tintloom -n '__tintloom_takes KEY=VALUE; or __tintloom_takes KEY=FILE; or __tintloom_in set' \
    -a '(__tintloom_keys)='
complete -c tintloom -n '__tintloom_in send' -a '(__tintloom_phones)'
