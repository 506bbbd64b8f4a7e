# Completes the arguments of mergeloom(1) and mergeloom-describe(1) in bash.                                  -*- shell-script -*-

_mergeloom() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    local switches='-xmlfile -template -usedocument -listing -full -label -fields -hidden -deletexmlfile -excel -directory'
    local options='--object --at --all --format --list-objects --places --check --json --convert-fields --fill --data --output --one-document --record --records --drop-empty-tables --strict --office= --trace-calls --exit-status --version --help'
    local documents='docx|docm|doc|dotx|dotm|dot|pdf|htm|html|rtf|txt|odt|ott|fodt'
    local workbooks='xlsx|xlsm|xls|xltx|xltm|xlt|xlsb|ods|htm|html|csv|txt|prn|dif|slk|wk1|ots|fods'
    COMPREPLY=()

    # bash takes "--office=name" apart into three words.
    if [[ $cur == = ]]; then
        cur=
    elif [[ $prev == = ]]; then
        prev=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    case ${prev,,} in
        -xmlfile | /xmlfile | --data) _mergeloom_files 'xml' ;;
        -template | /template | -usedocument | /usedocument | --places | --check | --fill | --output)
            _mergeloom_files "$documents|$workbooks" ;;
        -label | /label | --convert-fields)
            _mergeloom_files "$documents" ;;
        --office) mapfile -t COMPREPLY < <(compgen -W 'embedded libreoffice com installed' -- "$cur") ;;
        --all) _mergeloom_files '' ;;
        --trace-calls) _mergeloom_files 'log|txt' ;;
        --format) mapfile -t COMPREPLY < <(compgen -W 'docx docm dotx dotm xlsx xlsm xltx xltm' -- "$cur") ;;
        --at) mapfile -t COMPREPLY < <(compgen -W 'start end' -- "$cur") ;;
        -fields | /fields | --object | --record | --records) ;;
        *)
            if [[ ${prev,,} == -hidden && $cur != -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W 'formview' -- "$cur")
            elif [[ $cur == --* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
                if [[ ${COMPREPLY[0]} == *= ]]; then compopt -o nospace; fi
            else
                mapfile -t COMPREPLY < <(compgen -W "$switches $options" -- "$cur")
            fi
            ;;
    esac
}

_mergeloom_describe() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    case $prev in
        --output) _mergeloom_files 'xml' ;;
        --object) _mergeloom_objects ;;
        --records) mapfile -t COMPREPLY < <(compgen -W 'all' -- "$cur") ;;
        *)
            if [[ $cur == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W '--object --records --output --progress --list --version --help' -- "$cur")
            else
                _mergeloom_files 'db|sqlite|sqlite3|mdb|accdb'
            fi
            ;;
    esac
}

# The objects of the database file that was typed before. A server's are not asked for, since that may take long.
_mergeloom_objects() {
    local word name source=
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        word=${word//\\/}
        if [[ -f $word ]]; then source=$word; fi
    done
    if [[ -z $source ]]; then return; fi
    while IFS= read -r name; do
        if [[ $name == "${cur//\\/}"* ]]; then COMPREPLY+=("$(printf %q "$name")"); fi
    done < <("${COMP_WORDS[0]}" "$source" --list 2>/dev/null)
}

# Folders, and the files that have one of the extensions, in any letter case.
_mergeloom_files() {
    local path folders=() extension
    compopt -o filenames
    while IFS= read -r path; do
        extension=${path##*.}
        if [[ -d $path || ${extension,,} =~ ^($1)$ ]]; then folders+=("$path"); fi
    done < <(compgen -f -- "$cur")
    COMPREPLY=("${folders[@]}")
}

complete -F _mergeloom mergeloom
complete -F _mergeloom_describe mergeloom-describe
