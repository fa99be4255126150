#pragma once

// xcb/xkb.h names a structure member with a word that C++ keeps for itself. Everybody includes it through
// here.
#define explicit explicit_
#include <xcb/xkb.h> // IWYU pragma: export
#undef explicit
