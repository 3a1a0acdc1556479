# What the scripts at the root share. Sourced with `top` set to the root of the checkout.

say()
{
    echo "$(basename "$0"): $*" >&2
}

as_root()
{
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo > /dev/null; then
        sudo "$@"
    else
        return 1
    fi
}

# The packages of the named sections of packages.txt that are not installed.
missing_packages()
{
    local section name
    for section in "$@"; do
        sed -n "/^\[$section\]/,/^\[/p" "$top/packages.txt" | grep -v '^\[' | sed 's/#.*//'
    done | sort -u | while read -r name; do
        [ -z "$name" ] || dpkg-query -W -f='${db:Status-Abbrev}' "$name" 2> /dev/null | grep -q '^ii' || echo "$name"
    done
}

install_packages()
{
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@" >&2
}

# Installs what the named sections lack; the lists of packages are fetched only when they are too old to do without.
need_packages()
{
    local missing
    missing=$(missing_packages "$@" | tr '\n' ' ')
    [ -n "$missing" ] || return 0
    say "installing $missing"
    # shellcheck disable=SC2086
    if ! install_packages $missing && ! { as_root apt-get update >&2 && install_packages $missing; }; then
        say "cannot install the packages that are missing: $missing"
        exit 1
    fi
}

# build PRESET [OPTION of the build]...
build()
{
    local preset=$1
    shift
    (cd "$top" && cmake --preset "$preset" > "$top/build/$preset.log" 2>&1) || {
        cat "$top/build/$preset.log" >&2
        exit 1
    }
    cmake --build "$top/build/$preset" "$@" >&2 || exit 1
}

# Starts an X server of our own on a free display and ends it with the script.
start_display()
{
    local answer
    answer=$(mktemp)
    # It stays as it is when a program leaves it, or the next one could come while it starts anew.
    # A file and no pipe: the server would hold a pipe's writing end open for ever.
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3> "$answer" 2> /dev/null &
    display_server=$!
    trap 'kill "$display_server" 2> /dev/null || true' EXIT
    local tries=0
    until [ -s "$answer" ]; do
        tries=$((tries + 1))
        if [ "$tries" -gt 100 ] || ! kill -0 "$display_server" 2> /dev/null; then
            say "Xvfb does not start"
            exit 1
        fi
        sleep 0.1
    done
    DISPLAY=:$(cat "$answer")
    rm -f "$answer"
    export DISPLAY
}

mkdir -p "$top/build"
