// zr-workbench: the recorder's interface on a simulated recorder.
#include "workbench/workbench.h"

#include <csignal>

namespace
{

volatile sig_atomic_t stop = 0;

void onSignal(int)
{
    stop = 1;
}

} // namespace

int main(int argc, char **argv)
{
    WorkbenchOptions options;
    options.novnc = ZR_NOVNC_FOLDER;
    bool help = false;
    if (!parseOptions(argc, argv, &options, &help))
        return 2;
    if (help)
        return 0;
    struct sigaction action = {};
    action.sa_handler = onSignal;
    for (int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal, &action, nullptr);
    signal(SIGPIPE, SIG_IGN);
    Workbench workbench(options);
    return workbench.run(&stop);
}
