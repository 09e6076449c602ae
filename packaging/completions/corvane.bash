# Completion of corvane(1) and corvane-bench(1) for bash.

_corvane() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local commands="archive firmware list logs set sfp show update watch"
  local command="" word
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case " $commands " in *" $word "*) command=$word && break ;; esac
  done

  case $previous in
    --bench | --dump | --journal | --to) mapfile -t COMPREPLY < <(compgen -f -- "$current") && return ;;
    --port) mapfile -t COMPREPLY < <(compgen -W "1 2" -- "$current") && return ;;
    --speed) mapfile -t COMPREPLY < <(compgen -W "auto 2 4 8 16" -- "$current") && return ;;
    --topology) mapfile -t COMPREPLY < <(compgen -W "ptp loop" -- "$current") && return ;;
    --mode) mapfile -t COMPREPLY < <(compgen -W "low-latency balanced high-throughput server" -- "$current") && return ;;
    --checksum | --rsc) mapfile -t COMPREPLY < <(compgen -W "on off" -- "$current") && return ;;
  esac

  local choices=""
  case $command in
    "") choices="$commands --bench --dump --journal --json --version --help" ;;
    archive) choices="create extract list verify version --json --help" ;;
    firmware) choices="--yes --check --json --help" ;;
    list) choices="--json --help" ;;
    logs) choices="--to --json --help" ;;
    set) choices="--port --speed --topology --alpa --queue-depth --mode --checksum --rsc --json --help" ;;
    sfp | show) choices="--json --help" ;;
    update) choices="check install --yes --only --server --json --help" ;;
    watch) choices="--seconds --json --help" ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$current")
  case $command in archive | firmware | sfp)
    [[ $current == -* ]] || mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$current") ;;
  esac
}

_corvane_bench() {
  local current=${COMP_WORDS[COMP_CWORD]}
  if ((COMP_CWORD == 1)); then
    mapfile -t COMPREPLY < <(compgen -W "new serve --help --version" -- "$current"; compgen -f -- "$current")
  elif ((COMP_CWORD == 2)) && [[ ${COMP_WORDS[1]} != new && ${COMP_WORDS[1]} != serve ]]; then
    mapfile -t COMPREPLY < <(compgen -W "driver fault link os plug set sfp show unplug" -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -W "--bridge --from --hop --port --speed --wwn up down on off none" -- "$current"; compgen -f -- "$current")
  fi
}

complete -o filenames -F _corvane corvane
complete -o filenames -F _corvane_bench corvane-bench
