# Completion of vdicom for bash.
_vdicom() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W 'dump convert edit new check dict help --help --version' -- "$current")
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
    help) choices='dump convert edit new check dict' ;;
    esac
    case $command:$previous in
    dump:--color) choices='auto always never' ;;
    dump:--tag | dump:-t | edit:--set | edit:-s | new:--set | new:-s | edit:--delete | edit:-d)
        choices='PatientName PatientID PatientBirthDate PatientSex StudyInstanceUID SeriesInstanceUID SOPInstanceUID
            SOPClassUID StudyDate StudyDescription SeriesDescription Modality AccessionNumber InstitutionName'
        ;;
    check:--severity | check:-s) choices='error warning note' ;;
    check:--class | check:-c) return ;;
    dump:--depth | dump:-d | dump:--bulk-limit) return ;;
    new:--class | new:-c) return ;;
    convert:--to | convert:-t) choices='implicit explicit big deflated' ;;
    convert:--output | convert:-o)
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
