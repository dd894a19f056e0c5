#!/bin/sh
# spare_root.sh COMMAND...: runs a command as root on a temporary copy of /usr, /etc and /var. If the
# system does not permit such a copy, as in most containers, the command runs on the machine itself.
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
    # An installed vrktrk is removed from the copy only.
    purge='dpkg --purge vrktrk >"$SPARE/log" 2>&1'
    unshare --mount sh -c "$copy; $purge; exec \"\$@\"" sh "$@"
else
    "$@"
fi
