#pragma once

// What BSD has and the C library here lacks: the standard library for Apple's systems calls it.
#include <cstdlib>
#include <cwchar>
#include <locale.h>

extern "C" {
int snprintf_l(char* text, size_t room, locale_t locale, const char* format, ...);
int asprintf_l(char** text, locale_t locale, const char* format, ...);
int sscanf_l(const char* text, locale_t locale, const char* format, ...);
}
