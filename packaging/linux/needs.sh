# shellcheck shell=bash disable=SC2034  # the lists are for those who source this
# What the package for Debian is made and tried with; in the form of scripts/setup.sh. Sourced, never run.

# Beside what the program itself is built with.
linux_build_needs=(
    'dpkg-dev|the tools that make Debian packages|dpkg-shlibdeps --version'
    'file|file|file --version'
    'git|Git|git --version'
    'lowdown|lowdown, which makes pages for a browser|command -v lowdown'
    'binutils|objdump|objdump --version'
    'python3-debian|the Python library that reads copyright files|/usr/bin/python3 -c "import debian.copyright"'
)
# Small ones: ./check installs them too.
linux_validate_needs=(
    'desktop-file-utils|desktop-file-validate|command -v desktop-file-validate'
    'appstream|AppStream|appstreamcli --version'
    'shared-mime-info|the database of MIME types|command -v update-mime-database'
    'groff-base|groff|groff --version'
    'librsvg2-bin|rsvg-convert|rsvg-convert --version'
    'imagemagick|ImageMagick|command -v compare'
    'lowdown|lowdown, which makes pages for a browser|command -v lowdown'
)
linux_check_needs=(
    'lintian|lintian|lintian --version'
    'reprotest|reprotest|reprotest --version'
    'piuparts|piuparts|command -v piuparts'
    'xvfb|Xvfb, the virtual X server|command -v Xvfb'
    'xdotool|xdotool|command -v xdotool'
    'imagemagick|ImageMagick with its X11 tools|command -v import'
    'libglib2.0-bin|gio|command -v gio'
)
