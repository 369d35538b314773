// A program that the workbench starts and ends.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

class ChildProcess
{
public:
    struct Command {
        std::string program;
        std::string folder; // working directory; empty for ours
        std::vector<std::pair<std::string, std::string>> environment; // added; empty values removed
        std::string output; // file for its output; empty for ours
    };

    ~ChildProcess() { end(); }

    // The child is ended when this process dies, however it dies. False, with a line on standard
    // error, when it could not be started.
    bool start(const Command &command);
    bool isRunning();
    // Once it no longer runs: its exit status, or 128 and the signal that ended it.
    int status() const { return status_; }
    pid_t id() const { return id_; }
    // Asks it to end, and makes it end when it does not.
    void end();
    // Ends it at once, as a power failure would.
    void kill();

private:
    bool reap(int options);

    pid_t id_ = -1;
    int status_ = 0;
};
