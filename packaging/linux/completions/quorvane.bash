complete -W '--preferences --at-login --new-instance --self-check --help --version' quorvane
