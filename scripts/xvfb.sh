# Sourced: start_xvfb starts an X server of its own on a free display and sets DISPLAY and XVFB_PID.
start_xvfb() {
    local answer
    answer=$(mktemp)
    Xvfb -displayfd 5 -screen 0 1366x768x24 -nolisten tcp -noreset 5>"$answer" 2>/dev/null &
    XVFB_PID=$!
    for _ in $(seq 100); do
        [ -s "$answer" ] && break
        sleep 0.1
    done
    DISPLAY=:$(cat "$answer")
    export DISPLAY
    rm -f "$answer"
}

# wait_for_window PID: until the process shows a window, ten seconds at most.
wait_for_window() {
    for _ in $(seq 100); do
        xdotool search --onlyvisible --pid "$1" >/dev/null 2>&1 && return 0
        kill -0 "$1" 2>/dev/null || return 1
        sleep 0.1
    done
    return 1
}
