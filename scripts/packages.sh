# Installs the missing packages of a list, as root or with sudo. Sourced by ./run and ./test.

# install_missing_packages [LIST]: without a list, those of packages.txt.
install_missing_packages() {
    local wanted missing installed sudo=""
    wanted=$(sed 's/#.*//' "${1:-packages.txt}" | tr -s ' \n' ' ')
    installed=$(dpkg-query -W -f='${db:Status-Status} ${binary:Package}\n' 2>/dev/null |
        awk '$1 == "installed" { sub(/:.*/, "", $2); print $2 }')
    missing=""
    for package in $wanted; do
        grep -qx -- "$package" <<<"$installed" || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0

    echo "Installing:$missing"
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "These packages are missing. Run this as root, or install sudo." >&2; return 1; }
        sudo="sudo"
    fi
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    # shellcheck disable=SC2086
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends $missing >/dev/null
}
