#include "platform/boardpath.h"

#include <cstdlib>

std::string boardPath(const char *path)
{
    const char *root = path[0] == '/' ? getenv("ZR_ROOT") : nullptr;
    std::string whole = root ? root : "";
    while (!whole.empty() && whole.back() == '/')
        whole.pop_back();
    return whole += path;
}
