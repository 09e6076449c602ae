# Completion of corvane(1) for fish.

# Whether the command before the cursor is the one of these words, "update check", say.
function __corvane_command
    set -l words (commandline -opc)[2..-1]
    set -l commands
    while set -q words[1]
        switch $words[1]
            case --bench --dump --journal --port --speed --topology --alpa --queue-depth --mode --checksum --rsc --server --only --to --seconds
                set -e words[1]
            case '-*'
            case '*'
                set -a commands $words[1]
        end
        set -e words[1]
    end
    contains -- "$commands[1]" archive update; or set commands $commands[1]
    test "$commands[1..2]" = "$argv"
end

complete -c corvane -f
complete -c corvane -l help -d "Print help"
complete -c corvane -n "not __corvane_command archive; and not __corvane_command update" -l json -d "Print one JSON document"

complete -c corvane -n __corvane_command -a archive -d "Build, look into and unpack packages"
complete -c corvane -n __corvane_command -a firmware -d "Update firmware from a package"
complete -c corvane -n __corvane_command -a history -d "List the changes made on this computer"
complete -c corvane -n __corvane_command -a list -d "List the adapters in display order"
complete -c corvane -n __corvane_command -a logs -d "Collect the logs"
complete -c corvane -n __corvane_command -a set -d "Change the settings of a port"
complete -c corvane -n __corvane_command -a sfp -d "Decode a transceiver dump"
complete -c corvane -n __corvane_command -a show -d "Show an adapter and its ports"
complete -c corvane -n __corvane_command -a update -d "Look for updates and install them"
complete -c corvane -n __corvane_command -a watch -d "Tell of each adapter that appears or goes"
complete -c corvane -n __corvane_command -l bench -r -F -d "Run on that bench"
complete -c corvane -n __corvane_command -l dump -r -F -d "Show the computer in a dump"
complete -c corvane -n __corvane_command -l journal -r -F -d "Write down what crosses the platform boundary"
complete -c corvane -n __corvane_command -l version -d "Print the version"

complete -c corvane -n "__corvane_command archive" -a "create extract list verify version"
for command in create extract list verify version
    complete -c corvane -n "__corvane_command archive $command" -F
end
complete -c corvane -n "__corvane_command firmware" -F
complete -c corvane -n "__corvane_command firmware" -l yes -d "Do not ask"
complete -c corvane -n "__corvane_command firmware" -l check -d "Only verify"
complete -c corvane -n "__corvane_command logs" -l to -x -a "(__fish_complete_directories)" -d "Below this folder"
complete -c corvane -n "__corvane_command set" -l port -x -a "1 2" -d "Port"
complete -c corvane -n "__corvane_command set" -l speed -x -a "auto 2 4 8 16" -d "Gb/s"
complete -c corvane -n "__corvane_command set" -l topology -x -a "ptp loop" -d "Topology"
complete -c corvane -n "__corvane_command set" -l alpa -x -d "Hard loop address"
complete -c corvane -n "__corvane_command set" -l queue-depth -x -d "Queue depth"
complete -c corvane -n "__corvane_command set" -l mode -x -a "low-latency balanced high-throughput server" -d "Performance preset"
complete -c corvane -n "__corvane_command set" -l checksum -x -a "on off" -d "Checksum offload"
complete -c corvane -n "__corvane_command set" -l rsc -x -a "on off" -d "Receive-side coalescing"
complete -c corvane -n "__corvane_command sfp" -F
complete -c corvane -n "__corvane_command update" -a "check install"
complete -c corvane -n "__corvane_command update check; or __corvane_command update install" -l server -x -d "Update server"
complete -c corvane -n "__corvane_command update install" -l only -x -d "Only this adapter"
complete -c corvane -n "__corvane_command update install" -l yes -d "Do not ask"
complete -c corvane -n "__corvane_command watch" -l seconds -x -d "End after so many"
