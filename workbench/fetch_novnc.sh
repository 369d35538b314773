#!/usr/bin/env bash
# Puts noVNC's static files into a folder: the installed ones, or those of Debian's package, of which
# nothing else is needed. Without them the workbench still serves VNC viewers.
set -uo pipefail
target=$1
[ -f "$target/core/rfb.js" ] && exit 0
mkdir -p "$target"
if [ -f /usr/share/novnc/core/rfb.js ]; then
    cp -rL /usr/share/novnc/. "$target/"
    exit 0
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# apt's own user may not write here, which it only remarks upon.
if (cd "$work" && apt-get download novnc >apt.log 2>&1 && dpkg-deb -x novnc_*.deb files); then
    cp -r "$work/files/usr/share/novnc/." "$target/"
else
    echo "noVNC could not be fetched: there will be no browser page, only VNC." >&2
fi
exit 0
