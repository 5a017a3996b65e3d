#!/usr/bin/env bash
# The one list of Debian packages that Quillon needs, each with its reason, and their installation.
#
#   packages.sh GROUP...          installs what is missing of these groups: build run tests tour bench
#   packages.sh --list GROUP...   prints the list instead
#
# Prints nothing when nothing is missing. Needs root or sudo only when something is.
set -euo pipefail

packages() {
    cat <<'LIST'
build g++                 the compiler, C++20
build cmake               describes the build
build ninja-build         runs the build
build ccache              a rebuild after a change of branch takes seconds
build pkg-config          finds the libraries below
build qt6-base-dev        windows, drawing, files; QtTest for the tests
build qt6-svg-dev         icons that are crisp at every scale
build libavformat-dev     containers: WMA, AVI, Ogg, MP3
build libavcodec-dev      decoders, and the WMA encoder
build libswresample-dev   other sample rates and channel counts
build libavutil-dev       what the three above share
build libvorbis-dev       Ogg Vorbis encoder
build libogg-dev          the container of Ogg Vorbis
build libtag1-dev         tags
build libmp3lame-dev      header of the MP3 encoder
build libpulse-dev        sound in and out, volumes
run   libmp3lame0         the MP3 encoder, looked for while the program runs
run   fonts-open-sans     the font that the window is laid out with
tests sox                 makes sounds, and reads back what was saved
tests libsox-fmt-mp3      MP3 for sox
tests ffmpeg              reference decoder, and ffprobe as a witness
tests lame                makes MP3 files, and is the measure of ours
tests vorbis-tools        the same for Ogg Vorbis
tests espeak-ng           speech in the sounds to be cut
tests pulseaudio          a private sound server to play into and record from
tests pulseaudio-utils    looks at that server from outside
tour  xvfb                a virtual display
tour  ffmpeg              reads back the lengths of the files made
bench python3             medians and ratios
LIST
}

# Lines of the list that belong to one of the groups given.
listOf() { packages | awk -v groups=" $* " 'index(groups, " " $1 " ")'; }

# Names of these groups that are not installed.
missingOf() {
    local wanted installed name
    wanted=$(listOf "$@" | awk '!seen[$2]++ {print $2}')
    # A package that dpkg has never heard of is an error to it, and only missing to us.
    # shellcheck disable=SC2086
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null) || true
    for name in $wanted; do
        if [[ $'\n'$installed$'\n' != *$'\n'"installed $name"$'\n'* ]]; then echo "$name"; fi
    done
}

asRoot() {
    if [[ $EUID -eq 0 ]]; then "$@"; else sudo "$@"; fi
}

mayInstall() {
    if [[ $EUID -eq 0 ]] || command -v sudo >/dev/null; then return; fi
    echo "Neither root nor sudo. Run this as root, then try again:" >&2
    echo "    apt-get update && apt-get install --no-install-recommends $*" >&2
    exit 1
}

# --no-remove: a desktop whose own sound server excludes one of ours keeps its own, and we stop with apt's words.
install() {
    local names=("$@")
    echo "Installing ${#names[@]} Debian packages: ${names[*]}"
    mayInstall "${names[@]}"
    asRoot apt-get -qq -o DPkg::Lock::Timeout=300 update ||
        echo "The package lists could not be refreshed; going on with those that are there." >&2
    asRoot env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 \
        install -y --no-install-recommends --no-remove "${names[@]}"
    echo "Installed."
}

if [[ ${1:-} == --list ]]; then
    listOf "${@:2}"
    exit
fi
if ! command -v dpkg-query >/dev/null; then
    echo "No Debian packages on this system: going on with the libraries and programs that are there." >&2
    exit
fi
missing=$(missingOf "$@")
# shellcheck disable=SC2086
if [[ -n $missing ]]; then install $missing; fi
