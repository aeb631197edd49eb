# bash completion for quarnel-cli                          -*- shell-script -*-
# shellcheck shell=bash

# The options of a command, for a word that begins with a dash.
_quarnel_cli_options() {
    case $1 in
    --version) echo '--format' ;;
    analyze) echo '--format --jobs' ;;
    diagnose) echo '--format --sensitivity --percent --jobs' ;;
    compare) echo '--format --group --unit --record --jobs --join' ;;
    report) echo '-o' ;;
    plot) echo '-o --head-range --normalized' ;;
    import)
        echo '-o --from --channel --type --source-unit --unit --date-order --time-unit --start' \
            '--end --static --barometer --thin --list --format'
        ;;
    esac
}

# What an option may be given, for those that take one of a few words.
_quarnel_cli_values() {
    case $1 in
    'analyze --format' | 'diagnose --format' | 'compare --format') echo 'table json csv' ;;
    'import --format') echo 'table json' ;;
    '--version --format' | '--format --format') echo 'text json' ;;
    'compare --group') echo 'well site none' ;;
    'compare --unit') echo {in,ft,cm,m}/{sec,min,hr,day} ;;
    'import --type') echo 'D H Y' ;;
    'import --unit') echo 'in ft cm m' ;;
    'import --source-unit')
        echo 'in ft cm m mm kPa hPa mbar bar psi mmHg inHg atm cmH2O mH2O ftH2O inH2O'
        ;;
    'import --date-order') echo 'mdy dmy' ;;
    'import --time-unit') echo 'sec min hr day' ;;
    esac
}

_quarnel_cli_from() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$cur")
}

_quarnel_cli() {
    local cur prev words cword split values
    _init_completion -s || return
    local command=${words[1]}
    if [[ $cword -eq 1 ]]; then
        _quarnel_cli_from 'analyze diagnose compare report plot import convert check
            -h --help --version --format'
        return
    fi
    values=$(_quarnel_cli_values "$command $prev")
    if [[ -n $values ]]; then
        _quarnel_cli_from "$values"
        return
    fi
    case "$command $prev" in
    'import -o' | 'import --from') _filedir qn2 ;;
    'plot -o') _filedir '@(pdf|svg|png)' ;;
    'report -o' | 'import --barometer') _filedir ;;
    'compare --record') _filedir -d ;;
    'diagnose --percent' | *' --jobs') ;;
    'import --'@(channel|start|end|static|thin)) ;;
    *)
        if [[ ${split:-false} == true ]]; then
            return
        elif [[ $cur == -* ]]; then
            _quarnel_cli_from "-h --help $(_quarnel_cli_options "$command")"
        elif [[ $command == import || $command == check ]]; then
            _filedir
        elif [[ " ${words[*]} " == *' --join '* ]]; then
            _filedir csv
        else
            _filedir '@(qn2|in)'
        fi
        ;;
    esac
} && complete -F _quarnel_cli quarnel-cli
