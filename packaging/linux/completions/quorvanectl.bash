# Applications and input sources are those that quorvanectl itself tells of.

_quorvanectl_identifiers() { quorvanectl "$1" 2>/dev/null | cut -f 1; }

_quorvanectl() {
  local cur words cword word choices= arguments=()
  _get_comp_words_by_ref -n : cur words cword
  for word in "${words[@]:1:cword-1}"; do [[ $word == -* ]] || arguments+=("$word"); done
  case ${#arguments[@]}:${arguments[*]} in
    *:import* | 1:export) compopt -o default ;;&
    *:import*) choices='--dry-run --replace' ;;
    0:) choices='status why watch apps sources rules rule default shortcut select export import pause resume doctor
      defaults --json --help --version' ;;
    1:why | 1:rule) choices=$(_quorvanectl_identifiers apps) ;;
    1:default | 2:rule*) choices="$(_quorvanectl_identifiers sources) none" ;;
    1:select | 1:shortcut) choices=$(_quorvanectl_identifiers sources) ;;
    2:shortcut*) choices=none ;;
    1:pause) choices='10m 30m 1h 2h' ;;
    1:defaults) choices='domains read write delete dict-add dict-remove' ;;
    2:defaults*) choices='standard shared' ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$cur")
  __ltrim_colon_completions "$cur"
}
complete -F _quorvanectl quorvanectl
