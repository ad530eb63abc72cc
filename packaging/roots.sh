# SPDX-FileCopyrightText: 2026 The Brovin contributors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Throw-away roots of a system, with a user and a share full of clutter, for what is read by packaging/test and its like.

in_root() { chroot "$1" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C "${@:2}"; }
# As somebody with an account and nothing else.
as_user() {
    chroot --userspec=tester:tester "$1" env -i HOME=/home/tester USER=tester PATH=/usr/bin:/bin LANG=C.UTF-8 \
        XDG_RUNTIME_DIR=/tmp/session ${DISPLAY:+DISPLAY="$DISPLAY" QT_QPA_PLATFORM=xcb} "${@:2}"
}
# fresh_root ROOT FOLDER: a copy of $base; FOLDER is its /mnt.
fresh_root() {
    cp -a --reflink=auto "$base" "$1"
    mount -t proc proc "$1/proc"
    echo force-unsafe-io >"$1/etc/dpkg/dpkg.cfg.d/scratch" # nothing of it is to outlive a power failure
    mount --bind /dev "$1/dev"
    mount --bind -o ro "$2" "$1/mnt"
    printf '#!/bin/sh\nexit 101\n' >"$1/usr/sbin/policy-rc.d" # no service starts in a root
    chmod 755 "$1/usr/sbin/policy-rc.d"
    in_root "$1" apt-get -qq update
    in_root "$1" useradd -m -s /bin/bash tester
    in_root "$1" install -d -m 700 -o tester /tmp/session
    mkdir -p "$1/srv/share/Photos"
    for file in Thumbs.db .DS_Store ._beach.jpg beach.jpg; do echo "$file" >"$1/srv/share/Photos/$file"; done
    in_root "$1" chown -R tester:tester /srv/share
}

clutter_is_gone() {
    local left
    left=$(cd "$1/srv/share" && find . -type f | sort | xargs)
    [ "$left" = ./Photos/beach.jpg ]
}

wait_for() { # SECONDS COMMAND...
    local end=$((SECONDS + $1))
    until "${@:2}" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.3
    done
}
# The windows that can be seen, by a text in their titles; characters have the name of their file's creature.
window() { xdotool search --onlyvisible --name "$1" | head -n 1 | grep .; }

