# shellcheck shell=sh
# Functions shared by the scripts for desktops. The scripts and this file are installed next to VrkTrk.
# Each script first sets `here` to its own folder.
unset CDPATH
vrk3=$here/../../bin/vrk3

# text ENGLISH: prints a message in the user's language.
text() {
    TEXTDOMAINDIR=$here/../../share/locale gettext vrktrk "$1" 2>/dev/null || printf '%s' "$1"
}

# notify SUMMARY BODY: shows a notification if the desktop can. Only the body may contain markup, so
# only the body is escaped. A menu has no options, so advice to use one is left out. It does not wait,
# because a desktop without notifications can take long to refuse one.
notify() {
    body=$(printf '%s' "$2" | sed 's/^vrk3: //; s/ (use --[^)]*)//; s/ (see --[^)]*)//; s/&/\&amp;/g; s/</\&lt;/g; s/>/\&gt;/g')
    notify-send --app-name=VrkTrk --icon=vrktrk -- "$1" "$body" >/dev/null 2>&1 &
}

# keep_default: makes the window the default for archives unless the user has chosen a default. Some file
# managers, such as Thunar, otherwise make the program that was used last the default, and then a double
# click repeats the action.
keep_default() {
    if awk '/^\[/ { section = $0 }
            /^application\/x-vrk3=/ && section == "[Default Applications]" { chosen = 1 }
            /^application\/x-vrk3=vrktrk\.[a-z]+-track\./ { used = 1 }
            END { exit chosen || !used }' "${XDG_CONFIG_HOME:-$HOME/.config}/mimeapps.list" 2>/dev/null; then
        xdg-mime default vrktrk.desktop application/x-vrk3
    fi
}

# choose_archive: asks for an archive and prints its name; prints nothing on Cancel.
choose_archive() {
    if command -v kdialog >/dev/null; then
        kdialog --getopenfilename "$HOME" '*.vrk3'
    else
        zenity --file-selection --file-filter='*.vrk3'
    fi 2>/dev/null
}

# run_vrk3 ARCHIVE ARGUMENT...: runs vrk3 in the archive's folder and prints its messages, which then
# contain short names. It changes the current folder, so call it in a subshell.
run_vrk3() {
    cd -- "$(dirname -- "$1")" || return
    name=$(basename -- "$1")
    shift
    "$vrk3" "$@" -- "$name" 2>&1
}
