# bash completion for quarnel-plot                         -*- shell-script -*-
# shellcheck shell=bash

_quarnel_plot() {
    # shellcheck disable=SC2034  # bash-completion sets all four
    local cur prev words cword
    _init_completion || return
    if [[ $prev == -o ]]; then
        _filedir '@(pdf|svg|png)'
    elif [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '-h --help -o --head-range --normalized' -- "$cur")
    else
        _filedir '@(qn2|in)'
    fi
} && complete -F _quarnel_plot quarnel-plot
