#!/bin/sh
# Configures the build for a Mac where there is none, with this system's clang in the place of Apple's, and looks
# whether everything that is to be built there can be planned. Nothing is compiled.
#
#   configure.sh <cmake> <clang++> <source folder> <CMake's folder of GoogleTest>
set -eu
cmake=$1 clang=$2 root=$3 googleTest=$4
scratch=$(mktemp -d) || exit 1
trap 'rm -rf "$scratch"' EXIT

# What CMake asks on a Mac.
mkdir "$scratch/tools" "$scratch/sdk"
for tool in xcrun sw_vers codesign install_name_tool otool; do
  printf '#!/bin/sh\n' >"$scratch/tools/$tool"
  chmod +x "$scratch/tools/$tool"
done
PATH=$scratch/tools:$PATH

"$cmake" -S "$root" -B "$scratch/build" -G Ninja -DCMAKE_SYSTEM_NAME=Darwin -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_CXX_COMPILER="$clang" -DCMAKE_CXX_COMPILER_WORKS=1 \
  -DCMAKE_OBJCXX_COMPILER="$clang" -DCMAKE_OBJCXX_COMPILER_WORKS=1 \
  -DCMAKE_OSX_SYSROOT="$scratch/sdk" -DCMAKE_INSTALL_NAME_TOOL="$scratch/tools/install_name_tool" \
  -DGTest_DIR="$googleTest" >"$scratch/log" 2>&1 || { cat "$scratch/log"; exit 1; }
ninja -C "$scratch/build" -t commands all >"$scratch/plan" 2>&1 || { cat "$scratch/plan"; exit 1; }
for part in Quorvane.app/Contents/MacOS/Quorvane QuorvaneProHelper.app/Contents/MacOS/QuorvaneProHelper \
  Resources/Quorvane.icns Resources/zh-Hant.lproj/Localizable.strings Resources/en.lproj/Localizable.strings \
  Resources/help/index.html bin/quorvane_tests bin/quorvane_macos_native_tests LoginItems/QuorvaneProHelper.app \
  codesign; do
  grep -qF "$part" "$scratch/plan" || { echo "not planned: $part"; exit 1; }
done
grep -q -- '-arch arm64 -arch x86_64' "$scratch/build/build.ninja" || { echo "not for both processors"; exit 1; }
if grep -q macos/declarations "$scratch/build/build.ninja"; then
  echo "the declarations stand in the way of the SDK"
  exit 1
fi
