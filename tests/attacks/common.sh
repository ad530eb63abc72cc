# What the attacks share. Read by each of them; $program is the program, HOME a folder of its own.
settings=$HOME/.config/Brovin/Brovin.conf
log=$HOME/.local/share/brovin/deletions.log
broken=0
tell() { echo "$*"; broken=1; }

# A home with settings, a log and three things to delete.
fresh_home() {
    chmod -R u+w "$HOME"; rm -rf "${HOME:?}"/Share "$HOME"/.config "$HOME"/.local
    mkdir -p -m 700 "$HOME"/Share/sub "$HOME"/.config/Brovin "$HOME"/.local/share/brovin
    touch "$HOME"/Share/._{a,b} "$HOME"/Share/sub/._c "$HOME"/Share/keep
    printf '[Settings]\nUser=Joe\nLog=1\nDotDash=1\nTotalNuked=7\n[filelist.txt]\nNumber=1\nEntry1=none\n[foldlist.txt]\nNumber=1\nEntry1=%s\nPath1=%s\n' \
        "${HOME,,}/share" "$HOME/Share" >"$settings"
    printf 'before\r\n' >"$log"
}
scan() { "$program" --scan; }

# What holds however a scan ended: settings that are whole, lines of the log that are whole, nothing lost that should stay.
check_home() {
    grep -qx 'User=Joe' "$settings" || tell "$1: settings are lost"
    grep -qE '^TotalNuked=(7|8|9|10)$' "$settings" || tell "$1: the total is $(grep TotalNuked "$settings")"
    [ "$(head -n 1 "$log")" = $'before\r' ] || tell "$1: the log has lost what it held"
    [ -e "$HOME/Share/keep" ] || tell "$1: something else is gone"
}
# The next scan cleans up: nothing is left over, and it says that all is well.
check_next() {
    scan >"$HOME/said" 2>&1 || tell "$1: the next scan ends with $?: $(cat "$HOME/said")"
    [ -z "$(find "$HOME/Share" -name '._*')" ] || tell "$1: clutter is left"
    [ -z "$(find "$HOME/.config" "$HOME/.local" -name '*.new')" ] || tell "$1: litter is left"
    grep -vqP '\r$' "$log" && tell "$1: a line of the log is torn"
    grep -qx 'User=Joe' "$settings" || tell "$1: settings are lost afterwards"
}

# Every system call of a command that can change something, as its name and the how-manieth of that name it is in its
# thread, as strace counts them to kill, from the one on that first speaks of $1. What another thread does under a name
# and number that were there before is left out: the first to come to them is killed.
calls=openat,write,pwrite64,fsync,fdatasync,rename,unlink,unlinkat,mkdir,flock,ftruncate,fchmod,chmod,close,fcntl
calls_of() {
    local from=$1; shift
    command -v strace >/dev/null || { echo "strace is missing"; exit 1; }
    strace -f -qq -o "$TMPDIR/trace" -e trace="$calls" "$@" >/dev/null 2>&1
    awk '{ thread = $1; sub(/^[0-9]+ +/, ""); sub(/\(.*/, ""); call = $0 " " ++n[thread, $0]; print seen[call]++ ? "+" : call }' \
        "$TMPDIR/trace" | tail -n +"$(grep -n "$from" "$TMPDIR/trace" | head -n 1 | cut -d: -f1)" | grep -v '[+<]'
}
# Runs a command and kills it in front of the how-manieth call of a name. False: it came to its end before.
killed_at() {
    local call=$1 when=$2; shift 2
    { strace -f -qq -o /dev/null -e trace="$call" -e inject="$call":signal=KILL:when="$when" "$@" >/dev/null; } 2>/dev/null
    [ $? -ne 0 ]
}
