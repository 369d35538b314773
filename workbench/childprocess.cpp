#include "workbench/childprocess.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr int kPatienceMs = 2000;
constexpr int kStepMs = 10;
constexpr int kNotStarted = 127;

[[noreturn]] void failInChild(const char *what, const std::string &name)
{
    fprintf(stderr, "Cannot %s %s: %s\n", what, name.c_str(), strerror(errno));
    _exit(kNotStarted);
}

[[noreturn]] void runInChild(const ChildProcess::Command &command, pid_t parent)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(kNotStarted); // the parent died before it could be watched
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    // Its own group: Ctrl-C is for the workbench, which then ends the child in order.
    setpgid(0, 0);
    for (const auto &variable : command.environment) {
        if (variable.second.empty())
            unsetenv(variable.first.c_str());
        else
            setenv(variable.first.c_str(), variable.second.c_str(), 1);
    }
    if (!command.output.empty()) {
        const int file =
            open(command.output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (file < 0)
            failInChild("write", command.output);
        dup2(file, STDOUT_FILENO);
        dup2(file, STDERR_FILENO);
    }
    if (!command.folder.empty() && chdir(command.folder.c_str()) < 0)
        failInChild("enter", command.folder);
    execl(command.program.c_str(), command.program.c_str(), nullptr);
    failInChild("run", command.program);
}

} // namespace

bool ChildProcess::start(const Command &given)
{
    Command command = given;
    // The child may change its folder before it is run.
    if (char *absolute = realpath(command.program.c_str(), nullptr)) {
        command.program = absolute;
        free(absolute);
    }
    if (access(command.program.c_str(), X_OK) < 0) {
        fprintf(stderr, "Cannot run %s: %s\n", command.program.c_str(), strerror(errno));
        return false;
    }
    fflush(nullptr);
    const pid_t parent = getpid();
    id_ = fork();
    if (id_ == 0)
        runInChild(command, parent);
    if (id_ < 0)
        fprintf(stderr, "Cannot start %s: %s\n", command.program.c_str(), strerror(errno));
    return id_ > 0;
}

bool ChildProcess::reap(int options)
{
    int status = 0;
    if (waitpid(id_, &status, options) != id_)
        return false;
    status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    id_ = -1;
    return true;
}

bool ChildProcess::isRunning()
{
    return id_ > 0 && !reap(WNOHANG);
}

void ChildProcess::end()
{
    if (id_ <= 0)
        return;
    ::kill(id_, SIGTERM);
    for (int waited = 0; waited < kPatienceMs; waited += kStepMs) {
        if (!isRunning())
            return;
        poll(nullptr, 0, kStepMs);
    }
    kill();
}

void ChildProcess::kill()
{
    if (id_ <= 0)
        return;
    ::kill(id_, SIGKILL);
    reap(0);
}
