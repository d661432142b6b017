# Completion of tpn's command line for bash.

_tpn() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
  local options='--help --version'
  if [ "$COMP_CWORD" -eq 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W "lint show check trace run certify export --help --version" -- "$word")
    return
  fi
  case $before in
    --solver)
      mapfile -t COMPREPLY < <(compgen -W "cadical minisat picosat cryptominisat5" -- "$word"
        compgen -f -- "$word")
      return
      ;;
    --svg | --vcd | --script | --aiger | --certificate | --witness)
      mapfile -t COMPREPLY < <(compgen -f -- "$word")
      return
      ;;
    --engine)
      mapfile -t COMPREPLY < <(compgen -W "both bmc ic3 abc" -- "$word")
      return
      ;;
    --keep)
      mapfile -t COMPREPLY < <(compgen -d -- "$word")
      return
      ;;
    --bound | --max-transitions | --timeout | --jobs | --random | --steps) return ;;
  esac
  case $command in
    lint) options+=" --bound --json" ;;
    show) options+=" --json --dot --svg" ;;
    check)
      options+=" --engine --shortest --deadlock --certificate --flat --max-transitions --timeout"
      options+=" --solver --jobs --keep --json --svg --vcd"
      ;;
    trace) options+=" --json --svg --vcd" ;;
    certify) options+=" --deadlock" ;;
    export) options+=" --deadlock --aiger --certificate --witness" ;;
    run) options+=" --random --steps --script --json --svg --vcd" ;;
  esac
  if [[ $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
  else
    # Networks and properties go by their names without .tpn.
    mapfile -t COMPREPLY < <(compgen -f -X '!*.tpn' -- "$word" | sed 's/\.tpn$//'
      compgen -f -- "$word" | grep -v '\.tpn$')
  fi
}
complete -o filenames -F _tpn tpn
