# fish completion for quarnel-cli

# A line for an option or a command: WORDS... is what complete takes.
function __quarnel_cli_of
    complete -c quarnel-cli -n "__fish_seen_subcommand_from $argv[1]" $argv[2..]
end

function __quarnel_cli_command
    complete -c quarnel-cli -n __fish_use_subcommand -a $argv[1] -d $argv[2]
end

complete -c quarnel-cli -f
complete -c quarnel-cli -s h -l help -d 'Show the commands, or the options of one'
complete -c quarnel-cli -n __fish_use_subcommand -l version -d 'Show the version'
complete -c quarnel-cli -n __fish_use_subcommand -l format -x -a 'text json' -d 'How to print the version'

__quarnel_cli_command analyze 'Compute K and print it as table, JSON or CSV'
__quarnel_cli_command diagnose 'Say how far K can be trusted'
__quarnel_cli_command compare 'Put the tests of many projects side by side'
__quarnel_cli_command report 'Write the summary report'
__quarnel_cli_command plot 'Write the plot as PDF, SVG or PNG'
__quarnel_cli_command import "Turn a logger's file into a project"
__quarnel_cli_command convert 'Save a project or old input file as a project'
__quarnel_cli_command check 'Say what a file is and what of it would be lost'

# Projects come first in the list; import and check take any file.
__quarnel_cli_of 'analyze diagnose compare report plot convert' -k -a '(__fish_complete_suffix .qn2)'
__quarnel_cli_of 'import check' -F

__quarnel_cli_of 'analyze diagnose compare' -l format -x -a 'table json csv' -d 'How to print'
__quarnel_cli_of diagnose -l sensitivity -d 'Also what moves K'
__quarnel_cli_of diagnose -l percent -x -d 'Change of each entry, 1 to 50'

__quarnel_cli_of compare -l group -x -a 'well site none' -d 'Which tests belong together'
__quarnel_cli_of compare -l unit -x -a (echo {in,ft,cm,m}/{sec,min,hr,day}) -d 'Unit of K'
__quarnel_cli_of compare -l record -x -a '(__fish_complete_directories)' \
    -d 'Write the record of each test into a folder'
__quarnel_cli_of 'analyze diagnose compare' -l jobs -x -d 'How many files at a time'
__quarnel_cli_of compare -l join -d 'Put CSV tables of parts together'

__quarnel_cli_of 'report plot import' -s o -r -F -d 'The file to write'
__quarnel_cli_of plot -l head-range -d 'Show 0.20 to 0.30 of the first change in head'
__quarnel_cli_of plot -l normalized -d 'Draw all tests of the first well on one axis'

__quarnel_cli_of import -l from -r -F -d 'Take all but the readings from this project'
__quarnel_cli_of import -l channel -x -d 'Take this channel, as --list counts them'
__quarnel_cli_of import -l type -x -a 'D H Y' -d 'Depth to water, head or change in head'
__quarnel_cli_of import -l source-unit -x -d 'Unit of the readings in the file' \
    -a 'in ft cm m mm kPa hPa mbar bar psi mmHg inHg atm cmH2O mH2O ftH2O inH2O'
__quarnel_cli_of import -l unit -x -a 'in ft cm m' -d 'Unit to write the levels in'
__quarnel_cli_of import -l date-order -x -a 'mdy dmy' -d 'Month or day first in 03/05/2024'
__quarnel_cli_of import -l time-unit -x -a 'sec min hr day' -d 'Unit of times that are numbers'
__quarnel_cli_of import -l start -x -d 'First reading after the slug'
__quarnel_cli_of import -l end -x -d 'Last reading to import'
__quarnel_cli_of import -l static -x -d 'Static level, in the unit written'
__quarnel_cli_of import -l barometer -r -F -d 'Subtract the air pressure of this logger'
__quarnel_cli_of import -l thin -x -d 'Keep about so many readings a decade of time'
__quarnel_cli_of import -l list -d 'Only show the channels'
__quarnel_cli_of import -l format -x -a 'table json' -d 'How to print'

functions -e __quarnel_cli_of __quarnel_cli_command
