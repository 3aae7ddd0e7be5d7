# A virtual display that only this user can reach, and a VNC server with a password. Sourced by ./run.

# Exports DISPLAY and XAUTHORITY, and sets vnc_port and vnc_password. Both servers end with the shell.
# The cookie protects the display from other users of this machine, the password protects the VNC server.
open_virtual_display() {
    private=$(mktemp -d)
    screen=
    trap 'kill $screen 2>/dev/null || true; rm -rf "$private"' EXIT
    local cookie number
    cookie=$(od -An -N16 -tx1 /dev/urandom | tr -d ' \n')
    vnc_password=$(head -c 5 /dev/urandom | base32 | tr '[:upper:]' '[:lower:]')
    (umask 077 && touch "$private/cookie" "$private/number" && echo "$vnc_password" >"$private/password")
    export XAUTHORITY="$private/cookie"

    # The server chooses its display number. It accepts every cookie in the file, for any display.
    xauth -q add :0 . "$cookie"
    Xvfb -displayfd 3 -auth "$XAUTHORITY" -screen 0 1600x900x24 -nolisten tcp 3>"$private/number" >/dev/null 2>&1 &
    screen=$!
    for _ in $(seq 100); do [ -s "$private/number" ] && break; sleep 0.1; done
    number=$(cat "$private/number")
    [ -n "$number" ] || { echo "The virtual display did not start." >&2; return 1; }
    export DISPLAY=":$number"
    xauth -q add "$DISPLAY" . "$cookie"

    vnc_port=$((5950 + number)) # ports from 5900 on belong to real screens
    x11vnc -display "$DISPLAY" -auth "$XAUTHORITY" -localhost -rfbport "$vnc_port" -passwdfile "$private/password" \
        -forever -shared -quiet >/dev/null 2>&1 &
    screen="$screen $!"
}
