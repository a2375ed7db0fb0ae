# Sourced by the scripts beside it.

# Makes sure that the Debian packages named are there, installing them where that is allowed.
require_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! sudo -n true 2>/dev/null; then
            echo "These packages are needed first: apt-get install ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}"
    "${as_root[@]}" apt-get -qq update &&
        DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get -qq install \
            --no-install-recommends "${missing[@]}" >/dev/null
}

build_packages=(cmake g++ ninja-build)
test_packages=("${build_packages[@]}" googletest libgtest-dev)
bench_packages=("${build_packages[@]}" libbenchmark-dev)

# Configures, once, and builds a preset; what the build says is shown only when it fails.
build_preset() {
    local log
    log=$(mktemp)
    echo "Building (preset $1)"
    if ! { cmake --preset "$1" && cmake --build --preset "$1"; } >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}
