#!/usr/bin/env bash
# Usage: completions.sh PROGRAM SHELL
#
# Asks the completion of a shell (bash, fish or zsh) what may follow on a number of command lines, and
# holds the answers against what the program's own help says. Status 77: there is no such shell.
set -euo pipefail
program=$(realpath "$1") shell=$2
completions=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../../completions")
command -v "$shell" >/dev/null || { echo "Skipped, there is no $shell"; exit 77; }
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/work" && cd "$folder/work"
mkdir beads && touch mine.txt
export LC_ALL=C HOME=$folder XDG_CONFIG_HOME=$folder XDG_DATA_HOME=$folder TERM=dumb

# Adds a command line, and the words that are expected to be offered for its last one.
expect() {
    printf '%s\n' "$1" >>../lines
    { echo "== $1"; printf '%s\n' "${@:2}" | sed '/^$/d' | sort -u; } >>../expected
}

subcommands=$("$program" | tr -d '\n' | sed 's/Subcommands: \(.*instruction\)  help.*/\1/' | tr -d '|')
types=$("$program" create --help | sed -n 's/.*pegboard types are //p' | tr -d '|')
palettes=$("$program" builtin | sed 's/Builtins: //; s/,//g')
files='mine.txt beads/'
options() { sed -n 's/^  \(--*[a-z-]*\)  .*/\1/p' < <("$program" "$@"); }

# The lists are split into words.
# shellcheck disable=SC2046,SC2086
{
    expect 'kavrin ' $subcommands
    expect 'kavrin pa' pack palette
    expect 'kavrin -' $(options --help)
    for subcommand in $subcommands; do
        expect "kavrin $subcommand -" $(options "$subcommand" --help)
    done
    for line in 'picture --pegboard' create pack 'create --fill x' 'pack -o mine.txt'; do
        expect "kavrin $line " $types
    done
    for line in 'picture mine.txt' 'picture --crop 1 2 3 4 mine.txt' 'create --fill-palette' \
        'pack square 29' 'show -s 2' instruction 'instruction --mirror --pitch 5mm'; do
        expect "kavrin $line " $palettes $files
    done
    expect 'kavrin show palettes/h' palettes/hama.txt palettes/hama_mini.txt
    for line in palette 'palette mine.txt' picture 'picture --pegboard hex 9 --dithering' \
        'create -o' 'create --reshape' 'pack square 29 mine.txt mine.txt' 'show mine.txt' \
        'show --background 1 1 1 mine.txt mine.txt' 'instruction mine.txt'; do
        expect "kavrin $line " $files
    done
    for line in 'picture --crop 1 2' 'create square' 'instruction --pitch'; do
        expect "kavrin $line " ''
    done
}

ask_bash() {
    bash --norc -c '
        . "$0/kavrin.bash"
        while IFS= read -r line; do
            echo "== $line"
            read -ra COMP_WORDS <<<"$line"
            [[ $line == *" " ]] && COMP_WORDS+=("")
            COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
            _kavrin
            for word in "${COMPREPLY[@]}"; do
                [[ -d $word ]] && word+=/
                echo "$word"
            done | sort -u
        done <../lines' "$completions"
}

ask_fish() {
    fish --no-config -c '
        source $argv[1]/kavrin.fish
        while read -l line
            echo "== $line"
            complete -C "$line" | cut -f 1 | sort -u
        end <../lines' "$completions"
}

# The completion of zsh works in its line editor only, so a terminal is made up for it. Key ^A notes
# which line is asked about, ^B clears it and says so.
ask_zsh() {
    cat >../.zshrc <<END
fpath=("$completions" \$fpath)
END
    cat >>../.zshrc <<'END'
autoload -Uz compinit && compinit -u -D
unsetopt list_beep auto_menu bg_nice
compadd() {
    local -a words
    if [[ ${@[1,(i)(-|--)]} != *-(O|A|D)\ * ]]; then
        builtin compadd -A words "$@"
        for word in $words; do
            [[ -d $word ]] && word+=/
            print -r -- ${IPREFIX}$word >>../offered
        done
    fi
    builtin compadd "$@"
}
note() { print -r -- "== $BUFFER" >>../offered }
clear() { BUFFER=; zle -I; print NEXT }
zle -N note
zle -N clear
bindkey '^I' complete-word '^A' note '^B' clear
PROMPT='? '
END
    cat >../drive <<'END'
zmodload zsh/zpty
zpty editor ZDOTDIR=.. zsh -d -i || { print -u2 "Skipped, no terminal can be made up"; exit 77 }
zpty -r editor shown '*[?] *'
while IFS= read -r line; do
    zpty -w -n editor "$line"$'\x01\t\x02'
    zpty -r editor shown '*NEXT*'
done <../lines
zpty -d editor
END
    zsh -f ../drive >/dev/null
    awk '/^==/ { if (sorting) close("sort -u"); sorting = 0; print; fflush(); next }
        NF { print | "sort -u"; sorting = 1 }' ../offered
}

"ask_$shell" >../answered
diff ../expected ../answered
