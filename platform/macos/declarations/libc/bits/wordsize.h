// The C library's own file knows no arm64.
#define __WORDSIZE 64
