# Makes a palette from a table of beads, such as beads.csv.
#
#   awk -f palette.awk -v maker=Hama -v size=midi -v codes="H01 H05 H18" beads.csv > mine.txt
#
# Every value after a -v may be left out but for those that tell the range:
#   maker, size  the range; without them the makers and sizes of the table are listed
#   codes        only these beads, in this order; H10..H14 is all from H10 to H14 in the table, and
#                MA* all that begin with MA
#   spread       only so many, those that differ most from each other
#   first        the symbol of the first bead, 0 if not given
#   symbols      a list of symbols from an earlier run; beads in it keep their symbols, new ones
#   palette      come after them. The list may hold several palettes, of which this one is meant
#   more         1 for symbols beyond the 62 that can be printed, up to 245; needs LC_ALL=C
#   list         prints the list of symbols for a palette of this name in place of the palette
#
# The table has a line of headings: maker, size, code, name, red, green, blue, in any order. Colours
# are numbers from 0 to 255. Size may be missing.

BEGIN {
    all = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
    if (more) for (i = 1; i < 256; i++) addSymbol(sprintf("%c", i))
    if (first == "") first = "0"
    separator = ","
    if (symbols != "") readSymbols()
}

{ sub(/\r$/, "") }

NR == 1 {
    sub(/^\357\273\277/, "") # the mark that spreadsheets put before UTF-8
    if (!index($0, ",")) separator = ";"
    fields = splitLine($0, heading)
    for (i = 1; i <= fields; i++) column[heading[i]] = i
    fields = split("maker code name red green blue", needed, " ")
    for (i = 1; i <= fields; i++)
        if (!(needed[i] in column)) fail("The table has no column " needed[i] ".")
    next
}

NF {
    fields = splitLine($0, field)
    thisSize = "size" in column ? field[column["size"]] : ""
    group = field[column["maker"]] SUBSEP thisSize
    if (!(group in inTable)) groups[++groupCount] = group
    inTable[group]++
    if (maker != "" && field[column["maker"]] != maker) next
    if (size != "" && thisSize != size && index(thisSize, size ",") != 1) next
    if (!(group in inRange)) { inRange[group] = 1; ranges++ }
    rows++
    rowGroup[rows] = group
    code[rows] = field[column["code"]]
    name[rows] = field[column["name"]]
    red[rows] = byte("red"); green[rows] = byte("green"); blue[rows] = byte("blue")
}

END {
    if (failed) exit 1
    if (!rows) failWithRanges("The table has no such range.")
    only = rowGroup[1]
    if (ranges > 1) { # the plain one of a maker goes without its size
        if (maker == "" || !((maker SUBSEP "") in inRange))
            failWithRanges("Say which maker and size.")
        only = maker SUBSEP ""
    }
    for (row = 1; row <= rows; row++)
        if (rowGroup[row] == only && !(code[row] in rowOf)) {
            order[++beads] = row
            rowOf[code[row]] = row
        }
    if (codes != "") pickCodes()
    if (spread != "" && spread + 0 < beads) pickSpread(spread + 0)
    giveSymbols()
    for (place = 1; place <= length(all); place++)
        if (place in bead) writeBead(substr(all, place, 1), bead[place])
}

# Any byte but blanks, the sign of no bead, and what has a meaning in a table.
function addSymbol(character) {
    if (!index(all " \t\n\v\f\r.,\"\177", character)) all = all character
}

function fail(message) {
    print message > "/dev/stderr"
    failed = 1
    exit 1
}

function failWithRanges(message,   i, parts) {
    for (i = 1; i <= groupCount; i++) {
        split(groups[i], parts, SUBSEP)
        message = message "\n  maker=" parts[1]
        if (parts[2] != "") message = message " size=\"" parts[2] "\""
        message = message ": " inTable[groups[i]] " beads"
    }
    fail(message)
}

# Splits a line of a table, in which a field with commas stands in quotes; returns their number.
function splitLine(line, into,   count, position, quoted, character) {
    if (!index(line, "\"")) return split(line, into, separator)
    delete into
    count = 1
    into[1] = ""
    for (position = 1; position <= length(line); position++) {
        character = substr(line, position, 1)
        if (character == "\"") quoted = !quoted
        else if (character == separator && !quoted) into[++count] = ""
        else into[count] = into[count] character
    }
    return count
}

