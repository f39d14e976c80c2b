# Completion of brevant(1) for fish. The program says what there is; nothing that it answers is
# expanded here.

function __brevant_complete
    set -l token (commandline -ct)
    set -l answer (command brevant complete fish (commandline -opc)[2..] "$token" 2>/dev/null | string split0)
    set -l head (string match -r -- '^--[^=]+=' "$token")
    set -l typed (string replace -- "$head" '' "$token")
    switch "$answer[1]"
        case files
            for path in (__fish_complete_path "$typed")
                printf '%s\n' "$head$path"
            end
        case folders
            for path in (__fish_complete_directories "$typed")
                printf '%s\n' "$head$path"
            end
        case words
            string join0 -- $answer[2..] | string split0
    end
end

complete -c brevant -f -a '(__brevant_complete)'
