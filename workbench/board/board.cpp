#include "workbench/board/board.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace fs = std::filesystem;

Board::~Board()
{
    if (root_.empty())
        return;
    std::error_code ignored;
    if (isOurs_) {
        fs::remove_all(root_, ignored);
        return;
    }
    // Only what was made here: the folder may have been somebody's before.
    fs::remove(root_ + "/dev/fb0", ignored);
}

bool Board::makeFolders(const std::string &folder)
{
    std::error_code error;
    if (folder.empty()) {
        std::string name = fs::temp_directory_path(error).string() + "/zr-board-XXXXXX";
        if (!mkdtemp(name.data())) {
            fprintf(stderr, "Cannot make a folder for the board: %s\n", strerror(errno));
            return false;
        }
        root_ = name;
        isOurs_ = true;
    } else {
        const fs::path absolute = fs::absolute(folder, error);
        isOurs_ = !fs::exists(absolute, error);
        root_ = absolute.lexically_normal().string();
    }
    for (const char *part : {"/dev", "/tmp", "/log/0"})
        fs::create_directories(root_ + part, error);
    if (error) {
        fprintf(stderr, "Cannot make the board in %s: %s\n", root_.c_str(),
                error.message().c_str());
        return false;
    }
    return true;
}

bool Board::create(const std::string &folder)
{
    return makeFolders(folder) && framebuffer_.create(root_ + "/dev/fb0", width_, height_) &&
           pointer_.create(root_ + "/dev/psaux") && panel_.create(root_ + "/dev/panel");
}
