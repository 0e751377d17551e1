# shellcheck shell=bash
# Completes the command line of vorelle-batch: commands and options from --completion, aircraft from 'list', parts from
# 'manips'.

# Reads the words before the one to complete, as typed: the command, its arguments, and -C.
_vorelle_batch_read() {
  local i word
  command='' arguments=() run=(vorelle-batch)
  for ((i = 1; i < COMP_CWORD; ++i)); do
    word=${COMP_WORDS[i]}
    if [ "$word" = -C ]; then
      ((++i))
      run+=(-C "$(_vorelle_batch_plain "${COMP_WORDS[i]}")")
    elif [ "${word:0:1}" = - ]; then
      [ -z "$(_vorelle_batch_takes "$word")" ] || ((++i))
    elif [ -z "$command" ]; then
      command=$word
    elif [ "$command" = vrconfig ]; then
      command="vrconfig $word"
    else
      arguments+=("$word")
    fi
  done
}

# A word without its quotes and back-slashes; nothing in it is executed or expanded.
_vorelle_batch_plain() {
  printf '%s' "$1" | sed -e "s/^[\"']//" -e "s/[\"']\$//" -e 's/\\\(.\)/\1/g' -e "s|^~/|$HOME/|"
}

# Options of the command, one per line: option, tab, kind of its value.
_vorelle_batch_options() {
  "${run[0]}" --completion 2>/dev/null | sed -n "s/^$command\t\(-.*\)/\1/p"
}

# The names of the commands, or of those below a command, whose name and a space are given.
_vorelle_batch_commands() { # [PREFIX]
  "${run[0]}" --completion 2>/dev/null | sed -n "s/^${1-}\([^\t ]\{1,\}\)\t\t\$/\1/p"
}

_vorelle_batch_takes() { # OPTION
  _vorelle_batch_options | sed -n "s/^$1\t\(..*\)/\1/p"
}

# Offers the lines of standard input that begin with the word, quoted for the shell.
_vorelle_batch_offer() {
  local line quote=''
  [[ $current != [\"\']* ]] || quote=${current:0:1}
  while IFS= read -r line; do
    [[ $line == "$plain"* ]] || continue
    [ -n "$quote" ] || printf -v line '%q' "$line"
    COMPREPLY+=("${line//\\,/,}")
  done
}

# By the name of its folder, or by its path if the word begins one.
_vorelle_batch_aircraft() {
  "${run[@]}" list 2>/dev/null | cut -f 1 |
    if [[ $plain == Aircraft/* ]]; then cat; else sed 's|/[^/]*$||; s|.*/||'; fi
}

_vorelle_batch_arguments() {
  case $command in
    vrconfig) _vorelle_batch_offer < <(_vorelle_batch_commands 'vrconfig ') ;;
    detect | inspect | render | lint | manips | test | accept | 'vrconfig '*) _vorelle_batch_offer < <(_vorelle_batch_aircraft) ;;
    explain)
      if [ ${#arguments[@]} -eq 0 ]; then
        _vorelle_batch_offer < <(_vorelle_batch_aircraft)
      else
        _vorelle_batch_offer < <("${run[@]}" manips --json "$(_vorelle_batch_plain "${arguments[0]}")" 2>/dev/null |
          sed -n 's/.*"node":\([0-9]*\),"part":\([0-9]*\),.*/\1,\2/p')
      fi
      ;;
    compare) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -d -- "$plain") ;;
    merge) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -f -- "$plain") ;;
  esac
}

_vorelle_batch() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} plain command run arguments
  COMPREPLY=()
  plain=$(_vorelle_batch_plain "$current")
  _vorelle_batch_read
  case $([ "${previous:0:1}" != - ] || _vorelle_batch_takes "$previous") in
    DIR) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -d -- "$plain"); return ;;
    FILE) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -f -- "$plain"); return ;;
    ?*) return ;;
  esac
  if [ "${current:0:1}" = - ]; then
    _vorelle_batch_offer < <(_vorelle_batch_options | cut -f 1)
  elif [ -z "$command" ]; then
    _vorelle_batch_offer < <(_vorelle_batch_commands)
  else
    _vorelle_batch_arguments
  fi
}

complete -F _vorelle_batch vorelle-batch
