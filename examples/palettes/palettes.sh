#!/bin/sh
# Makes the palettes of this folder and symbols.csv, the list of what each symbol is, from beads.csv.
# A bead keeps the symbol that it has in symbols.csv; new beads come after all others.
set -eu
cd "$(dirname "$0")"

touch symbols.csv
echo palette,symbol,code,name,colour > symbols.new
palette() { # NAME MAKER SIZE CODES [HOW MANY]
    set -- "$1" -v maker="$2" -v size="$3" -v codes="$4" -v spread="${5-}" \
        -v symbols=symbols.csv -v palette="$1"
    name=$1
    shift
    awk -f palette.awk "$@" beads.csv > "$name"
    awk -f palette.awk "$@" -v list="$name" beads.csv >> symbols.new
}

solid='H01..H12 H17 H18 H20..H22 H26..H31 H33 H43..H49 H60 H70 H71 H75..H98'
palette hama-midi.txt Hama midi "$solid"
palette hama-midi-100.txt Hama midi 'H101..H119'
palette hama-midi-special.txt Hama midi \
    'H13..H16 H19 H24 H25 H32 H34..H42 H15 H55..H57 H61..H64 H72..H74'
palette hama-mini.txt Hama mini "$solid"
palette hama-mini-100.txt Hama mini 'H101..H119'
palette hama-mini-special.txt Hama mini 'H13..H16 H19 H24 H32 H34..H42'
palette nabbi-all.txt Nabbi '' ''
palette perler-19.txt Perler '' '80-19*'
palette perler-15.txt Perler '' '80-15*'
palette perler-mini.txt Perler mini ''

palette artkal-s-1.txt Artkal S 'S01..S62'
palette artkal-s-2.txt Artkal S 'S63..S124'
palette artkal-s-3.txt Artkal S 'S125..S159 SE*'
palette artkal-s-special.txt Artkal S 'SG* SL* SN* SP* ST*'
palette artkal-r-1.txt Artkal R 'R01..R64'
palette artkal-r-2.txt Artkal R 'R66..R93'
palette artkal-a-1.txt Artkal A 'A01..A74'
palette artkal-a-2.txt Artkal A 'A75..A136'
palette artkal-a-3.txt Artkal A 'A137..A157'
palette artkal-c-1.txt Artkal C 'C01..C74'
palette artkal-c-2.txt Artkal C 'C75..C136'
palette artkal-c-3.txt Artkal C 'C137..C157 C45..C68 CE*'

# Where the series go by hue, no part alone is of use for a photo: the first file has the colours
# that differ most.
palette artkal-m.txt Artkal M '' 62
palette artkal-m-ab.txt Artkal M 'MA* MB*'
palette artkal-m-cd.txt Artkal M 'MC* MD*'
palette artkal-m-ef.txt Artkal M 'ME* MF*'
palette artkal-m-ghm.txt Artkal M 'MG* MH* MM*'
palette mard.txt Mard '' 'A* B* C* D* E* F* G* H* M*' 62
palette mard-ab.txt Mard '' 'A* B*'
palette mard-cd.txt Mard '' 'C* D*'
palette mard-ef.txt Mard '' 'E* F*'
palette mard-ghm.txt Mard '' 'G* H* M*'
palette mard-pqtyz.txt Mard '' 'P* Q* T* Y* ZG*'
palette mard-r.txt Mard '' 'R*'
palette yant.txt Yant '' '' 62
palette yant-1.txt Yant '' 'Y002..Y063'
palette yant-2.txt Yant '' 'Y064..Y120'

mv symbols.new symbols.csv
