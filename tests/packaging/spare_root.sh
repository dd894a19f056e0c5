#!/bin/sh
# spare_root.sh COMMAND...: runs a command as root on a spare copy of the machine. What it changes
# below /usr, /etc and /var is gone when it ends. Where the system does not let us make such a copy,
# as in most containers, it runs on the machine itself.
[ "$(id -u)" = 0 ] || exec sudo -E "$0" "$@"

SPARE=$(mktemp -d)
export SPARE
trap 'rmdir "$SPARE"' EXIT
copy='mount -t tmpfs spare "$SPARE" &&
      for folder in usr etc var; do
          mkdir -p "$SPARE/$folder/changed" "$SPARE/$folder/work" &&
          mount -t overlay spare "/$folder" -o \
              "lowerdir=/$folder,upperdir=$SPARE/$folder/changed,workdir=$SPARE/$folder/work" || exit
      done'
if unshare --mount sh -c "$copy" 2>/dev/null; then
    # Only here it is nobody's loss.
    purge='dpkg --purge vrktrk >"$SPARE/log" 2>&1'
    unshare --mount sh -c "$copy; $purge; exec \"\$@\"" sh "$@"
else
    "$@"
fi
