#!/bin/sh
# Checks the types of the macOS desktop's sources, for both of its processors, where there is no SDK: with
# declarations of our own for Apple's interfaces and this system's headers for the standard library.
#
#   check.sh <clang++> <source folder> <folder of generated headers>
#
# Prints a line for each file.
set -u
clang=$1 root=$2 generated=$3
here=$root/tests/macos
declarations=$root/platform/macos/declarations
scratch=$(mktemp -d) || exit 1
trap 'rm -rf "$scratch"' EXIT

# Where this system's compiler looks for the standard library, in that order.
system=$("$clang" -E -v -x c++ /dev/null 2>&1 | sed -n '/^#include </,/^End of/s/^ \(\/.*\)/-isystem \1/p')

check() { # processor, file
  case $2 in
    *.mm) language="objective-c++ -fobjc-arc -fblocks" ;;
    *.h) language="objective-c++-header -fobjc-arc -fblocks" ;;
    *) language=c++ ;;
  esac
  # -U: the C library has a macro of the name that the compiler gives to a word of its own.
  # shellcheck disable=SC2086 # lists of options
  "$clang" -target "$1-apple-macosx11.0" -U__nonnull -D_GNU_SOURCE -nostdinc++ -nostdlibinc \
    -I"$declarations" -I"$root" -I"$root/tests" -I"$generated" -isystem "$declarations/libc" $system \
    -fsyntax-only -x $language -std=c++20 -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor \
    -Woverloaded-virtual -Wno-missing-field-initializers -Wunguarded-availability -Wnullable-to-nonnull-conversion \
    -Wnullability-completeness -Wundeclared-selector -Wstrict-selector-match -Wobjc-interface-ivars \
    -Wobjc-missing-super-calls -Wimplicit-retain-self -Warc-repeated-use-of-weak -Wdeprecated-declarations \
    -Werror "$2" >"$scratch/$1" 2>&1
}

# Headers that have a source of their name are checked with it.
sources() {
  find "$root/platform/macos" -name '*.mm' -o -name '*.cpp'
  find "$here/native" -name '*.mm'
  for header in $(find "$root/platform/macos" -path "$declarations" -prune -o -name '*.h' -print); do
    [ -e "${header%.h}.mm" ] || [ -e "${header%.h}.cpp" ] || echo "$header"
  done
}

checkAll() { # processor
  failed=0
  for file in $(sources | sort); do
    if check "$1" "$file"; then
      echo "ok      $1 ${file#"$root/"}"
    else
      echo "FAILED  $1 ${file#"$root/"}"
      cat "$scratch/$1"
      failed=1
    fi
  done
  return $failed
}

checkAll arm64 >"$scratch/arm64.log" &
first=$!
checkAll x86_64
result=$?
wait $first || result=1
cat "$scratch/arm64.log"
exit $result
