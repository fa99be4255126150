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

compile() { # processor, options and a file
  processor=$1
  shift
  # -U: the C library has a macro of the name that the compiler gives to a word of its own.
  # shellcheck disable=SC2086 # lists of options
  "$clang" -target "$processor-apple-macosx11.0" -U__nonnull -D_GNU_SOURCE -nostdinc++ -nostdlibinc \
    -I"$declarations" -I"$root" -I"$root/tests" -I"$generated" -isystem "$declarations/libc" $system \
    -std=c++20 -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor \
    -Woverloaded-virtual -Wno-missing-field-initializers -Wunguarded-availability -Wnullable-to-nonnull-conversion \
    -Wnullability-completeness -Wundeclared-selector -Wstrict-selector-match -Wobjc-interface-ivars \
    -Wobjc-missing-super-calls -Wimplicit-retain-self -Warc-repeated-use-of-weak -Wdeprecated-declarations \
    -Werror "$@" >"$scratch/$processor" 2>&1
}

objectiveC="-fobjc-arc -fblocks -x objective-c++"

check() { # processor, file
  case $2 in
    *.mm) language="$objectiveC $prefix" ;;
    *.h) language="$objectiveC-header $prefix" ;;
    *) language="-x c++" ;;
  esac
  # shellcheck disable=SC2086 # a list of options
  compile "$1" -fsyntax-only $language "$2"
}

# What most sources read, compiled once. Only one processor has it: on the other each source has to include for
# itself what it uses.
precompile() { # processor
  {
    echo '#include <Cocoa/Cocoa.h>'
    for header in algorithm functional map memory optional string utility variant vector; do
      echo "#include <$header>"
    done
  } >"$scratch/prefix.h"
  # shellcheck disable=SC2086 # a list of options
  compile "$1" $objectiveC-header "$scratch/prefix.h" -o "$scratch/prefix.pch" && prefix="-include-pch $scratch/prefix.pch"
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

prefix=
(precompile arm64; checkAll arm64) >"$scratch/arm64.log" &
first=$!
checkAll x86_64
result=$?
wait $first || result=1
cat "$scratch/arm64.log"
exit $result
