# shellcheck shell=bash disable=SC2034  # the lists are for those who source this
# What ./run, ./check, bench/run and fuzz/run share: the list of needs, and how a stage is told and run.
# Sourced, never run.

# One need a line: Debian and Ubuntu package | what it is, in words | a test for systems without these packages
build_needs=(
    'g++|a C++17 compiler|c++ --version'
    'cmake|CMake 3.22 or later|cmake --version'
    'ninja-build|Ninja|ninja --version'
    'qtbase5-dev|Qt 5.15 with its development files|pkg-config --exists Qt5Widgets Qt5Xml Qt5Test'
    'libxcb1-dev|the development files of XCB, on Linux|[[ $(uname) != Linux ]] || pkg-config --exists xcb'
    'libxcb-randr0-dev|the development files of XCB for RandR, on Linux|[[ $(uname) != Linux ]] || pkg-config --exists xcb-randr'
    'fonts-liberation|the Liberation fonts, or Arial|fc-list : family | grep -e Liberation -e Arial'
)
tour_needs=(
    'xvfb|Xvfb, the virtual X server|command -v Xvfb'
    'openbox|Openbox, the window manager|command -v openbox'
    'xdotool|xdotool|command -v xdotool'
    'imagemagick|ImageMagick with its X11 tools|command -v import'
    'x11-xserver-utils|xrdb|command -v xrdb'
)
locale_needs=('locales|the sources of locales|localedef --version')
plan_needs=('python3|Python 3.9 or later|python3 --version')
format_needs=('clang-format|clang-format, at best version 14|clang-format --version')
coverage_needs=('gcovr|gcovr|gcovr --version')
lint_needs=('clang-tidy|clang-tidy, at best version 14|clang-tidy --version')
fuzz_needs=(
    'python3|Python 3.9 or later|python3 --version'
    'clang|Clang 14 or later|clang++ --version'
    'libclang-rt-dev|libFuzzer, of Clang|ls "$(clang++ -print-resource-dir)"/lib/*/libclang_rt.fuzzer*'
)

say() { printf '%s\n' "$*"; }

stop() {
    printf '%s\n' "$*" >&2
    exit 1
}

# quietly COMMAND...: runs it; what it prints is shown only where it fails.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 || status=$?
    if ((status)); then
        cat "$log" >&2
    fi
    rm -f "$log"
    return "$status"
}

is_installed() {
    [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

# install_missing NEED...: installs the needs that the machine lacks, or names them and stops.
install_missing() {
    local need package words test packages=() wishes=()
    for need in "$@"; do
        IFS='|' read -r package words test <<<"$need"
        if command -v apt-get >/dev/null && command -v dpkg-query >/dev/null; then
            is_installed "$package" || packages+=("$package")
        else
            (eval "$test") >/dev/null 2>&1 || wishes+=("$words")
        fi
    done

    if ((${#wishes[@]})); then
        stop "Please install these first:$(printf '\n  - %s' "${wishes[@]}")"
    fi
    if ((${#packages[@]} == 0)); then
        return
    fi

    local as_root=()
    if ((EUID != 0)); then
        command -v sudo >/dev/null || stop "Please install these packages first: ${packages[*]}"
        as_root=(sudo)
    fi
    say "Installing: ${packages[*]}"
    quietly "${as_root[@]}" apt-get update
    quietly "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${packages[@]}"
}

# build PRESET [TARGET...]: configures and builds; on a terminal Ninja's line of progress is seen.
build() {
    local preset=$1
    shift
    say "Configuring ($preset)"
    quietly cmake --preset "$preset"
    say "Building ($preset)"
    local command=(cmake --build --preset "$preset")
    if (($#)); then
        command+=(--target "$@")
    fi
    if [[ -t 1 ]]; then
        "${command[@]}"
    else
        quietly "${command[@]}"
    fi
}
