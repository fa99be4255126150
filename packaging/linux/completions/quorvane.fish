complete -c quorvane -f
complete -c quorvane -l help -d 'Print what it understands'
complete -c quorvane -l version -d 'Print the version'
complete -c quorvane -l self-check -d 'Print what this desktop answers'
complete -c quorvane -l preferences -d 'Open the window'
complete -c quorvane -l at-login -d 'Leave when it runs already'
complete -c quorvane -l new-instance -d 'Replace the one that runs'
