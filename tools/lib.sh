# Shared by the scripts of this folder; sourced, never run. Says where things are and how Wine is started.
# shellcheck shell=bash disable=SC2034

root=$(cd -P -- "${BASH_SOURCE[0]%/*}/.." && pwd)
build=$root/build
wine32=$build/wine32
wine64=/usr/lib/wine

say()
{
    printf '%s: %s\n' "${0##*/}" "$*" >&2
}

# The head comment of the script that was started, without the marks.
help()
{
    sed -n '2,/^[^#]/ { s/^# \{0,1\}//p }' "$0"
}

# Started through sudo in a user's own checkout. What is built belongs to this user then, who needs it later; and Wine
# takes no prefix that is another user's.
through_sudo()
{
    ((EUID == 0)) && [[ ${SUDO_UID:-0} != 0 && $(stat -c %u "$root") == "$SUDO_UID" ]]
}

# hand_over COMMAND...: goes on as this user.
hand_over()
{
    chown -R "$SUDO_UID:$SUDO_GID" "$build"
    exec sudo -u "#$SUDO_UID" -- "$@"
}

# wine_for PREFIX: sets the arrays `wine` and `wineserver` and the environment for one prefix: x64, x64-screen or x86
# below build/prefix, or the same with ".part" behind it while it is being made.
wine_for()
{
    export WINEPREFIX=$build/prefix/$1
    export HOME=$build/home # Wine makes Desktop and Documents links into $HOME
    export WINEDEBUG=${WINEDEBUG--all}
    # No .NET and HTML engines are wanted, and a crashed program has to end, not to wait for a debugger.
    export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:+$WINEDLLOVERRIDES;}mscoree,mshtml=;winedbg.exe=d"
    # Without any locale Wine takes file names and arguments for ASCII.
    [[ -n ${LC_ALL:-}${LC_CTYPE:-}${LANG:-} ]] || export LC_CTYPE=C.UTF-8
    [[ $1 == *-screen* ]] || unset DISPLAY WAYLAND_DISPLAY
    if [[ $1 == x86* ]]; then
        export WINEARCH=win32 WINELOADERNOEXEC=1
        export LD_LIBRARY_PATH=$wine32/lib/i386-linux-gnu:$wine32/usr/lib/i386-linux-gnu
        wine=("$wine32/usr/lib/wine/ld32" "$wine32/usr/lib/wine/wine.bin")
        wineserver=("$wine32/usr/lib/wine/wineserver")
    else
        export WINEARCH=win64 WINELOADER=$wine64/wine64
        wine=("$wine64/wine64")
        wineserver=("$wine64/wineserver64")
    fi
}

# What tools/setup makes bears the number of the recipe as its last step: a change of the recipe makes it anew.
wine32_recipe=1
prefix_recipe=1

made_by()
{
    local recipe=
    { read -r recipe <"$2/.recipe"; } 2>/dev/null || true
    [[ $recipe == "$1" ]]
}

wine32_ready()
{
    made_by "$wine32_recipe" "$wine32"
}

# prefix_ready PREFIX: true when it can be used.
prefix_ready()
{
    made_by "$prefix_recipe" "$build/prefix/$1" && { [[ $1 != x86 ]] || wine32_ready; }
}
