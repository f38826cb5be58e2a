# shellcheck shell=bash disable=SC2034,SC2154  # what is set here or elsewhere is for those who source this
# A scratch Debian, or Ubuntu on Ubuntu. A bare one is kept; a copy of it is made, used and thrown away.
# Sourced after scripts/setup.sh, never run. Who sources it has set $scratch to a folder of its own, and calls end_root
# on leaving.

roots_needs=('debootstrap|debootstrap|command -v debootstrap')

roots_cache=${XDG_CACHE_HOME:-$HOME/.cache}/zarvex
root=$scratch/root

# in_root COMMAND...: runs it as root in the scratch Debian.
in_root() {
    as_root chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

distribution() { (source /etc/os-release && echo "$ID"); }

# mirror: where this machine gets its packages from.
mirror() {
    apt-get indextargets --format '$(ORIGIN) $(LABEL) $(COMPONENT) $(REPO_URI)' 'Created-By: Packages' |
        awk -v name="$(distribution)" 'tolower($1 " " $2 " " $3) == name " " name " main" { print $4 }' | tail -n 1
}

# make_bare_root CODENAME FILE: a Debian with its essential packages and apt, as an archive.
make_bare_root() {
    local url
    url=$(mirror)
    if [[ -z $url ]]; then # apt knows it once it has its lists
        quietly as_root apt-get update
        url=$(mirror)
    fi
    [[ -n $url ]] || stop "Found no source of packages in the settings of apt."
    quietly as_root env ${http_proxy:+http_proxy="$http_proxy"} \
        debootstrap --variant=minbase "$1" "$scratch/bare" "$url"
    as_root rm -rf -- "$scratch"/bare/var/{cache/apt/archives,lib/apt/lists}
    mkdir -p -- "$roots_cache"
    as_root tar --create --numeric-owner --directory "$scratch/bare" . >"$2.part"
    mv -- "$2.part" "$2"
    as_root rm -rf --one-file-system -- "$scratch/bare"
}

# start_root CODENAME: makes $root a bare Debian of that release. What apt fetches in it is kept for the next.
start_root() {
    local archive packages
    archive=$roots_cache/$(distribution)-$1-$(dpkg --print-architecture).tar
    packages=${archive%.tar}-packages
    eval "$(apt-config shell http_proxy Acquire::http::Proxy)"
    if [[ ! -e $archive ]]; then
        say "Making a bare Debian ($1); this is kept"
        make_bare_root "$1" "$archive"
    fi
    say "Unpacking a bare Debian ($1)"
    mkdir -p -- "$root"
    as_root tar --extract --preserve-permissions --numeric-owner --directory "$root" --file "$archive"
    as_root cp -- /etc/resolv.conf /etc/hosts "$root/etc/"
    if [[ -n ${http_proxy:-} ]]; then
        echo "Acquire::http::Proxy \"$http_proxy\";" | as_root tee "$root/etc/apt/apt.conf.d/proxy" >/dev/null
    fi
    echo force-unsafe-io | as_root tee "$root/etc/dpkg/dpkg.cfg.d/scratch" >/dev/null
    as_root mkdir -p -- "$root/var/cache/apt/archives" "$packages"
    as_root mount --bind "$packages" "$root/var/cache/apt/archives"
    as_root mount -t proc proc "$root/proc"
}

# end_root: throws the scratch Debian away, with what else lies in $scratch.
end_root() {
    local place
    for place in "$root/tmp/.X11-unix" "$root/proc" "$root/var/cache/apt/archives"; do
        if mountpoint --quiet "$place"; then
            as_root umount --lazy "$place" # nothing of it may be there below, busy or not
        fi
    done
    as_root rm -rf --one-file-system -- "$scratch"
}
