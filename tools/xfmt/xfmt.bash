# bash completion of xfmt: commands, options, and the names of conversions
# (asked of xfmt itself with `xfmt list --names`, once per shell).
# Installed as share/bash-completion/completions/xfmt.

_xfmt_names() {
  if [ -z "${_xfmt_name_cache-}" ]; then
    _xfmt_name_cache=$("${1:-xfmt}" list --names 2>/dev/null)
  fi
  printf '%s\n' "$_xfmt_name_cache"
}

_xfmt() {
  local cur prev words cword
  cur=${COMP_WORDS[COMP_CWORD]}
  prev=${COMP_WORDS[COMP_CWORD-1]}
  local commands="put input list describe csv help"
  local global="--locale --encoding --utf16 --control --help --version"

  case $prev in
    --control|--output|--locale|--encoding)
      case $prev in
        --control) COMPREPLY=($(compgen -f -- "$cur")) ;;
        --output) COMPREPLY=($(compgen -W "report csv tsv" -- "$cur")) ;;
        *) COMPREPLY=() ;;
      esac
      return 0
      ;;
  esac

  # The command is the first word that is neither an option nor its value.
  local i cmd="" operands=0
  for ((i = 1; i < COMP_CWORD; i++)); do
    case ${COMP_WORDS[i]} in
      --control|--output|--locale|--encoding) ((i++)) ;;
      -*) ;;
      *) if [ -z "$cmd" ]; then cmd=${COMP_WORDS[i]}; else ((operands++)); fi ;;
    esac
  done

  if [[ $cur == -* ]]; then
    case $cmd in
      csv) COMPREPLY=($(compgen -W "$global --output --keep-going --strict" -- "$cur")) ;;
      list) COMPREPLY=($(compgen -W "$global --names" -- "$cur")) ;;
      *) COMPREPLY=($(compgen -W "$global" -- "$cur")) ;;
    esac
    return 0
  fi

  local names
  case $cmd in
    "") COMPREPLY=($(compgen -W "$commands" -- "$cur")) ;;
    help) [ "$operands" -eq 0 ] && COMPREPLY=($(compgen -W "$commands" -- "$cur")) ;;
    csv) COMPREPLY=($(compgen -f -- "$cur")) ;;
    put|describe|list|input)
      # The first operand is a conversion; put and input take values after it.
      if [ "$operands" -eq 0 ]; then
        names=$(_xfmt_names "${COMP_WORDS[0]}")
        if [ "$cmd" = input ]; then
          names=$(printf '%s\n' "$names" | sed -n 's/^@//p')
        elif [ "$cmd" = put ]; then
          names=$(printf '%s\n' "$names" | grep -v '^@')
        fi
        # Matched by hand: compgen -W would expand the "$" of $CHAR. A "$"
        # name is offered escaped, so that the shell passes it on as typed.
        local want=${cur#\\} n
        want=${want^^}
        COMPREPLY=()
        while IFS= read -r n; do
          [[ -n $n && $n == "$want"* ]] || continue
          if [[ $n == \$* ]]; then COMPREPLY+=("\\$n"); else COMPREPLY+=("$n"); fi
        done <<< "$names"
      fi
      ;;
  esac
  return 0
}

complete -F _xfmt xfmt
