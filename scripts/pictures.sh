#!/usr/bin/env bash
# Makes the pictures of the documents anew: runs the end-to-end tests that go through every window
# on an X display, and takes what they kept to docs/images. Look at them before committing.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh test
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
cmake --preset dev
cmake --build --preset dev --target UiWindowsTest

kept=build/dev/pictures/guide
rm -rf "$kept"
# In CI a test that cannot run fails; so none of the pictures is missed here either.
CI=true QT_QPA_PLATFORM=xcb TZ=UTC LC_ALL=C ASAN_OPTIONS=detect_leaks=0 \
    xvfb-run -a -s "-screen 0 1280x1024x24" \
    build/dev/tests/bin/UiWindowsTest --gtest_filter='GuidePictures.*'
CI=true QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=2 TZ=UTC LC_ALL=C ASAN_OPTIONS=detect_leaks=0 \
    xvfb-run -a -s "-screen 0 2560x2048x24" \
    build/dev/tests/bin/UiWindowsTest --gtest_filter='GuidePictures.Baltic*'
rm "$kept"/map_100.png
cp "$kept"/*.png docs/images/
ls -l docs/images
