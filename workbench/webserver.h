// Hands out the files of one folder over HTTP, on this machine only.
#pragma once

#include "platform/filedescriptor.h"

#include <string>
#include <thread>

// Listens on 127.0.0.1 and serves GET and HEAD, one request a connection, on a thread of its own.
// Names that would leave the folder are refused, and so are hosts that are not this machine, so
// that no page of somebody else's can reach in through a name of its own.
class WebServer
{
public:
    ~WebServer();

    // False when the port cannot be had. Port 0 takes any.
    bool start(const std::string &folder, int port);
    // The same on the first free port from the given one on. False, with a line on standard error,
    // when none is free.
    bool startNear(const std::string &folder, int port, int tries);
    void stop();
    // 0 while it does not run.
    int port() const { return port_; }
    // Served instead of a file for "/".
    void setIndex(const std::string &html) { index_ = html; }

    struct Reply {
        int status;
        std::string type;
        std::string body;
    };
    // What a request gets.
    Reply reply(const std::string &request) const;

private:
    void run();
    void serve(int connection) const;

    std::string folder_;
    std::string index_;
    FileDescriptor listener_;
    FileDescriptor waker_;
    int port_ = 0;
    std::thread thread_;
};
