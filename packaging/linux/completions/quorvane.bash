complete -W '--preferences --at-login --new-instance --help --version' quorvane
