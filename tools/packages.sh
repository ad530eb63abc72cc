# What has to be installed, by task. Read by run and test.

packages_build=(
    cmake g++ ninja-build pkg-config
    libavcodec-dev libavformat-dev libcpp-httplib-dev libcurl4-openssl-dev libsodium-dev libsqlite3-dev libssl-dev libswscale-dev
    libespeak-ng-dev libicu-dev libpulse-dev libsimpleini-dev libxcb-shape0-dev libxcb-xfixes0-dev libxcb1-dev qt6-base-dev qt6-svg-dev
)
packages_run=(
    ca-certificates
    espeak-ng-data
    fonts-dejavu-core
    qt6-qpa-plugins qt6-translations-l10n
    xdg-utils
)
# A desktop without a screen, for the demonstration and the tests that click.
packages_virtual_desktop=(
    openbox picom trayer x11-utils x11-xserver-utils xdotool xvfb
)
# Further desktops, for tests/desktops/run.
packages_desktops=(
    faketime foot grim imagemagick lxqt-panel mutter polybar python3-dbus qt6-wayland sway tint2 weston wtype xwayland
)
packages_bench=(
    bfs curl fd-find findutils fuse3 libbenchmark-dev libfuse3-dev linux-perf
    nginx-light procps python3 wrk
)
packages_test=(
    appstream at-spi2-core curl dbus-daemon desktop-file-utils groff-base man-db python3-dbus
    clang clang-format clang-tidy libclang-rt-dev
    libgtest-dev openssl procps strace
    debhelper dpkg-dev lintian libxml2-utils
    pulseaudio pulseaudio-utils
    fish reuse systemd xsettingsd zsh
)
# What makes packages of it, and judges them.
packages_package=(
    appstream blhc build-essential debhelper debootstrap desktop-file-utils devscripts diffoscope-minimal dpkg-dev fakeroot
    librsvg2-bin lintian man-db patchelf reuse systemd xz-utils
)
