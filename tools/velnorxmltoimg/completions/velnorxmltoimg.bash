# Completion of velnorxmltoimg for bash.

_velnorxmltoimg() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    local commands="render check watch batch boxes fonts params settings"
    local values="--tag --set --link --params --images --fonts"
    local options=""
    COMPREPLY=()

    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$commands --version --help" -- "$current")
        return
    fi
    case $previous in
    --images | --fonts)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
        return
        ;;
    --mono)
        mapfile -t COMPREPLY < <(compgen -W "threshold ordered diffuse" -- "$current")
        return
        ;;
    --format)
        mapfile -t COMPREPLY < <(compgen -W "csv jsonl" -- "$current")
        return
        ;;
    --ignore)
        mapfile -t COMPREPLY < <(compgen -W "$("${COMP_WORDS[0]}" check --codes 2>/dev/null | cut -d ' ' -f 1)" -- "$current")
        return
        ;;
    --tag | --set | --link | --for | --delimiter | --jobs | --timeout | --shard)
        return
        ;;
    esac
    case $command in
    render | watch) options="--output --mono $values" ;;
    batch)
        options="--data --format --delimiter --output --mono --jobs --timeout --shard --resume --dry-run --summary"
        options="$options --quiet $values"
        ;;
    check) options="--json --werror --ignore --codes $values" ;;
    boxes) options="--json $values" ;;
    fonts) options="--fonts --for --json" ;;
    params) options="--json" ;;
    settings) options=$values ;;
    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$current")
    else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
} && complete -F _velnorxmltoimg velnorxmltoimg
