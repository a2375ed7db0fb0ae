# Sourced by the scripts beside it: what fuzz/formats.txt says.

# The names of the formats, a line each.
fuzz_formats() {
    awk '{ print tolower($1) }' fuzz/formats.txt
}

# The folders of a format's seeds, a line each, as absolute paths: a target may work elsewhere.
fuzz_seeds() {
    awk -v format="$1" -v top="$PWD" 'tolower($1) == format {
        print top "/fuzz/corpus/" format
        if (NF > 1) print top "/" $2
    }' fuzz/formats.txt | while read -r folder; do [ ! -d "$folder" ] || echo "$folder"; done
}
