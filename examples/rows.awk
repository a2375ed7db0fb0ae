# Writes the rows of a pattern as text to be read aloud: how many of which symbol, from the left; for a
# circle the rings from the centre.
#
#   awk -f rows.awk cat.txt
#
# With a list of what bead each symbol is (-v beads=symbols.csv), and its palette if it holds several
# (-v palette=hama.txt), the beads are called by their names.

BEGIN { if (beads != "") readBeads() }

{ sub(/\r$/, "") }
FNR == 1 { row = layer = 0; style = "square" }
FNR == 1 && /^(square|hex|circle)$/ { style = $0; next }
/^$/ { row = 0; next }

{
    if (++row == 1 && ++layer > 1) print "Layer " layer
    line = row ":"
    count = 0
    step = style == "hex" ? 2 : 1
    for (at = step == 2 && row % 2 == 0 ? 2 : 1; at <= length($0); at += step) {
        symbol = substr($0, at, 1)
        if (count && symbol != before) flush()
        before = symbol
        count++
    }
    flush()
    print line
}

function flush() {
    if (beads == "") line = line " " count before
    else line = line (line ~ /:$/ ? " " : ", ") count " " (before in name ? name[before] : "empty")
    count = 0
}

function readBeads(   text, part, found) {
    while ((getline text < beads) > 0) {
        sub(/\r$/, "", text)
        split(text, part, ",")
        if (part[1] == "palette" || palette != "" && part[1] != palette) continue
        name[part[2]] = part[4]
        found++
    }
    close(beads)
    if (found) return
    print "There are no beads" (palette == "" ? "" : " of " palette) " in \"" beads "\"." > "/dev/stderr"
    exit 1
}
