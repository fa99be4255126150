# One set of compiler settings for everything that is ours.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

# A cache of what was compiled, where there is one. It knows a source again in another clone.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
                                  "${CCACHE}")
  set(CMAKE_C_COMPILER_LAUNCHER "${CMAKE_CXX_COMPILER_LAUNCHER}")
  set(CMAKE_OBJCXX_COMPILER_LAUNCHER "${CMAKE_CXX_COMPILER_LAUNCHER}")
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion
                    $<$<NOT:$<COMPILE_LANGUAGE:C>>:-Wnon-virtual-dtor> $<$<NOT:$<COMPILE_LANGUAGE:C>>:-Woverloaded-virtual>
                    -Wno-missing-field-initializers) # aggregates have defaults: naming some members is the point
if(CMAKE_SYSTEM_NAME STREQUAL "Darwin")
  # What a compiler warns of that nobody has tried yet must not keep anybody from building.
  if(NOT DEFINED ENV{CI})
    set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)
  endif()
  # What a newer SDK calls deprecated is the only way on the oldest system.
  add_compile_options(-Wunguarded-availability-new -Wno-error=deprecated-declarations
                      $<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-arc>)
endif()

# Not for users: their compiler may be newer than any that was tried.
option(QUORVANE_WARNINGS_ARE_ERRORS "Stop at a warning of the compiler" OFF)
set(CMAKE_COMPILE_WARNING_AS_ERROR ${QUORVANE_WARNINGS_ARE_ERRORS})

option(QUORVANE_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
if(QUORVANE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
                      -g1) # the lines of a stack trace; more takes a compiler longer
  add_link_options(-fsanitize=address,undefined)
  # An empty optional that is read, or an element beyond the end, may lie in memory that is valid.
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
