// A file to read in a benchmark, gone with the process.
#pragma once

#include <fstream>
#include <string>
#include <unistd.h>

namespace zrbench
{

class SampleFile
{
public:
    // `ending` is that of its name, such as ".ini".
    SampleFile(const std::string &contents, const char *ending)
        : name_("/tmp/zrbench" + std::to_string(getpid()) + ending)
    {
        std::ofstream(name_, std::ios::binary) << contents;
    }
    ~SampleFile() { unlink(name_.c_str()); }
    SampleFile(const SampleFile &) = delete;
    SampleFile &operator=(const SampleFile &) = delete;
    const char *name() const { return name_.c_str(); }

private:
    std::string name_;
};

} // namespace zrbench
