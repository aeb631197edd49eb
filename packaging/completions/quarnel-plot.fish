# fish completion for quarnel-plot
complete -c quarnel-plot -f -k -a '(__fish_complete_suffix .qn2)'
complete -c quarnel-plot -s h -l help -d 'Show the usage'
complete -c quarnel-plot -s o -r -F -d 'The file to write'
complete -c quarnel-plot -l head-range -d 'Show 0.20 to 0.30 of the first change in head'
complete -c quarnel-plot -l normalized -d 'Draw all tests of the first well on one axis'
