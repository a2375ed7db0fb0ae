# Brings the pattern of an enlarged sprite back to one bead a pixel. How often it was enlarged is seen
# from where the beads change, or is said with -v times=8.
#
#   kavrin picture large.png palettes/hama.txt large.txt
#   awk -f shrink.awk large.txt > sprite.txt

{ sub(/\r$/, "") }
NR == 1 && /^square$/ { next }
NF { row[++rows] = $0 }

END {
    if (!times) times = enlargement()
    print times " x " times " beads became one" > "/dev/stderr"
    print "square\n"
    for (y = int(times / 2) + 1; y <= rows; y += times) {
        line = ""
        for (x = int(times / 2) + 1; x <= length(row[y]); x += times) line = line substr(row[y], x, 1)
        print line
    }
    print ""
}

# The greatest number of which all places where the beads change are multiples.
function enlargement(   x, y, step) {
    step = divisor(rows, length(row[1]))
    for (y = 1; y <= rows; y++) {
        if (y > 1 && row[y] != row[y - 1]) step = divisor(step, y - 1)
        for (x = 2; x <= length(row[y]); x++)
            if (substr(row[y], x, 1) != substr(row[y], x - 1, 1)) step = divisor(step, x - 1)
    }
    return step
}

function divisor(a, b,   rest) {
    while (b) { rest = a % b; a = b; b = rest }
    return a
}
