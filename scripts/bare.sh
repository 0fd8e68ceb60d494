# SPDX-License-Identifier: MIT
# A bare Debian: a folder with what every Debian of a release has and nothing else, to be entered by
# root. Sourced by scripts that want bash and "set -euo pipefail"; they call clean_up_bare when they
# end.

# own_mounts SCRIPT ARGUMENT...: starts the script once more, so that what it mounts is seen by it
# alone and gone with it.
own_mounts() {
    [ "$(id -u)" = 0 ] || {
        echo "${1##*/}: a bare Debian can be made and entered by root only" >&2
        exit 1
    }
    [ -n "${TAVREL_OWN_MOUNTS:-}" ] ||
        TAVREL_OWN_MOUNTS=yes exec unshare --mount --propagation private "$@"
    unset TAVREL_OWN_MOUNTS
}

mounted=()
clean_up_bare() {
    local place
    for place in "${mounted[@]}"; do umount -l "$place"; done
}

# mount_there PLACE MOUNT_OPTIONS...: at that place of the bare Debian.
mount_there() {
    mkdir -p "$root$1"
    mount "${@:2}" "$root$1"
    mounted=("$root$1" "${mounted[@]}")
}

# make_root FOLDER RELEASE: a new bare Debian in FOLDER/root, which "root" names from now on. It is
# fetched from the archive once and kept in FOLDER/bare, its packages in FOLDER/archives.
make_root() {
    local folder=$1 release=$2 bare=$1/bare
    root=$folder/root
    if [ ! -e "$bare/.complete" ]; then
        echo "Fetching a bare Debian $release"
        rm -rf --one-file-system "$bare"
        mkdir -p "$folder"
        debootstrap --variant=minbase "$release" "$bare" >"$folder/bare.log" ||
            { cat "$folder/bare.log" >&2; return 1; }
        touch "$bare/.complete"
    fi
    rm -rf --one-file-system "$root"
    cp -a "$bare" "$root"
    # A file system of its own in name, as whoever mounts something inside expects.
    mount --bind "$root" "$root"
    mounted=("$root" "${mounted[@]}")
    mkdir -p "$folder/archives/partial"
    mount_there /proc -t proc proc
    mount_there /dev --rbind /dev
    mount_there /var/cache/apt/archives --bind "$folder/archives"
    cp -L /etc/resolv.conf "$root/etc/"
    cp -L /etc/hosts "$root/etc/"
}

# in_root COMMAND...: as root, with no more than the bare system's own environment.
in_root() {
    chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root \
        DEBIAN_FRONTEND=noninteractive "$@"
}
