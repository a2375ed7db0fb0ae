# Completion of kavrin's arguments for fish.

# Prints each option of a subcommand with the kinds of its values, then the kinds of its arguments.
# Kinds: t a pegboard type (its size follows), p a palette, f a file, n anything else, + one or more
# files that end the options.
function __kavrin_grammar
    switch $argv[1]
        case palette
            echo ff
        case picture
            printf '%s\n' --crop=nnnn --crop-transparent= --hsv-weights=nnn --transparent-color=nnn \
                --transparent-threshold=n --transparent-position=nn --pegboard=tn --dithering= fpf
        case create
            printf '%s\n' -o=f --fill=n --fill-palette=p --reshape=f t
        case pack
            printf '%s\n' -o=f tp+
        case show
            printf '%s\n' -s=n --background=nnn pff
        case instruction
            printf '%s\n' --pitch=n --mirror= --background=n p+
        case '*'
            echo ''
    end
end

# Prints the kind of the word that comes next, preceded by "o" where an option may stand.
function __kavrin_expected
    set -l words (commandline -opc)
    set -l grammar (__kavrin_grammar $words[2])
    set -l arguments $grammar[-1]
    set -l values ''
    set -l options o
    for word in $words[3..-1]
        set -l option (string match -- "$word=*" $grammar[1..-2])
        if test -n "$values"
            set values (string sub -s 2 -- $values)
        else if test -n "$option" -a -n "$options"
            set values (string replace -r '.*=' '' -- $option)
        else if test "$arguments" = +
            set options ''
        else
            string match -q 't*' -- $arguments; and set values n
            set arguments (string sub -s 2 -- $arguments)
        end
    end
    if test -n "$values"
        string sub -l 1 -- $values
    else
        echo $options(string sub -l 1 -- "$arguments")
    end
end

function __kavrin_expects
    test (count (commandline -opc)) -gt 1; and string match -qr -- $argv[1] (__kavrin_expected)
end

function __kavrin_option_of
    set -l words (commandline -opc)
    contains -- "$words[2]" $argv; and __kavrin_expects '^o'
end

complete -c kavrin -f
complete -c kavrin -n __fish_is_first_token -l help -d 'print this help message'
complete -c kavrin -n __fish_is_first_token -l version -d 'print version'
complete -c kavrin -n __fish_is_first_token -a help -d 'Print this message.'
complete -c kavrin -n __fish_is_first_token -a builtin -d 'List builtin resources.'
complete -c kavrin -n __fish_is_first_token -a palette -d 'Generate palette from a picture.'
complete -c kavrin -n __fish_is_first_token -a picture \
    -d 'Generate pattern from a picture and palette.'
complete -c kavrin -n __fish_is_first_token -a create -d 'Create empty pattern.'
complete -c kavrin -n __fish_is_first_token -a pack \
    -d 'Pack square patterns into pattern with layers of panels.'
complete -c kavrin -n __fish_is_first_token -a show -d 'Produce an image of a pattern.'
complete -c kavrin -n __fish_is_first_token -a instruction \
    -d 'Generate a document with instructions for building a pattern.'

complete -c kavrin -n "__kavrin_expects 't\$'" -a 'square hex circle'
complete -c kavrin -n "__kavrin_expects '[pf+]\$'" -F
complete -c kavrin -n "__kavrin_expects 'p\$'" -a 'palettes/artkal.txt palettes/artkal_mini.txt
    palettes/hama.txt palettes/hama_mini.txt palettes/ikea.txt palettes/nabbi.txt palettes/kavrin.txt
    palettes/kavrin_mini.txt'

complete -c kavrin -n '__kavrin_expects ^o' -l help -d 'print this help message'
complete -c kavrin -n '__kavrin_option_of picture' -l crop -d 'image crop'
complete -c kavrin -n '__kavrin_option_of picture' -l crop-transparent \
    -d 'crop transparent borders of image'
complete -c kavrin -n '__kavrin_option_of picture' -l hsv-weights -d 'color distance HSV weights'
complete -c kavrin -n '__kavrin_option_of picture' -l transparent-color \
    -d 'RGB color normalized to 0.0-1.0'
complete -c kavrin -n '__kavrin_option_of picture' -l transparent-threshold \
    -d 'threshold box side in the range 0.0-1.0'
complete -c kavrin -n '__kavrin_option_of picture' -l transparent-position \
    -d 'position in image to pick transparent color'
complete -c kavrin -n '__kavrin_option_of picture' -l pegboard -d 'pegboard type and size'
complete -c kavrin -n '__kavrin_option_of picture' -l dithering -d dithering
complete -c kavrin -n '__kavrin_option_of create pack' -s o -d 'output pattern file'
complete -c kavrin -n '__kavrin_option_of create' -l fill -d 'palette symbol to fill pattern with'
complete -c kavrin -n '__kavrin_option_of create' -l fill-palette \
    -d 'palette fill start of pattern with'
complete -c kavrin -n '__kavrin_option_of create' -l reshape -d 'input pattern to reshape'
complete -c kavrin -n '__kavrin_option_of show' -s s -d 'bead size'
complete -c kavrin -n '__kavrin_option_of show' -l background -d 'RGB color normalized to 0.0-1.0'
complete -c kavrin -n '__kavrin_option_of instruction' -l pitch \
    -d 'bead pitch (size) with unit e.g. 5mm'
complete -c kavrin -n '__kavrin_option_of instruction' -l mirror \
    -d 'mirror instruction to match bead fuse side'
complete -c kavrin -n '__kavrin_option_of instruction' -l background -d 'background color'
