// Any bytes as a JPEG file.
#include "image_formats.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    return decodeAnything(bytes, size);
}
