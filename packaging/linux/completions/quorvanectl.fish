# Applications and input sources are those that quorvanectl itself tells of: identifier, tab, name, as fish wants them.

function __quorvanectl_words # how many words there are before the one that is typed, options left out
    count (commandline -opc | string match -v -- '-*')
end
function __quorvanectl_at # command, its argument's number
    contains -- $argv[1] (commandline -opc) && test (__quorvanectl_words) -eq (math $argv[2] + 1)
end

complete -c quorvanectl -f
complete -c quorvanectl -l json -d 'Print JSON'
complete -c quorvanectl -l help -d 'Print the commands'
complete -c quorvanectl -l version -d 'Print the version'
for line in 'status,The application in front, its input source, and why' \
    'why,Which input source an application gets, and why' \
    'watch,Each decision as it is made' \
    'apps,The applications that run or are installed' \
    'sources,The input sources' \
    'rules,The rules' \
    'rule,The rule of an application' \
    'default,The input source of applications without a rule' \
    'shortcut,The hot key of an input source' \
    'select,Select an input source' \
    'export,Write rules and options to a file' \
    'import,Read them from a file' \
    'pause,No automatic switch' \
    'resume,Switch automatically again' \
    'doctor,What is missing or odd on this desktop' \
    'defaults,The settings as they are stored'
    set -l command (string split -m 1 , $line)
    complete -c quorvanectl -n 'test (__quorvanectl_words) -eq 1' -a $command[1] -d $command[2]
end
complete -c quorvanectl -n '__quorvanectl_at why 1; or __quorvanectl_at rule 1' -a '(quorvanectl apps 2>/dev/null | cut -f 1,2)'
complete -c quorvanectl -a '(quorvanectl sources 2>/dev/null | cut -f 1,2)' \
    -n '__quorvanectl_at select 1; or __quorvanectl_at shortcut 1; or __quorvanectl_at default 1; or __quorvanectl_at rule 2'
complete -c quorvanectl -n '__quorvanectl_at default 1; or __quorvanectl_at rule 2; or __quorvanectl_at shortcut 2' -a none
complete -c quorvanectl -n '__quorvanectl_at pause 1' -a '10m 30m 1h 2h'
complete -c quorvanectl -n '__quorvanectl_at export 1; or __quorvanectl_at import 1' -F
complete -c quorvanectl -n 'contains import (commandline -opc)' -l dry-run -d 'Only print the difference'
complete -c quorvanectl -n 'contains import (commandline -opc)' -l replace -d 'In place of what is there'
complete -c quorvanectl -n '__quorvanectl_at defaults 1' -a 'domains read write delete dict-add dict-remove'
complete -c quorvanectl -n '__quorvanectl_at defaults 2' -a 'standard shared'
