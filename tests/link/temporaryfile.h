// A file that lives as long as its object.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <unistd.h>

class TemporaryFile
{
public:
    explicit TemporaryFile(const std::string &text)
    {
        static int count = 0;
        path_ = testing::TempDir() + "zrfile" + std::to_string(getpid()) + "." +
                std::to_string(++count);
        std::ofstream(path_, std::ios::binary) << text;
    }
    ~TemporaryFile() { std::remove(path_.c_str()); }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;
    const char *path() const { return path_.c_str(); }

private:
    std::string path_;
};
