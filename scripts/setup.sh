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
layers_needs=('graphviz|Graphviz|dot -V')
plan_needs=('python3|Python 3.9 or later|python3 --version')
coverage_needs=('gcovr|gcovr|gcovr --version')
fuzz_needs=(
    'python3|Python 3.9 or later|python3 --version'
    'clang|Clang 14 or later|clang++ --version'
    'libclang-rt-dev|libFuzzer, of Clang|ls "$(clang++ -print-resource-dir)"/lib/*/libclang_rt.fuzzer*'
)

# Tools that judge otherwise from version to version: command | the version that decides | what it judges
judges=(
    'clang-format|14|the format of the code'
    'clang-tidy|14|what a linter has against the code'
    'black|23.1|the format of the Python code'
    'pyflakes3|2.5|what is suspicious in the Python code'
    'shellcheck|0.9|what is suspicious in the shell scripts'
    'appstreamcli|0.16|what software centres read'
    'groff|1.22|the manual page'
    'rsvg-convert|2.54|whether the icons look like their drawings'
    'lintian|2.116|the policy of Debian'
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

as_root() {
    if ((EUID == 0)); then
        "$@"
    else
        sudo "$@"
    fi
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

    ((EUID == 0)) || command -v sudo >/dev/null || stop "Please install these packages first: ${packages[*]}"
    say "Installing: ${packages[*]}"
    quietly as_root apt-get update
    quietly as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${packages[@]}"
}

# judge TOOL: prints the command that runs the tool in the version that decides; fails where that is not installed.
judge() {
    local entry tool version command pattern
    for entry in "${judges[@]}"; do
        IFS='|' read -r tool version _ <<<"$entry"
        [[ $tool == "$1" ]] || continue
        pattern="(^|version:? |Lintian |black, )v?${version/./[.]}[.]"
        for command in "$tool-$version" "$tool"; do
            if [[ $(LC_ALL=C "$command" --version 2>&1) =~ $pattern ]]; then
                echo "$command"
                return
            fi
        done
    done
    return 1
}

# pass_over TOOL: says what is not looked at here for want of the version that decides.
pass_over() {
    local entry tool version what
    for entry in "${judges[@]}"; do
        IFS='|' read -r tool version what <<<"$entry"
        if [[ $tool == "$1" ]]; then
            say "Passed over: $what; $tool $version decides, and this system does not have it."
        fi
    done
}

# install_judge TOOL: installs the version that decides, where the system's packages have it: with the number in the
# package's name, or as the only one.
install_judge() {
    local version package candidate
    version=$(printf '%s\n' "${judges[@]}" | awk -F '|' -v tool="$1" '$1 == tool { print $2 }')
    if judge "$1" >/dev/null || ! command -v apt-cache >/dev/null; then
        return
    fi
    if [[ -z $(apt-cache madison apt) ]]; then # this system has no lists of packages yet
        quietly as_root apt-get update
    fi
    for package in "$1-$version" "$1"; do
        candidate=$(LC_ALL=C apt-cache policy "$package" | awk '$1 == "Candidate:" { print $2 }')
        if [[ ${candidate#*:} == "$version".* ]]; then
            install_missing "$package|$package|false"
            return
        fi
    done
}

# cores: how many this process may use.
cores() { nproc 2>/dev/null || getconf _NPROCESSORS_ONLN; }

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

# run_tests PRESET [OPTION...]: one more beside each other than the machine has cores, for those with a mouse and a
# keyboard mostly wait; the options are CTest's.
run_tests() {
    local preset=$1
    shift
    ctest --preset "$preset" --parallel $(($(cores) + 1)) "$@"
}
