#include "fuzz/link_inputs.h"

#include "link/deviceprofile.h"
#include "link/framereader.h"
#include "link/profiledefaults.h"
#include "platform/filedescriptor.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace
{

void require(bool holds)
{
    if (!holds)
        std::abort();
}

// The bytes as a file; its path is good as long as the descriptor is open.
class MemoryFile
{
public:
    MemoryFile(const std::uint8_t *bytes, std::size_t size) : file_(memfd_create("input", 0))
    {
        require(write(file_.get(), bytes, size) == ssize_t(size));
        std::snprintf(path_, sizeof path_, "/proc/self/fd/%d", file_.get());
    }
    const char *path() const { return path_; }

private:
    FileDescriptor file_;
    char path_[40];
};

// A token is at most a line, and certain characters end it or were replaced.
void checkToken(const ZrString &token, bool isKey)
{
    constexpr int longest = 511;
    require(token.size() <= (isKey ? 2 * longest : longest));
    for (ZrUcs2 unit : token)
        require(unit != '\\' && unit != '\n' && unit != ';' && unit != ']' && unit != '=' &&
                unit != '"' && unit != 0);
}

} // namespace

void tryIniFile(const std::uint8_t *bytes, std::size_t size)
{
    const MemoryFile file(bytes, size);
    const ZrIniFile ini(file.path());
    // Every key needs a sign of equality of its own.
    require(ini.size() <= std::count(bytes, bytes + size, '='));
    for (auto entry = ini.values().begin(); entry != ini.values().end(); ++entry) {
        checkToken(entry.key(), true);
        checkToken(entry.value(), false);
        ini.intValue(entry.key());
        require(ini.colorValue(entry.key()).isValid());
        require(ini.value(entry.key()) == entry.value());
    }
}

void tryProfile(const std::uint8_t *bytes, std::size_t size)
{
    const MemoryFile source(bytes, size);
    const ZrIniFile file(source.path());
    std::vector<std::uint8_t> custom(Profile::CustomSize);
    readCustomPart(file, custom.data());
    checkDiskLists(file);
    std::vector<std::uint8_t> parameters(Profile::ParametersSize);
    ProfileDefaults::overlay(file, parameters.data());
    // What App alone owns stays as it is.
    const std::size_t end =
        ProfileDefaults::OffsetSchedules + Profile::ChannelCapacity * ProfileDefaults::ScheduleSize;
    require(std::all_of(parameters.begin() + long(end), parameters.end(),
                        [](std::uint8_t byte) { return byte == 0; }));
}

void tryFrames(const std::uint8_t *bytes, std::size_t size)
{
    // More than a socket takes at once would have to be read meanwhile.
    constexpr std::size_t most = 100000;
    int ends[2];
    require(socketpair(AF_UNIX, SOCK_STREAM, 0, ends) == 0);
    const FileDescriptor reader(ends[0]);
    FileDescriptor writer(ends[1]);
    size = std::min(size, most);
    require(size == 0 || send(writer.get(), bytes, size, 0) == ssize_t(size));
    writer.reset();
    FrameReader frames;
    std::vector<AppMessage *> messages;
    auto status = FrameReader::Status::Open;
    while (status == FrameReader::Status::Open)
        status = frames.read(reader.get(), messages, 0);
    require(status != FrameReader::Status::Quiet);
    std::size_t total = 0;
    for (AppMessage *message : messages) {
        total += AppMsgHead::Size + message->bodyLength();
        AppMessage::release(message);
    }
    require(total <= size);
}
