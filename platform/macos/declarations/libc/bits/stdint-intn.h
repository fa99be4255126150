#pragma once

// Sixty-four bits are a long long on macOS: a long is another type there, which overloads tell apart.
typedef signed char int8_t;
typedef short int16_t;
typedef int int32_t;
typedef long long int64_t;
