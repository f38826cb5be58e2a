# shellcheck shell=bash disable=SC2034  # what is set here is for those who source this
# A desktop of its own, whatever the caller's desktop is: a virtual X server with a window manager.
# Sourced, never run. Who sources it has a function "fail COMPLAINT", and calls end_desktop on leaving.

patience=120 # seconds that a step may take, on a machine that does much else

scratch=$(mktemp -d)
home="$scratch/home"
server_id=
manager_id=
program_id=

# launch COMMAND... &: starts it on the desktop.
launch() {
    local passed=() name
    for name in LD_LIBRARY_PATH QT_PLUGIN_PATH QT_LOGGING_RULES QTEST_FUNCTION_TIMEOUT ASAN_OPTIONS LSAN_OPTIONS UBSAN_OPTIONS; do
        if [[ -n ${!name:-} ]]; then
            passed+=("$name=${!name}")
        fi
    done
    exec env -i PATH="$PATH" HOME="$home" XDG_RUNTIME_DIR="$scratch/run" LC_ALL=C.UTF-8 \
        DISPLAY="${DISPLAY:-}" QT_QPA_PLATFORM=xcb QT_XCB_GL_INTEGRATION=none "${passed[@]}" \
        "$@" </dev/null
}

# soon COMPLAINT COMMAND...: waits until the command succeeds.
soon() {
    local complaint=$1 end=$((SECONDS + patience))
    shift
    until "$@"; do
        if [[ -n $program_id ]] && ! kill -0 "$program_id" 2>/dev/null; then
            fail "The program has ended. $complaint"
        fi
        ((SECONDS < end)) || fail "$complaint"
        sleep 0.05
    done
}

# start_desktop LOGS [SIZE DPI]: the words of server and window manager go to that folder.
start_desktop() {
    mkdir -p "$home"
    [[ -d $scratch/run ]] || mkdir -m 700 "$scratch/run"
    : >"$scratch/display"
    launch Xvfb -displayfd 3 -screen 0 "${2:-1600x900}x24" -dpi "${3:-96}" -noreset 3>"$scratch/display" >"$1/server.log" 2>&1 &
    server_id=$!
    soon "Xvfb did not start." test -s "$scratch/display"
    DISPLAY=:$(cat "$scratch/display")
    export DISPLAY
    # A window that comes before Openbox has looked for windows is never shown.
    rm -f "$scratch/is_managed"
    launch openbox --startup "touch '$scratch/is_managed'" >"$1/manager.log" 2>&1 &
    manager_id=$!
    soon "Openbox did not start." test -e "$scratch/is_managed"
}

# end_programs: with server and window manager; another desktop can be started.
end_programs() {
    local id
    for id in $program_id $manager_id $server_id; do
        kill "$id" 2>/dev/null || true
        wait "$id" 2>/dev/null || true
    done
    program_id=
    manager_id=
    server_id=
}

end_desktop() {
    end_programs
    rm -rf -- "$scratch"
}
