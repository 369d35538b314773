#include <panelmap>

#include "platform/boardpath.h"
#include "platform/filedescriptor.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <mutex>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>

namespace
{

constexpr std::size_t LongestLine = 4096;
constexpr std::size_t MostWaiting = 256; // keys or strings that nobody has taken

class PanelSocket
{
public:
    bool open();
    int takeKey();
    std::string takeText();
    int sendLine(const std::string &line);

private:
    void receive();
    void takeLine(const std::string &line);

    std::mutex lock_;
    FileDescriptor socket_;
    std::string input_;
    std::deque<int> keys_;
    std::deque<std::string> texts_;
};

bool PanelSocket::open()
{
    const std::string path = boardPath("/dev/panel");
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return false;
    memcpy(address.sun_path, path.c_str(), path.size());
    std::lock_guard<std::mutex> guard(lock_);
    socket_.reset(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (connect(socket_.get(), reinterpret_cast<sockaddr *>(&address), sizeof address) == 0)
        return true;
    socket_.reset();
    return false;
}

void PanelSocket::receive()
{
    char bytes[512];
    ssize_t count = 1;
    while (socket_.isOpen() && (count = recv(socket_.get(), bytes, sizeof bytes, 0)) > 0)
        input_.append(bytes, std::size_t(count));
    if (count == 0 || (input_.size() > LongestLine && input_.find('\n') == std::string::npos))
        socket_.reset();
    std::size_t begin = 0;
    for (std::size_t end; (end = input_.find('\n', begin)) != std::string::npos; begin = end + 1)
        takeLine(input_.substr(begin, end - begin));
    input_.erase(0, begin);
}

void PanelSocket::takeLine(const std::string &line)
{
    if (line.compare(0, 4, "key ") == 0 && keys_.size() < MostWaiting)
        keys_.push_back(std::atoi(line.c_str() + 4));
    else if (line.compare(0, 5, "text ") == 0 && texts_.size() < MostWaiting)
        texts_.push_back(line.substr(5));
}

int PanelSocket::takeKey()
{
    std::lock_guard<std::mutex> guard(lock_);
    receive();
    if (keys_.empty())
        return PanelKeyNone;
    const int key = keys_.front();
    keys_.pop_front();
    return key;
}

std::string PanelSocket::takeText()
{
    std::lock_guard<std::mutex> guard(lock_);
    receive();
    if (texts_.empty())
        return std::string();
    std::string text = std::move(texts_.front());
    texts_.pop_front();
    return text;
}

int PanelSocket::sendLine(const std::string &line)
{
    std::lock_guard<std::mutex> guard(lock_);
    const ssize_t sent =
        socket_.isOpen() ? send(socket_.get(), line.data(), line.size(), MSG_NOSIGNAL) : -1;
    return sent == ssize_t(line.size()) ? 0 : -1;
}

PanelSocket &panel()
{
    static PanelSocket socket;
    return socket;
}

} // namespace

int InitVersionAndFrontBoard(const KeyBoardparam_t *, KeyBoardCallback)
{
    return panel().open() ? 0 : -1;
}

int GetAllKeyValue_keytype(int *out)
{
    *out = panel().takeKey();
    return *out != PanelKeyNone;
}

int GetAllKeyValue_StringLen(KeyString *out)
{
    const std::string text = panel().takeText();
    // A string that is too long is cut between characters.
    std::size_t length = std::min(text.size(), std::size_t(KeyString::Capacity));
    while (length < text.size() && length > 0 && (text[length] & 0xC0) == 0x80)
        --length;
    memcpy(out->text, text.data(), length);
    out->length = int(length);
    return out->length;
}

int KEYBOARD_SEND_CMD(int code)
{
    return KEYBOARD_SEND_CMDDATA(code, 0, 0);
}

int KEYBOARD_SEND_CMDDATA(int code, int index, int value)
{
    char line[64];
    snprintf(line, sizeof line, "led %d %d %d\n", code, index, value);
    return panel().sendLine(line);
}
