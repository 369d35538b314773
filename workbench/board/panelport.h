// The front panel's socket of the virtual board: keys go in and commands come out, as text lines.
#pragma once

#include "platform/filedescriptor.h"

#include <string>
#include <vector>

// Not thread-safe; nothing here waits.
class PanelPort
{
public:
    ~PanelPort();
    // Listens at the path. False, with a line on standard error.
    bool create(const std::string &path);
    // Takes a connection, if one waits, and reads the lines that have come.
    void poll();
    bool isConnected() const { return peer_.isOpen(); }
    // Sends a line, without its line feed; lost when nobody is connected.
    void sendLine(const std::string &line);
    // What has come since the last call.
    std::vector<std::string> takeLines();

private:
    std::string path_;
    FileDescriptor listener_;
    FileDescriptor peer_;
    std::string input_;
    std::vector<std::string> lines_;
};
