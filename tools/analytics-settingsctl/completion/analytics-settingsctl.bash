# Completion of analytics-settingsctl for bash.

_analytics_settingsctl() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local command=${COMP_WORDS[1]} options
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W "settings get expand profile check draw set delete-rules \
      watch available reserve --version --help" -- "$current")
    return
  fi

  case $previous in
    --settings | -o | --output | --background)
      mapfile -t COMPREPLY < <(compgen -f -- "$current")
      return
      ;;
    --as)
      mapfile -t COMPREPLY < <(compgen -W "settings profile" -- "$current")
      return
      ;;
    --without | --explain)
      mapfile -t COMPREPLY < <(compgen -W \
        "$(analytics-settingsctl check --list 2>/dev/null | awk '/^[a-z]/ {print $1}')" -- "$current")
      return
      ;;
    --size | --int | --rule | --item) return ;;
  esac

  case $command in
    settings) options="--json" ;;
    get) options="--all --int --settings" ;;
    expand) options="--settings" ;;
    profile) options="--json --settings" ;;
    check) options="--as --settings --without --fix-hints --json --list --explain" ;;
    draw) options="-o --output --size --background --settings" ;;
    set) options="--rule --item -o --output --dry-run --settings" ;;
    delete-rules) options="-o --output --dry-run --settings" ;;
    watch | available | reserve) options="--json" ;;
    *) return ;;
  esac
  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
  fi
}

complete -o filenames -F _analytics_settingsctl analytics-settingsctl
