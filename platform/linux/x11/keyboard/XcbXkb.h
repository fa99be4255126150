#pragma once

// xcb/xkb.h names a structure member with a word that C++ keeps for itself. Everybody includes it through
// here.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif
#define explicit explicit_
#include <xcb/xkb.h> // IWYU pragma: export
#undef explicit
#ifdef __clang__
#pragma clang diagnostic pop
#endif
