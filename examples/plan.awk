# Turns an instruction document into one with a symbol on each bead and beside its number, the name of
# each pattern, one board a page, and on square boards a line every ten beads.
#
#   kavrin instruction palettes/hama.txt cat.txt | awk -f plan.awk -v names=cat > cat.tex
#
# Every value after a -v may be left out:
#   names    the names of the patterns, with blanks between, or semicolons if names have blanks; a
#            pattern of several layers takes a name for each
#   beads    a list of what bead each symbol is, such as share/kavrin/palettes/symbols.csv; the codes
#            and names of the beads are put beside their numbers. The list may hold several palettes,
#   palette  of which this one is meant, hama.txt for example
#   mono     1 for black symbols in white beads, for a printer without colours
#   paper    letter for US Letter

BEGIN {
    for (i = 33; i < 127; i++) code[sprintf("%c", i)] = i
    nameCount = split(names, name, index(names, ";") ? "; *" : " +")
    if (beads != "") readBeads()
}

/^\\documentclass/ { print "\\RequirePackage{fix-cm}" } # fonts of any size

/^\\geometry/ && paper == "letter" {
    sub(/a4paper,total=\{170mm,257mm\}/, "letterpaper,total={176mm,239mm}")
}

/^\\begin\{framed\}/ && board++ && !total { print "\\pagebreak" }
/^\\pagebreak/ { total = 1 }
/^\\begin\{framed\}/ && board <= nameCount && !total {
    print
    print "\\noindent{\\large\\bfseries " escaped(title(name[board])) "}"
    next
}

/^\\begin\{tikzpicture\}/ {
    pitch = $0
    sub(/.*line width=0\.2\*/, "", pitch)
    sub(/,.*/, "", pitch)
    mirrored = /\[x=-/
    columns = rows = 0
    grid = 1
    sub(/default=\{0.8mm\}/, "default={0.16*" pitch "}")
    style = "circle,anchor=center,draw=black,line width=0.03*" pitch ",inner sep=0pt,outer sep=0pt"
    style = style ",minimum size=0.92*" pitch
    style = style ",font=\\fontsize{0.75\\dimexpr" pitch "\\relax}{0pt}\\ttfamily"
    sub(/\]$/, ",disc/.style={" style "}]")
}

/^\\definecolor\{color_/ {
    symbol = substr($0, 20, 1)
    split(substr($0, 28), part, /[{},]/)
    # Below this luminance white stands out better than black does.
    dark[symbol] = 0.2126 * part[1]^2.2 + 0.7152 * part[2]^2.2 + 0.0722 * part[3]^2.2 < 0.18
}

/^\\node .* at / && !inUsage {
    split(substr($0, index($0, "(") + 1), part, /[,)] */)
    if (part[1] !~ /^[0-9]+$/ || part[2] !~ /^[0-9]+$/) grid = 0
    if (part[1] >= columns) columns = part[1] + 1
    if (part[2] >= rows) rows = part[2] + 1
    if (/color_/) {
        symbol = substr($0, index($0, "draw=color_") + 11, 1)
        print "\\node [" disc(symbol) "] at (" part[1] ", " part[2] ") {" printed(symbol) "};"
        next
    }
}

/^\\end\{scope\}/ {
    print
    if (grid) drawTens()
    next
}

/^\\matrix/ {
    inUsage = 1
    used = 0
    if (beads != "") sub(/column sep=1 mm/, "column sep=5 mm")
    print
    next
}
inUsage && /^\\node/ {
    symbol = substr($0, index($0, "draw=color_") + 11, 1)
    count = substr($0, index($0, "right:") + 6)
    sub(/\}.*/, "", count)
    text = count
    if (symbol in bead) text = text "~{\\small " escaped(bead[symbol]) "}"
    if (used) print used % (beads == "" ? 8 : 3) ? " &" : " \\\\"
    printf "\\node [%s,label={right:%s}] at (0, 0) {%s};", disc(symbol), text, printed(symbol)
    used++
    next
}
inUsage && /^\};/ { inUsage = 0; if (used) print " \\\\" }

{ print }

function disc(symbol) {
    if (mono) return "disc,fill=white"
    return "disc,fill=color_" symbol (dark[symbol] ? ",text=white" : "")
}

# The symbol as TeX text; a nought has a slash, so that it is no O.
function printed(symbol) {
    return symbol == "0" ? "0\\llap{/}" : escaped(symbol)
}

function drawTens(   at) {
    for (at = 10; at < columns; at += 10) {
        print "\\draw [line width=0.08*" pitch "] (" at ", 0) -- (" at ", " rows ");"
        print "\\node [overlay,above,font=\\tiny] at (" at ", 0) {" at "};"
    }
    for (at = 10; at < rows; at += 10) {
        print "\\draw [line width=0.08*" pitch "] (0, " at ") -- (" columns ", " at ");"
        print "\\node [overlay," (mirrored ? "right" : "left") ",font=\\tiny] at (0, " at ") {" at "};"
    }
}

# A file's name without its folder and .txt.
function title(file) {
    sub(/.*\//, "", file)
    sub(/\.txt$/, "", file)
    return file
}

function escaped(text,   i, character, all) {
    for (i = 1; i <= length(text); i++) {
        character = substr(text, i, 1)
        if (index("_&%$#{}", character)) character = "\\" character
        else if (character == "\\") character = "\\textbackslash{}"
        else if (index("^~<>|\"", character)) character = "\\char" code[character] "{}"
        all = all character
    }
    return all
}

function readBeads(   line, part, found) {
    while ((getline line < beads) > 0) {
        sub(/\r$/, "", line)
        split(line, part, ",")
        if (part[1] == "palette" || palette != "" && part[1] != palette) continue
        bead[part[2]] = part[3] == part[4] ? part[3] : part[3] " " part[4]
        found++
    }
    close(beads)
    if (found) return
    print "There are no beads" (palette == "" ? "" : " of " palette) " in \"" beads "\"." > "/dev/stderr"
    exit 1
}
