# Completion of corvane-utility(1) for fish.

complete -c corvane-utility -f
complete -c corvane-utility -l bench -r -F -d "Run on that bench"
complete -c corvane-utility -l dump -r -F -d "Show the computer in a dump"
complete -c corvane-utility -l help -d "Print help"
complete -c corvane-utility -l journal -r -F -d "Write down what crosses the platform boundary"
complete -c corvane-utility -l version -d "Print the version"