function byte(heading,   value) {
    value = field[column[heading]]
    if (value !~ /^[0-9]+$/ || value + 0 > 255)
        fail("Line " NR ": " heading " is not a number from 0 to 255.")
    return value + 0
}

# Reads which symbols the beads have had so far.
function readSymbols(   read, line, parts, place) {
    while ((read = getline line < symbols) > 0) {
        sub(/\r$/, "", line)
        splitLine(line, parts)
        place = index(all, parts[2])
        if (parts[1] == "palette" || !place || palette != "" && parts[1] != palette) continue
        placeOf[parts[3]] = place
        if (place > last) last = place
    }
    close(symbols)
    if (read < 0) fail("Failed to open " symbols)
}

function pickCodes(   words, count, i, ends, from, to, row) {
    beads = 0
    gsub(/[,;\r\n\t]+/, " ", codes)
    count = split(codes, words, " ")
    for (i = 1; i <= count; i++) {
        from = to = words[i]
        if (split(words[i], ends, /\.\./) == 2) { from = ends[1]; to = ends[2] }
        if (words[i] ~ /\*$/) {
            for (row = 1; row <= rows; row++)
                if (index(code[row], substr(words[i], 1, length(words[i]) - 1)) == 1) pick(row)
            continue
        }
        if (!(from in rowOf) || !(to in rowOf))
            fail("The table has no bead " (from in rowOf ? to : from) " in this range.")
        for (row = rowOf[from]; row <= rowOf[to]; row++) pick(row)
    }
}

function pick(row) {
    if (rowGroup[row] != only || row in picked) return
    picked[row] = 1
    order[++beads] = row
}

# Keeps the beads that have a symbol already, or else the first, and then takes again and again the
# one farthest from all that are taken, in CIELAB.
function pickSpread(wanted,   i, taken, farthest, row, kept) {
    for (i = 1; i <= beads; i++) {
        toLab(order[i])
        distance[order[i]] = 1e9
    }
    for (i = 1; i <= beads; i++)
        if (code[order[i]] in placeOf && taken < wanted) { take(order[i]); taken++ }
    if (!taken) { take(order[1]); taken = 1 }
    for (; taken < wanted; taken++) {
        farthest = order[1]
        for (i = 2; i <= beads; i++)
            if (distance[order[i]] > distance[farthest]) farthest = order[i]
        take(farthest)
    }
    for (i = 1; i <= beads; i++) if (order[i] in chosen) order[++kept] = order[i]
    beads = kept
}

function take(row,   i, far) {
    chosen[row] = 1
    for (i = 1; i <= beads; i++) {
        far = (L[row] - L[order[i]])^2 + (A[row] - A[order[i]])^2 + (B[row] - B[order[i]])^2
        if (far < distance[order[i]]) distance[order[i]] = far
    }
}

# From sRGB to CIELAB under D65.
function toLab(row,   r, g, b, x, y, z) {
    r = linear(red[row]); g = linear(green[row]); b = linear(blue[row])
    x = root((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.9505)
    y = root(0.2126 * r + 0.7152 * g + 0.0722 * b)
    z = root((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.0890)
    L[row] = 116 * y - 16; A[row] = 500 * (x - y); B[row] = 200 * (y - z)
}

function linear(value) {
    value /= 255
    return value <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055)^2.4
}

function root(value) {
    return value > 0.008856 ? value^(1 / 3) : 7.787 * value + 16 / 116
}

function giveSymbols(   i) {
    if (last < index(all, first) - 1) last = index(all, first) - 1
    for (i = 1; i <= beads; i++) {
        if (!(code[order[i]] in placeOf)) placeOf[code[order[i]]] = ++last
        bead[placeOf[code[order[i]]]] = order[i]
    }
    if (last > length(all))
        fail(beads " beads are more than there are symbols; take a part with codes or spread.")
}

function writeBead(symbol, row) {
    if (list == "")
        print symbol, fraction(red[row]), fraction(green[row]), fraction(blue[row])
    else
        printf "%s,%s,%s,%s,#%02x%02x%02x\n", list, symbol, code[row], quotedName(name[row]),
            red[row], green[row], blue[row]
}

# The sixth digit is rounded up, so that the fraction times 255 never falls below the byte.
function fraction(value) {
    if (value % 255 == 0) return value / 255 ""
    return sprintf("%.6f", int(value * 1000000 / 255 + 1) / 1000000)
}

function quotedName(text) {
    return index(text, ",") ? "\"" text "\"" : text
}
