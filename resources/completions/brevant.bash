# Completion of brevant(1) for bash.

_brevant_guids() {
    brevant activities 2>/dev/null | grep -oE '[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}'
}

_brevant_categories() {
    brevant categories --leaves --json 2>/dev/null | grep -o '"name":"[^"\\]*"' | cut -d'"' -f4
}

_brevant() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local globals='--container --now --system-version --color-scheme --ios-app-on-mac --json --help'
    local commands='activities categories category cloud doctor icon intent live open pause picture
        placeholder reminders resume sample snapshot start status stop timeline widgets'
    local live='start list update end show decode'
    local reminders='settings times schedule cancel pending deliver'
    COMPREPLY=()

    case $previous in
    --container) mapfile -t COMPREPLY < <(compgen -d -- "$current"); return ;;
    -o | --output) mapfile -t COMPREPLY < <(compgen -f -- "$current"); return ;;
    --color-scheme) mapfile -t COMPREPLY < <(compgen -W 'light dark' -- "$current"); return ;;
    --format) mapfile -t COMPREPLY < <(compgen -W 'waybar i3blocks polybar' -- "$current"); return ;;
    --scale) mapfile -t COMPREPLY < <(compgen -W '1 2 3' -- "$current"); return ;;
    --name) mapfile -t COMPREPLY < <(IFS=$'\n'; compgen -W "$(_brevant_categories)" -- "$current" | sed 's/ /\\ /g'); return ;;
    --now | --system-version | --color | --id) return ;;
    esac

    # The command is the first word that is neither an option nor an option's value.
    local i command= words=
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
        --container | --now | --system-version | --color-scheme) ((i++)) ;;
        -*) ;;
        *) command=${COMP_WORDS[i]}; break ;;
        esac
    done

    case $command in
    '') words=$commands ;;
    activities) words='--running' ;;
    categories) words='--roots --leaves' ;;
    category) words='--id --name' ;;
    status) words='--format' ;;
    stop | pause | resume) words=$(_brevant_guids) ;;
    start)
        mapfile -t COMPREPLY < <(IFS=$'\n'; compgen -W "$(_brevant_categories)" -- "$current" | sed 's/ /\\ /g')
        return ;;
    intent) words='StopActivityIntent StopActivityLiveIntent stop pause' ;;
    icon) words='--color --output' ;;
    picture) words='small medium lock-screen island-compact island-minimal island-expanded --scale --output' ;;
    sample) mapfile -t COMPREPLY < <(compgen -d -- "$current"); return ;;
    live) [ "$i" -eq $((COMP_CWORD - 1)) ] && words=$live || words='--all' ;;
    reminders) [ "$i" -eq $((COMP_CWORD - 1)) ] && words=$reminders || words='--watch' ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words $globals" -- "$current")
}

complete -F _brevant brevant
