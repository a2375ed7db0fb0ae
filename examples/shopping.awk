# Writes what to buy for some patterns: of each bead how many they take, how many are in the box, and
# how many are missing.
#
#   awk -f shopping.awk -v beads=symbols.csv -v palette=hama.txt -v box=box.csv cat.txt heart.txt
#
#   beads, palette  the list of what bead each symbol is, and its palette if it holds several
#   box             what is in the box: lines of a code and a number, "H18,250"; the name stands for
#                   the code where beads have none

BEGIN {
    while (beads != "" && (getline line < beads) > 0) {
        sub(/\r$/, "", line)
        split(line, part, ",")
        if (part[1] == "palette" || palette != "" && part[1] != palette) continue
        if (!(part[2] in code)) symbols[++symbolCount] = part[2]
        code[part[2]] = part[3]
        name[part[2]] = part[4]
    }
    if (!symbolCount) fail("There are no beads" (palette == "" ? "" : " of " palette) " in \"" beads "\".")
    while (box != "" && (read = getline line < box) > 0) {
        sub(/^\357\273\277/, "", line) # the mark that spreadsheets put before UTF-8
        split(line, part, /[,;]/)
        stock[part[1]] += part[2]
    }
    if (read < 0) fail("Failed to open " box)
}

{ sub(/\r$/, "") }
FNR == 1 && /^(square|hex|circle)$/ { next }
{ for (at = 1; at <= length($0); at++) need[substr($0, at, 1)]++ }

END {
    if (failed) exit 1
    printf "%-10s %-22s %6s %6s %6s\n", "code", "name", "takes", "box", "buy"
    for (i = 1; i <= symbolCount; i++) {
        symbol = symbols[i]
        if (!need[symbol]) continue
        there = stock[code[symbol] == "" ? name[symbol] : code[symbol]] + 0
        buy = need[symbol] > there ? need[symbol] - there : 0
        printf "%-10s %-22s %6d %6d %6d\n", code[symbol], name[symbol], need[symbol], there, buy
    }
}

function fail(message) {
    print message > "/dev/stderr"
    failed = 1
    exit 1
}
