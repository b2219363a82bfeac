# Completion of veskel-cli for fish. What may follow is known by the program itself.

function __veskel_cli_complete
    set -l words (commandline -opc)
    set -l current (commandline -ct | string unescape)
    for line in ($words[1] complete -- $words[2..-1] "$current" 2>/dev/null)
        switch $line
            case \tfiles
                __fish_complete_path "$current"
            case \tfolders
                __fish_complete_directories "$current"
            case '*'
                echo $line
        end
    end
end

complete -c veskel-cli -f -a '(__veskel_cli_complete)'
