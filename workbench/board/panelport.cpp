#include "workbench/board/panelport.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{
constexpr size_t kLongestLine = 4096;
}

PanelPort::~PanelPort()
{
    if (!path_.empty())
        unlink(path_.c_str());
}

bool PanelPort::create(const std::string &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    listener_.reset(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    unlink(path.c_str());
    errno = ENAMETOOLONG;
    if (path.size() < sizeof address.sun_path) {
        memcpy(address.sun_path, path.c_str(), path.size());
        if (bind(listener_.get(), reinterpret_cast<sockaddr *>(&address), sizeof address) == 0 &&
            listen(listener_.get(), 1) == 0) {
            path_ = path;
            return true;
        }
    }
    fprintf(stderr, "Cannot make the panel %s: %s\n", path.c_str(), strerror(errno));
    return false;
}

void PanelPort::poll()
{
    FileDescriptor fresh(accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (fresh.isOpen()) {
        peer_ = std::move(fresh);
        input_.clear();
    }
    char bytes[512];
    ssize_t count = 1;
    while (peer_.isOpen() && (count = recv(peer_.get(), bytes, sizeof bytes, 0)) > 0)
        input_.append(bytes, size_t(count));
    if (count == 0 || input_.size() > kLongestLine)
        peer_.reset();
    for (size_t end; (end = input_.find('\n')) != std::string::npos;) {
        lines_.push_back(input_.substr(0, end));
        input_.erase(0, end + 1);
    }
}

void PanelPort::sendLine(const std::string &line)
{
    const std::string whole = line + "\n";
    if (peer_.isOpen() && send(peer_.get(), whole.data(), whole.size(), MSG_NOSIGNAL) < 0)
        peer_.reset();
}

std::vector<std::string> PanelPort::takeLines()
{
    std::vector<std::string> lines;
    lines.swap(lines_);
    return lines;
}
