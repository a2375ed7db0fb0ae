# Sourced by the scripts beside it.

# What shows that a package's part is there, whoever put it there: a program, a <header> or a /file.
# A package that is not listed shows itself only as a package.
declare -A shows=(
    [clang]=clang++ [clang-19]=clang++-19 [clang-format-19]=clang-format-19
    [clang-tidy-19]=clang-tidy-19 [cmake]=cmake [cppcheck]=cppcheck [dpkg-dev]=dpkg-shlibdeps
    [file]=file [fish]=fish [g++]=c++
    [g++-aarch64-linux-gnu]=aarch64-linux-gnu-g++ [g++-i686-linux-gnu]=i686-linux-gnu-g++
    [g++-mingw-w64-x86-64-posix]=x86_64-w64-mingw32-g++-posix
    [g++-s390x-linux-gnu]=s390x-linux-gnu-g++ [gcovr]=gcovr [git]=git
    [googletest]=/usr/src/googletest/CMakeLists.txt [libbenchmark-dev]='<benchmark/benchmark.h>'
    [libgtest-dev]='<gtest/gtest.h>' [man-db]=man [ninja-build]=ninja
    [qemu-user-static]=qemu-aarch64-static [valgrind]=valgrind [wine]=wine [wine64]=wine [xz-utils]=xz
    [zip]=zip [unzip]=unzip [zsh]=zsh)

# Whether what a package brings is there.
is_there() {
    local sign=${shows[$1]:-}
    case $sign in
        '') ;;
        '<'*) echo "#include $sign" | c++ -fsyntax-only -x c++ - 2>/dev/null && return ;;
        /*) [ -e "$sign" ] && return ;;
        *) command -v "$sign" >/dev/null && return ;;
    esac
    dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q 'ok installed'
}

# Makes sure that what the Debian packages named bring is there, installing them where that can be
# done. Scripts ask for all that they need in one call, before they build.
require_packages() {
    local missing=() package as_root=() log
    for package in "$@"; do
        is_there "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    if ! command -v apt-get >/dev/null; then
        echo "This is needed first (names are those of Debian's packages): ${missing[*]}" >&2
        return 1
    fi
    if [ "$(id -u)" -ne 0 ]; then
        if ! sudo -n true 2>/dev/null; then
            echo "These packages are needed first: apt-get install ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}"
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get -qq update &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq install \
            --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        echo "These packages are needed first and could not be installed: ${missing[*]}" \
            "($(grep '^E: ' "$log" | head -n 1))" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

build_packages=(cmake g++ ninja-build)
test_packages=("${build_packages[@]}" googletest libgtest-dev)
bench_packages=("${build_packages[@]}" libbenchmark-dev)

# Copies lines to a file and shows the latest of them on the terminal, if there is one.
show_progress() {
    local line columns
    if [ ! -t 1 ]; then
        cat >"$1"
        return
    fi
    columns=$(tput cols 2>/dev/null || echo 80)
    while IFS= read -r line; do
        echo "$line"
        printf '\r\033[K%s' "${line:0:columns-1}" >&3
    done 3>&1 >"$1"
    printf '\r\033[K'
}

# Configures, once, and builds a preset; what the build says is shown only when it fails.
build_preset() {
    local log
    log=$(mktemp)
    echo "Building (preset $1)"
    if ! { cmake --preset "$@" && cmake --build --preset "$1"; } 2>&1 | show_progress "$log"; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}
