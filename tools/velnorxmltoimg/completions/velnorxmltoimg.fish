# Completion of velnorxmltoimg for fish.

set -l commands render check watch batch boxes fonts params settings
set -l none "not __fish_seen_subcommand_from $commands"
set -l tool complete -c velnorxmltoimg

$tool -n $none -f -a render -d 'Render a layout document into a picture'
$tool -n $none -f -a check -d 'Find mistakes in layout documents'
$tool -n $none -f -a watch -d 'Render again whenever the document or one of its files changes'
$tool -n $none -f -a batch -d 'Render one picture for each row of a data file'
$tool -n $none -f -a boxes -d 'Show where each item landed and at which text size'
$tool -n $none -f -a fonts -d 'List the fonts that a layout can use'
$tool -n $none -f -a params -d 'List the values of a parameter file'
$tool -n $none -f -a settings -d 'Show what a layout document tells the printer'
$tool -n $none -f -l version -d 'Show the versions of tool, Qt and zint'
$tool -f -s h -l help -d 'Show help'

set -l filled '__fish_seen_subcommand_from render check watch batch boxes settings'
$tool -n $filled -x -l tag -d 'Replace the placeholder of that name'
$tool -n $filled -x -l set -d 'Set an element of an object'
$tool -n $filled -x -l link -d 'Set the element that bears a link'
$tool -n $filled -r -l params -d 'Take values from a parameter file'
$tool -n $filled -x -l images -a '(__fish_complete_directories)' -d 'Look for all pictures in a folder'
$tool -n $filled -x -l fonts -a '(__fish_complete_directories)' -d 'Take font files from a folder'

set -l drawn '__fish_seen_subcommand_from render watch batch'
$tool -n $drawn -r -s o -l output -d 'The picture'
$tool -n $drawn -x -l mono -a 'threshold ordered diffuse' -d 'Write black and white, one bit a dot'

$tool -n '__fish_seen_subcommand_from check boxes fonts params' -l json -d 'As JSON'

set -l rows '__fish_seen_subcommand_from batch'
$tool -n $rows -r -l data -d 'The rows'
$tool -n $rows -x -l format -a 'csv jsonl' -d 'What the rows are'
$tool -n $rows -x -l delimiter -d 'What separates the values of a CSV file'
$tool -n $rows -x -l jobs -d 'Processes that draw'
$tool -n $rows -x -l timeout -d 'Give up a row after so many seconds'
$tool -n $rows -x -l shard -d 'Take each nth row alone'
$tool -n $rows -f -l resume -d 'Skip rows whose picture is there already'
$tool -n $rows -f -l dry-run -d 'Name the pictures without drawing them'
$tool -n $rows -r -l summary -d 'Tell in JSON what was done'
$tool -n $rows -f -l quiet -d 'Show no progress'

set -l checked '__fish_seen_subcommand_from check'
$tool -n $checked -f -l werror -d 'End with 4 where anything is found'
$tool -n $checked -x -l ignore -a '(velnorxmltoimg check --codes | cut -d ' ' -f 1)' -d 'Leave out a code'
$tool -n $checked -f -l codes -d 'List the codes of findings'

set -l listed '__fish_seen_subcommand_from fonts'
$tool -n $listed -x -l fonts -a '(__fish_complete_directories)' -d 'Count in the font files of a folder'
$tool -n $listed -x -l for -d 'Tell which families have all characters of a text'
