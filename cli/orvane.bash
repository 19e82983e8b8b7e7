# Completion of orvane for bash: commands, options as each command's --help tells them, and values.

_orvane_words() {
  mapfile -t COMPREPLY < <(compgen -W "$1" -- "${COMP_WORDS[COMP_CWORD]}")
}

_orvane_commands() {
  "$1" --help 2>/dev/null | awk '/^Subcommands:/ { on = 1; next } on && /^  [a-z]/ { print $1 } on && /^[^ ]/ { exit }'
}

_orvane_options() {
  "$1" "$2" --help 2>/dev/null | awk '/^Options:/ { on = 1; next } on && /^$/ { exit } on' | grep -oE -- '--[a-z]+'
}

_orvane() {
  local program=${COMP_WORDS[0]} command=${COMP_WORDS[1]} word=${COMP_WORDS[COMP_CWORD]}
  local kinds="stampa fax pfax email pbl anteprima"
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    _orvane_words "$(_orvane_commands "$program") --help --version"
    return
  fi
  case ${COMP_WORDS[COMP_CWORD - 1]} in
    --kind) _orvane_words "$kinds" && return ;;
    --of) _orvane_words "stampa fax pfax email" && return ;;
    --state) _orvane_words "waiting working done rejected withdrawn unknown" && return ;;
    --sort) _orvane_words "kind id state age to" && return ;;
    --format) _orvane_words "csv jsonl" && return ;;
    --count | --seconds | --details) return ;;
    --pages) mapfile -t COMPREPLY < <(compgen -d -- "$word") && return ;;
  esac
  if [[ $word == -* ]]; then
    _orvane_words "$(_orvane_options "$program" "$command")"
  elif [[ $command == new ]] && ((COMP_CWORD == 2)); then
    _orvane_words "$kinds"
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}

complete -o filenames -F _orvane orvane
