# The Debian packages the project needs; the scripts read this file.
build_packages=(g++ cmake ninja-build qt6-base-dev qt6-base-dev-tools libgl1-mesa-dev libxcb1-dev pkg-config)
display_packages=(python3 xvfb xauth openbox xdotool x11-utils imagemagick fonts-dejavu-core)
check_packages=(clang-format clang-tidy)
fuzz_packages=(clang libclang-rt-14-dev)
wine_packages=(wine wine64)
windows_packages=(g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
    mingw-w64-x86-64-dev mingw-w64-tools dpkg-dev xz-utils nsis zip fonts-liberation)
icon_packages=(librsvg2-bin icoutils)
