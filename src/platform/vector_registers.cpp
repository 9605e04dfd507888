#include "platform/vector_registers.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace tvx {

#if defined(__x86_64__)

namespace {

__attribute__((target("avx"))) void ZeroUpperHalves() {
  _mm256_zeroupper();
}

}  // namespace

void ReleaseVectorRegisters() {
  static const bool hasUpperHalves = __builtin_cpu_supports("avx") != 0;
  if (hasUpperHalves) ZeroUpperHalves();
}

#else

void ReleaseVectorRegisters() {}

#endif

}  // namespace tvx
