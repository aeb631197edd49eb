# bash completion for quarnel                              -*- shell-script -*-
# shellcheck shell=bash

_quarnel() {
    # shellcheck disable=SC2034  # bash-completion sets all four
    local cur prev words cword
    _init_completion || return
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '-h --help --help-all -v --version' -- "$cur")
    else
        _filedir '@(qn2|in|xle|csv|mon|lev|htm|html|txt|tsv)'
    fi
} && complete -F _quarnel quarnel
