# Completion of plurimoctl's commands and options for bash.

_plurimoctl() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    COMPREPLY=()
    if [ "$COMP_CWORD" = 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "copy duplicate erase eject mount verify line bays devices logs simulator --help --version" -- "$word")
        return
    fi
    case $before in
    --to | --root | --log-dir | --demo-folder | --certificates)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
        return
        ;;
    --simulator)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        return
        ;;
    --manifest)
        if [ "$command" = verify ]; then
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$word")
        else
            mapfile -t COMPREPLY < <(compgen -W "mhl sums" -- "$word")
        fi
        return
        ;;
    --digest)
        mapfile -t COMPREPLY < <(compgen -W "xxh128 xxh64 xxh3 md5 sha1 c4 sha256" -- "$word")
        return
        ;;
    --preflight)
        mapfile -t COMPREPLY < <(compgen -W "stop leave-out go-on" -- "$word")
        return
        ;;
    --keep)
        mapfile -t COMPREPLY < <(compgen -W "dates all" -- "$word")
        return
        ;;
    --bay)
        mapfile -t COMPREPLY < <(compgen -W "A B C D" -- "$word")
        return
        ;;
    esac
    local options="--simulator --demo --demo-folder --log-dir --help"
    case $command in
    copy) options+=" --to --root --verify --repair --resume --update --exact --manifest --digest --keep --preflight --json" ;;
    duplicate) options+=" --enclosure --source --select --erase --name --verify --repair --resume --update --exact --eject --health --insist --manifest --digest --keep --preflight --job --yes --json" ;;
    erase) options+=" --enclosure --bay --name --yes" ;;
    eject) options+=" --enclosure --bay --yes" ;;
    mount) options+=" --enclosure --bay" ;;
    verify) options+=" --enclosure --bay --manifest --record --json" ;;
    line) options+=" start resume status pause end collect --count --title --names --certificates --without-serial --arm --consent --enclosure --json" ;;
    bays) options+=" list learn check forget --bays --json" ;;
    devices) options+=" --json --health --watch" ;;
    logs) options+=" list show delete clear --yes --json" ;;
    simulator) options+=" attach detach mount unmount rename show" ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
    if [[ $command = copy || $command = verify ]] && [[ $word != -* ]]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}
complete -F _plurimoctl plurimoctl
