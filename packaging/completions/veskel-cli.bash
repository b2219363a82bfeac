# Completion of veskel-cli for bash. What may follow is known by the program itself.

# Splits $1 into words as the shell would, but expands nothing. They are left in `words`, unquoted; `last_raw` is the
# last one as typed, and `last_quote` the quotation mark that is still open in it.
_veskel_cli_split() {
  local text=$1 character index word=''
  words=() last_raw='' last_quote=''
  for ((index = 0; index < ${#text}; ++index)); do
    character=${text:index:1}
    if [[ -z $last_quote && $character == [[:blank:]] ]]; then
      [[ -z $last_raw ]] || words+=("$word")
      word='' last_raw=''
      continue
    fi
    last_raw+=$character
    if [[ $character == "$last_quote" ]]; then
      last_quote=''
    elif [[ -z $last_quote && $character == [\"\'] ]]; then
      last_quote=$character
    elif [[ $character == \\ && $last_quote != \' ]]; then
      ((++index))
      word+=${text:index:1}
      last_raw+=${text:index:1}
    else
      word+=$character
    fi
  done
  words+=("$word")
}

_veskel_cli() {
  local words last_raw last_quote line text
  _veskel_cli_split "${COMP_LINE:0:COMP_POINT}"
  # The shell replaces what stands behind the last of its word breaks, such as ":" and "=", alone.
  local current=${COMP_WORDS[COMP_CWORD]}
  [[ $current != [:=]* ]] || current=''
  local before=${last_raw%"$current"}
  [[ -z $last_quote ]] || before=${before#"$last_quote"}

  COMPREPLY=()
  while IFS= read -r line; do
    text=${line%%$'\t'*}
    case $line in
      $'\tfiles' | $'\tfolders')
        compopt -o filenames
        local kind=-f
        [[ $line == $'\tfiles' ]] || kind=-d
        mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen "$kind" -- "${words[-1]}")
        continue
        ;;
    esac
    case $last_quote in
      "") printf -v text %q "$text" ;;
      \")
        text=${text//\\/\\\\}
        text=${text//\"/\\\"}
        text=${text//\$/\\\$}
        text=${text//\`/\\\`}
        ;;
      \') text=${text//\'/\'\\\'\'} ;;
    esac
    COMPREPLY+=("${text#"$before"}")
  done < <("$1" complete -- "${words[@]:1}" 2>/dev/null)
}

complete -F _veskel_cli veskel-cli
