# fish completion for quarnel
complete -c quarnel -f -k -a '(__fish_complete_suffix .qn2)'
complete -c quarnel -s h -l help -d 'Show the options'
complete -c quarnel -l help-all -d 'Show the options of the toolkit too'
complete -c quarnel -s v -l version -d 'Show the version'
