# Puts square patterns beside each other, with a free column between.
#
#   awk -f beside.awk left.txt right.txt > both.txt

{ sub(/\r$/, "") }
FNR == 1 { file++; rows = 0 }
FNR == 1 && /^square$/ || !NF { next }
{
    row[file, ++rows] = $0
    if (rows > height) height = rows
    if (length($0) > width[file]) width[file] = length($0)
}

END {
    print "square\n"
    for (y = 1; y <= height; y++) {
        line = ""
        for (i = 1; i <= file; i++) {
            cell = row[i, y]
            while (length(cell) < width[i]) cell = cell "."
            line = line (i > 1 ? "." : "") cell
        }
        print line
    }
    print ""
}
