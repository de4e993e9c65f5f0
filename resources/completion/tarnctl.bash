# Completion of tarnctl for bash.
_tarnctl() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local global="--port --model --baud --flow --json --trace --help --version"
    local pc="pc/Inbox pc/Outbox pc/Sent pc/Draft pc/Personal pc/Trash"
    case $previous in
        --port)
            COMPREPLY=($(compgen -W "$(tarnctl ports 2>/dev/null | awk '{print $1, $2}')" -- "$word") $(compgen -f -- "$word"))
            return ;;
        --model) COMPREPLY=($(compgen -W "$(tarnctl settings models 2>/dev/null | awk '{print $1}')" -- "$word")); return ;;
        --flow) COMPREPLY=($(compgen -W "none hardware software" -- "$word")); return ;;
        --baud) COMPREPLY=($(compgen -W "9600 19200 38400 57600 115200 230400 460800 921600" -- "$word")); return ;;
        --memory) COMPREPLY=($(compgen -W "SM ME" -- "$word")); return ;;
        --unicode) COMPREPLY=($(compgen -W "auto 7bit" -- "$word")); return ;;
        --picture | --melody) COMPREPLY=($(compgen -f -- "$word")); return ;;
        --folder) COMPREPLY=($(compgen -W "Inbox Outbox Sent Draft $pc" -- "$word")); return ;;
    esac
    local command= sub= i
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
            --port | --model | --baud | --flow | --reference | --memory | --folder | --to | --unicode | --picture | --melody) ((i++)) ;;
            -*) ;;
            *) if [[ -z $command ]]; then command=${COMP_WORDS[i]}; elif [[ -z $sub ]]; then sub=${COMP_WORDS[i]}; fi ;;
        esac
    done
    local words=$global files=
    case $command in
        "") words="$global ports info ping at text sms pdu ems vcard contact profile settings" ;;
        at) words="--prefix --timeout --body --pdu --help" ;;
        text) [[ -z $sub ]] && words="to-hex from-hex pack --help" || words="--little-endian --help" ;;
        sms)
            case $sub in
                "") words="list read send save reply forward delete copy move folders export import raw-list join --help" ;;
                join) words="--help" files=yes ;;
                list) words="--memory --folder --help" ;;
                read) words="SM ME $pc --help" ;;
                send) words="--to --all --yes --unicode --picture --melody --help" ;;
                save) words="--to --folder --memory --unicode --picture --melody --help" ;;
                reply) words="SM ME $pc --unicode --picture --melody --help" ;;
                forward) words="SM ME $pc --to --help" ;;
                delete) words="SM ME $pc --yes --help" ;;
                copy | move) words="SM ME $pc --folder --memory --help" ;;
                export | import) words="--folder --help" files=yes ;;
                folders) words="--help" ;;
                *) words="--memory --help" ;;
            esac ;;
        pdu) [[ -z $sub ]] && words="decode encode --help" || { words="--help" files=yes; } ;;
        ems)
            case $sub in
                "") words="decode encode --help" ;;
                decode) words="--help" files=yes ;;
                *) words="--reference --help" files=yes ;;
            esac ;;
        vcard) [[ -z $sub ]] && words="read write import --help" || { words="--help" files=yes; } ;;
        contact) [[ -z $sub ]] && words="check --help" || { words="--help" files=yes; } ;;
        settings) [[ -z $sub ]] && words="models dialup --help" || { words="--help" files=yes; } ;;
        profile) [[ -z $sub ]] && words="dump copy --help" || { words="--help" files=yes; } ;;
    esac
    COMPREPLY=($(compgen -W "$words" -- "$word"))
    [[ -z $files ]] || COMPREPLY+=($(compgen -f -- "$word"))
}
complete -F _tarnctl tarnctl
