# shellcheck shell=bash disable=SC2034  # the lists are for those who source this
# What the packages for Windows are made and tried with; in the form of scripts/setup.sh. Sourced, never run.

windows_build_needs=(
    'g++-mingw-w64-x86-64-posix|the MinGW-w64 compiler with POSIX threads|x86_64-w64-mingw32-g++-posix --version'
    'dpkg-dev|the tools that unpack Debian sources|dpkg-source --version'
    'g++|a C++17 compiler|c++ --version'
    'make|Make|make --version'
    'perl|Perl|perl --version'
    'python3|Python 3|python3 --version'
    'python3-debian|the Python library that reads copyright files|/usr/bin/python3 -c "import debian.copyright"'
    'git|Git|git --version'
    'lowdown|lowdown, which makes pages for a browser|command -v lowdown'
    'nsis|NSIS, which makes installers|makensis -VERSION'
)
windows_check_needs=(
    'wine|Wine|wine --version'
    'wine64|Wine for 64 bits|wine64 --version'
    'xvfb|Xvfb, the virtual X server|command -v Xvfb'
    'openbox|Openbox, the window manager|command -v openbox'
    'xdotool|xdotool|command -v xdotool'
    'imagemagick|ImageMagick with its X11 tools|command -v import'
)
