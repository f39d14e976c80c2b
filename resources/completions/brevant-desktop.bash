# Completion of brevant-desktop(1) for bash.

_brevant_desktop() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    COMPREPLY=()
    case $previous in
    --container) mapfile -t COMPREPLY < <(compgen -d -- "$current"); return ;;
    -o | --output) mapfile -t COMPREPLY < <(compgen -f -- "$current"); return ;;
    --color-scheme) words='light dark' ;;
    --do) words='pause stop resume' ;;
    --picture) words='small medium lock-screen island-compact island-minimal island-expanded' ;;
    --scale) words='1 1.5 2 3' ;;
    --now | --open | --system-version) return ;;
    *) words='--picture --output --scale --do --open --container --now --system-version --color-scheme
        --ios-app-on-mac --help --version' ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

complete -F _brevant_desktop brevant-desktop
