#include "gfx/pixelkernels.h"

namespace portable
{
extern const PixelKernels kernels;
}
#ifdef ZR_KERNELS_X86
namespace avx2
{
extern const PixelKernels kernels;
}
namespace avx512
{
extern const PixelKernels kernels;
}
#endif

namespace
{

struct Sets {
    const PixelKernels *list[4] = {&portable::kernels};
    int count = 1;

    Sets()
    {
#ifdef ZR_KERNELS_X86
        if (__builtin_cpu_supports("avx2"))
            list[count++] = &avx2::kernels;
        if (__builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
            __builtin_cpu_supports("avx512dq"))
            list[count++] = &avx512::kernels;
#endif
    }
};

const Sets &sets()
{
    static const Sets found;
    return found;
}

const PixelKernels *inUse = nullptr;

} // namespace

const PixelKernels &pixelKernels()
{
    if (!inUse)
        usePixelKernels(nullptr);
    return *inUse;
}

const PixelKernels *const *allPixelKernels()
{
    return sets().list;
}

void usePixelKernels(const PixelKernels *set)
{
    inUse = set ? set : sets().list[sets().count - 1];
}
