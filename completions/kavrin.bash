# Completion of kavrin's arguments for bash.

# Sets `expected` to the kind of the word that comes next and `options` to the options that may stand
# there. Kinds: t a pegboard type (its size follows), p a palette, f a file, n anything else,
# + one or more files that end the options.
_kavrin_expect() {
    local arguments values word
    case $1 in
        help | builtin) options='' arguments='' ;;
        palette) options='' arguments='ff' ;;
        picture)
            options='--crop=nnnn --crop-transparent= --hsv-weights=nnn --transparent-color=nnn
                --transparent-threshold=n --transparent-position=nn --pegboard=tn --dithering='
            arguments='fpf' ;;
        create) options='-o=f --fill=n --fill-palette=p --reshape=f' arguments='t' ;;
        pack) options='-o=f' arguments='tp+' ;;
        show) options='-s=n --background=nnn' arguments='pff' ;;
        instruction) options='--pitch=n --mirror= --background=n' arguments='p+' ;;
        *) return 1 ;;
    esac
    options="$options --help= "
    shift
    values=''
    for word; do
        if [[ $values ]]; then
            values=${values:1}
        elif [[ " "$options == *[[:space:]]"$word="* ]]; then
            values=" "$options
            values=${values#*[[:space:]]"$word="}
            values=${values%%[[:space:]]*}
        elif [[ $arguments == + ]]; then
            options=''
        else
            [[ $arguments == t* ]] && values='n'
            arguments=${arguments:1}
        fi
    done
    expected=${values:-$arguments}
    expected=${expected:0:1}
    [[ $values ]] && options=''
    options=$(sed 's/=[a-z]*//g' <<<"$options")
}

_kavrin() {
    local word=${COMP_WORDS[COMP_CWORD]} words='' expected options
    local palettes='palettes/artkal.txt palettes/artkal_mini.txt palettes/hama.txt
        palettes/hama_mini.txt palettes/ikea.txt palettes/nabbi.txt palettes/kavrin.txt
        palettes/kavrin_mini.txt'
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        words='help builtin palette picture create pack show instruction'
        [[ $word == -* ]] && words='--help --version'
    else
        _kavrin_expect "${COMP_WORDS[@]:1:COMP_CWORD - 1}" || return
        case $expected in
            t) words='square hex circle' ;;
            p) words=$palettes ;;
        esac
        if [[ $word == -* && $options ]]; then
            words=$options
        elif [[ $expected == [pf+] ]]; then
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$word")
        fi
    fi
    mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -F _kavrin kavrin
