# Completion of brevant(1) for bash. The program says what there is, quoted as it is to be inserted;
# nothing that it answers is expanded here.

_brevant() {
    local answer
    mapfile -d '' -t answer < <(command brevant complete bash "$COMP_WORDBREAKS" \
        "${COMP_LINE:0:COMP_POINT}" 2>/dev/null)
    COMPREPLY=("${answer[@]:1}")
    case ${answer[0]} in
    files) compopt -o default ;;
    folders) compopt -o dirnames ;;
    esac
}

complete -F _brevant brevant
