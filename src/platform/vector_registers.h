// The processor's vector registers, as other libraries leave them.
#pragma once

namespace tvx {

// Declares the upper halves of the vector registers unused. A general painter leaves them in use,
// and all floating-point work that follows on this thread then takes up to 1.7 times as long. No
// value of the program changes; where the processor has no such halves nothing happens.
void ReleaseVectorRegisters();

}  // namespace tvx
