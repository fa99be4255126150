#!/bin/sh
# Whether the bundle is complete, signed as it is, and made for both processors.
#
#   check-bundle.sh <Quorvane.app>
set -eu
app=$1
helper=$app/Contents/Library/LoginItems/QuorvaneProHelper.app

for file in Info.plist MacOS/Quorvane Resources/Quorvane.icns Resources/menuBarIcon.png \
  Resources/menuBarIcon@2x.png; do
  test -s "$app/Contents/$file" || { echo "missing: $file"; exit 1; }
done
for language in en de es fr ja ko ru zh-Hans zh-Hant; do
  plutil -lint "$app/Contents/Resources/$language.lproj/Localizable.strings"
done
plutil -lint "$app/Contents/Info.plist" "$helper/Contents/Info.plist"
for program in "$app/Contents/MacOS/Quorvane" "$helper/Contents/MacOS/QuorvaneProHelper"; do
  lipo "$program" -verify_arch arm64 x86_64 || { echo "$program is made for $(lipo -archs "$program")"; exit 1; }
done
codesign --verify --strict --verbose=2 "$helper"
codesign --verify --deep --strict --verbose=2 "$app"
