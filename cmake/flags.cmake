# The one place of compiler flags: every target links tvx_flags.
add_library(tvx_flags INTERFACE)

target_compile_options(tvx_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror
  # clang counts signs to -Wconversion, g++ does not: what is clean in one build is so in the other.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>
  # The order and rounding of every float operation is part of the result: a multiply and an add
  # must stay two operations.
  -ffp-contract=off
  # Nobody asks errno about a square root, and the call that would set it spills the registers of
  # every walk that takes one. No result changes.
  -fno-math-errno)

# Release is -O2 with the assertions of the program left in: a clear stop beats a wrong feed.
set(CMAKE_CXX_FLAGS_RELEASE "-O2")

if(TVX_SANITIZE)
  target_compile_options(tvx_flags INTERFACE
    -fsanitize=${TVX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tvx_flags INTERFACE -fsanitize=${TVX_SANITIZE})
endif()
