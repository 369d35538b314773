#include "fuzz/language_inputs.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    tryLanguage(bytes, size);
    return 0;
}
