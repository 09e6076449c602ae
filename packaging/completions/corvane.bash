# Completion of corvane(1), corvane-bench(1) and corvane-utility(1) for bash.

# The commands of $1 and, behind them, of its commands that have commands of their own.
_corvane_commands() {
  case $1 in
    corvane) echo "archive firmware history list logs set sfp show update watch" ;;
    "corvane archive") echo "create extract list verify version" ;;
    "corvane update") echo "check install" ;;
    corvane-bench) echo "driver fault image link new os plug serve set sfp show unplug" ;;
  esac
}

_corvane_options() {
  case $1 in
    corvane) echo "--bench --dump --help --journal --json --version" ;;
    corvane-utility) echo "--bench --dump --help --journal --version" ;;
    corvane-bench) echo "--help --version" ;;
    "corvane archive" | "corvane update") echo "--help" ;;
    "corvane firmware") echo "--check --help --json --yes" ;;
    "corvane logs") echo "--help --json --to" ;;
    "corvane set") echo "--alpa --checksum --help --json --mode --port --queue-depth --rsc --speed --topology" ;;
    "corvane update check") echo "--help --json --server" ;;
    "corvane update install") echo "--help --json --only --server --yes" ;;
    "corvane watch") echo "--help --json --seconds" ;;
    "corvane-bench image") echo "--firmware-version --generation --help --json --size" ;;
    "corvane-bench link") echo "--help --json --port --speed" ;;
    "corvane-bench new") echo "--from --help --json" ;;
    "corvane-bench plug") echo "--bridge --help --hop --json --wwn" ;;
    "corvane-bench serve") echo "--help --json --port" ;;
    "corvane-bench sfp") echo "--help --json --port" ;;
    *) echo "--help --json" ;;
  esac
}

# What may follow the option $2 of the command $1; fails for an option that takes no value.
_corvane_values() {
  case "$1 $2" in
    *" --alpa" | *" --bridge" | *" --firmware-version" | *" --hop" | *" --only" | *" --queue-depth" | \
      *" --seconds" | *" --server" | *" --size" | *" --wwn") ;;
    *" --bench" | *" --dump" | *" --journal" | *" --to") compgen -f -- "$3" ;;
    *" --checksum" | *" --rsc") compgen -W "on off" -- "$3" ;;
    *" --from") compgen -W "demo empty" -- "$3" ;;
    *" --generation") compgen -W "2 3" -- "$3" ;;
    *" --mode") compgen -W "low-latency balanced high-throughput server" -- "$3" ;;
    "corvane-bench serve --port") ;;
    *" --port") compgen -W "1 2" -- "$3" ;;
    "corvane set --speed") compgen -W "auto 2 4 8 16" -- "$3" ;;
    *" --speed") compgen -W "2000 4000 8000 16000" -- "$3" ;;
    *" --topology") compgen -W "ptp loop" -- "$3" ;;
    *) return 1 ;;
  esac
}

# The command that the words before the cursor make up, such as "corvane update check".
_corvane_path() {
  local path=${COMP_WORDS[0]##*/} index word
  for ((index = 1; index < COMP_CWORD; index++)); do
    word=${COMP_WORDS[index]}
    if [[ $word == -* ]]; then
      _corvane_values "$path" "$word" "" >/dev/null && index=$((index + 1))
    elif [[ " $(_corvane_commands "$path") " == *" $word "* ]]; then
      path+=" $word"
    fi
  done
  echo "$path"
}

_corvane() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} path values
  path=$(_corvane_path)
  if [[ $previous == -* ]] && values=$(_corvane_values "$path" "$previous" "$current"); then
    mapfile -t COMPREPLY < <(printf '%s' "${values:+$values$'\n'}")
    return
  fi
  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_corvane_options "$path")" -- "$current")
    return
  fi
  mapfile -t COMPREPLY < <(compgen -W "$(_corvane_commands "$path")" -- "$current")
  case $path in
    "corvane archive "* | "corvane firmware" | "corvane sfp" | corvane-bench*)
      mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$current")
      ;;
  esac
}

complete -o filenames -F _corvane corvane corvane-bench corvane-utility
