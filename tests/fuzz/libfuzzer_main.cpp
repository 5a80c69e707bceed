// One target under libFuzzer, which brings main.

#include "fuzz/targets.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    FUZZ_TARGET(bytes, size);
    return 0;
}
