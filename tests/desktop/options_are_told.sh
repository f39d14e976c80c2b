#!/usr/bin/env bash
# Every option that the host's usage names is in its man page and known to every shell.
#   options_are_told.sh BREVANT_DESKTOP RESOURCES
set -euo pipefail
failed=0
for option in $("$1" --help | grep -oE -- '^ +(-[a-z], )?--[a-z-]+' | grep -oE -- '--[a-z-]+'); do
    told() { grep -qE -e "$1" "$2" || { echo "$2 lacks $option" && failed=1; }; }
    told "Fl -${option#--}( |\$)" "$2/man/brevant-desktop.1"
    told "$option([ ']|\$)" "$2/completions/brevant-desktop.bash"
    told "$option[})[]" "$2/completions/_brevant-desktop"
    told "-l ${option#--} " "$2/completions/brevant-desktop.fish"
done
exit "$failed"
