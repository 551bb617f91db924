# Completion of analytics-settingsctl for fish.

# Whether the command on the line is one of these; without any, whether there is none yet.
function __analytics_settingsctl_in
    set -l words (commandline -opc)
    test (count $words) -gt 1; and contains -- $words[2] $argv
    or test (count $words) -eq 1 -a (count $argv) -eq 0
end

function __analytics_settingsctl_checks
    analytics-settingsctl check --list 2>/dev/null | string match -r '^[a-z]\S+'
end

# Offers something to the commands of the first argument, a text of several words.
function __analytics_settingsctl_offer
    complete -c analytics-settingsctl -n "__analytics_settingsctl_in $argv[1]" $argv[2..]
end

__analytics_settingsctl_offer '' -f
__analytics_settingsctl_offer '' -l version -d 'Print the version'
complete -c analytics-settingsctl -l help -d 'Print help'

function __analytics_settingsctl_command -a name description
    __analytics_settingsctl_offer '' -a $name -d $description
end

__analytics_settingsctl_command settings 'Show every setting, its value and where it comes from'
__analytics_settingsctl_command get 'Query the settings file as the runtime would'
__analytics_settingsctl_command expand 'Substitute variables in a text as the runtime would'
__analytics_settingsctl_command profile 'Show what the runtime finds in a profile'
__analytics_settingsctl_command check 'Find what the library would silently ignore or misread'
__analytics_settingsctl_command draw 'Draw the geometry of a profile as an SVG picture'
__analytics_settingsctl_command set 'Set the value of an item in a profile'
__analytics_settingsctl_command delete-rules 'Delete all rules of a type from a profile'
__analytics_settingsctl_command watch 'Print the privacy masks and each change of them'
__analytics_settingsctl_command available 'Print how many resource units are free'
__analytics_settingsctl_command reserve 'Claim resource units for the analytics'

__analytics_settingsctl_offer 'get expand reserve watch available' -f
__analytics_settingsctl_offer 'settings profile check watch available reserve' -l json \
    -d 'For other programs'
__analytics_settingsctl_offer 'get expand profile check draw set delete-rules' -l settings -rF \
    -d 'Settings file'

__analytics_settingsctl_offer get -l all -d 'All texts'
__analytics_settingsctl_offer get -l int -x -d 'As an integer, with this default'

__analytics_settingsctl_offer check -l as -xa 'settings profile' -d 'What the files are'
__analytics_settingsctl_offer check -l without -kxa '(__analytics_settingsctl_checks)' \
    -d 'Switch a check off'
__analytics_settingsctl_offer check -l explain -kxa '(__analytics_settingsctl_checks)' \
    -d 'Explain a check'
__analytics_settingsctl_offer check -l fix-hints -d 'Say what to do about each finding'
__analytics_settingsctl_offer check -l list -d 'List all checks'

__analytics_settingsctl_offer 'draw set delete-rules' -s o -l output -rF -d 'Write to this file'
__analytics_settingsctl_offer draw -l size -x -d 'Size of the image, as 1280x720'
__analytics_settingsctl_offer draw -l background -rF -d 'Image to draw on'

__analytics_settingsctl_offer set -l rule -x -d 'Type of the rule'
__analytics_settingsctl_offer set -l item -x -d 'Name of the item'
__analytics_settingsctl_offer 'set delete-rules' -l dry-run \
    -d 'Print the difference and write nothing'
