# Completion of vdicom for bash.
_vdicom() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W 'dump convert edit new check dict echo store find get move serve help --help --version' -- "$current")
        return
    fi
    local options='' choices=''
    case $command in
    dump)
        options='--tag --json --pretty --meta --no-bulk --bulk-limit --full --offsets --depth --recursive --color --help'
        ;;
    convert) options='--to --bare --output --recursive --help' ;;
    edit) options='--set --delete --in-place --help' ;;
    check) options='--json --severity --class --recursive --help' ;;
    new) options='--class --set --no-optional --json --help' ;;
    dict) options='--json --help' ;;
    echo) options='--called --calling --max-pdu --timeout --repeat --json --help' ;;
    store) options='--called --calling --max-pdu --timeout --repeat --retry --json --help' ;;
    find) options='--called --calling --max-pdu --timeout --key --level --model --only-keys --limit --json --help' ;;
    get) options='--called --calling --max-pdu --timeout --key --level --model --to --class --overwrite --json --help' ;;
    move)
        options='--called --calling --max-pdu --timeout --key --level --model --destination --to --listen --overwrite --json --help'
        ;;
    serve)
        options='--folder --port --address --ae --peers --known-callers --check-called --worklist --sync --max-pdu --timeout
            --idle --associations --log --json --reindex --help'
        ;;
    help) choices='dump convert edit new check dict echo store find get move serve' ;;
    esac
    case $command:$previous in
    dump:--color) choices='auto always never' ;;
    dump:--tag | dump:-t | edit:--set | edit:-s | new:--set | new:-s | edit:--delete | edit:-d | \
        find:--key | find:-k | get:--key | get:-k | move:--key | move:-k)
        choices='PatientName PatientID PatientBirthDate PatientSex StudyInstanceUID SeriesInstanceUID SOPInstanceUID
            SOPClassUID StudyDate StudyDescription SeriesDescription Modality AccessionNumber InstitutionName'
        ;;
    check:--severity | check:-s) choices='error warning note' ;;
    check:--class | check:-c) return ;;
    dump:--depth | dump:-d | dump:--bulk-limit) return ;;
    new:--class | new:-c) return ;;
    convert:--to | convert:-t) choices='implicit explicit big deflated' ;;
    find:--level | find:-l) choices='patient study series image worklist' ;;
    get:--level | get:-l | move:--level | move:-l) choices='patient study series image' ;;
    find:--model | get:--model | move:--model) choices='patient study' ;;
    *:--called | *:--calling | *:--max-pdu | *:--timeout | *:--repeat | *:--retry | *:--limit | *:--listen) return ;;
    serve:--port | serve:--ae | serve:--address | serve:--idle | serve:--associations) return ;;
    *:--destination | get:--class | get:-c | move:-d | echo:-n | store:-n) return ;;
    convert:--output | convert:-o | get:--to | get:-o | move:--to | move:-o | serve:--folder | serve:--worklist)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
        return
        ;;
    esac
    if [[ $command == dict && $current != -* ]]; then
        choices='tag vr uid iod cid'
    fi
    if [[ -n $choices ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$current")
    elif [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
}
complete -F _vdicom vdicom
