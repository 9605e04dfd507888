# All compiler flags. Every target links tvx_flags.
add_library(tvx_flags INTERFACE)

target_compile_options(tvx_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror
  # clang includes sign conversions in -Wconversion, g++ does not. Off, so that both check the same.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>
  # Order and rounding of float operations affect the results: a multiply and an add must not be fused.
  -ffp-contract=off
  # No code reads errno after a square root, and the call that sets it would spill registers in every walk.
  # Results do not change.
  -fno-math-errno)

# Release is -O2 with assertions enabled: a clear stop is better than a wrong feed.
set(CMAKE_CXX_FLAGS_RELEASE "-O2")

if(TVX_SANITIZE)
  target_compile_options(tvx_flags INTERFACE
    -fsanitize=${TVX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tvx_flags INTERFACE -fsanitize=${TVX_SANITIZE})
endif()
