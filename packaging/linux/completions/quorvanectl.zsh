#compdef quorvanectl
# Applications and input sources are those that quorvanectl itself tells of.

_quorvanectl_identifiers() { # apps or sources, what they are
  local line
  local -a described
  for line in ${(f)"$(quorvanectl $1 2>/dev/null)"}; do
    described+=("${${line%%$'\t'*}//:/\\:}:${${line#*$'\t'}%%$'\t'*}")
  done
  _describe $2 described
}
_quorvanectl_applications() { _quorvanectl_identifiers apps application }
_quorvanectl_sources() { _quorvanectl_identifiers sources 'input source' }
_quorvanectl_sources_or_none() { _alternative 'sources:input source:_quorvanectl_sources' 'none:none:(none)' }

_quorvanectl() {
  local -a commands=(
    'status:the application in front, its input source, and why'
    'why:which input source an application gets, and why'
    'watch:each decision as it is made'
    'apps:the applications that run or are installed'
    'sources:the input sources'
    'rules:the rules'
    'rule:the rule of an application'
    'default:the input source of applications without a rule'
    'shortcut:the hot key of an input source'
    'select:select an input source'
    'export:write rules and options to a file'
    'import:read them from a file'
    'pause:no automatic switch'
    'resume:switch automatically again'
    'doctor:what is missing or odd on this desktop'
    'defaults:the settings as they are stored'
  )
  local context state line
  local -A opt_args
  _arguments -C : '--json[print JSON]' '(- *)--help[print the commands]' '(- *)--version[print the version]' \
    '1:command:->command' '*::argument:->argument' && return
  if [[ $state == command ]]; then
    _describe command commands
    return
  fi
  case $words[1] in
    why) _arguments '1:application:_quorvanectl_applications' ;;
    rule) _arguments '1:application:_quorvanectl_applications' '2:input source:_quorvanectl_sources_or_none' ;;
    default) _arguments '1:input source:_quorvanectl_sources_or_none' ;;
    select) _arguments '1:input source:_quorvanectl_sources' ;;
    shortcut) _arguments '1:input source:_quorvanectl_sources' '2:keys:(none)' ;;
    export) _arguments '1:file:_files' ;;
    import) _arguments '1:file:_files' '--dry-run[only print the difference]' '--replace[in place of what is there]' ;;
    pause) _arguments '1:duration:(10m 30m 1h 2h)' ;;
    defaults) _arguments '1:command:(domains read write delete dict-add dict-remove)' '2:domain:(standard shared)' ;;
  esac
}
_quorvanectl "$@"
