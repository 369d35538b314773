#include "fuzz/link_inputs.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    tryIniFile(bytes, size);
    return 0;
}
