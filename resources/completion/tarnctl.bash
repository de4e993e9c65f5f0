# Completion of tarnctl for bash.
_tarnctl() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local global="--port --model --baud --flow --json --trace --help --version"
    case $previous in
        --port)
            COMPREPLY=($(compgen -W "$(tarnctl ports 2>/dev/null | awk '{print $1, $2}')" -- "$word") $(compgen -f -- "$word"))
            return ;;
        --model) COMPREPLY=($(compgen -W "$(tarnctl settings models 2>/dev/null | awk '{print $1}')" -- "$word")); return ;;
        --flow) COMPREPLY=($(compgen -W "none hardware software" -- "$word")); return ;;
        --baud) COMPREPLY=($(compgen -W "9600 19200 38400 57600 115200 230400 460800 921600" -- "$word")); return ;;
        --memory) COMPREPLY=($(compgen -W "SM ME" -- "$word")); return ;;
    esac
    local command= sub= i
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
            --port | --model | --baud | --flow) ((i++)) ;;
            -*) ;;
            *) if [[ -z $command ]]; then command=${COMP_WORDS[i]}; elif [[ -z $sub ]]; then sub=${COMP_WORDS[i]}; fi ;;
        esac
    done
    local words=$global
    case $command in
        "") words="$global ports info ping at text sms settings" ;;
        at) words="--prefix --timeout --body --pdu --help" ;;
        text) [[ -z $sub ]] && words="to-hex from-hex pack --help" || words="--little-endian --help" ;;
        sms) [[ -z $sub ]] && words="raw-list --help" || words="--memory --help" ;;
        settings)
            [[ -z $sub ]] && words="models dialup --help" || COMPREPLY=($(compgen -f -- "$word"))
            [[ -n $sub ]] && return ;;
    esac
    COMPREPLY=($(compgen -W "$words" -- "$word"))
}
complete -F _tarnctl tarnctl
