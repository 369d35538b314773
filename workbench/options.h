// What the command line of the workbench asks for.
#pragma once

#include <string>

struct WorkbenchOptions {
    std::string program;    // the interface
    std::string data;       // its working directory
    std::string board;      // folder of the virtual board; empty for a temporary one
    std::string screenshot; // file to write and leave
    std::string script;     // file of commands
    std::string log;        // file for what the interface prints; empty for our own output
    std::string novnc;      // folder of the browser page's files
    int width = 1920;
    int height = 1080;
    int webPort = 8080;
    int vncPort = 5900;
};

// Fills the options from arguments. False when they cannot be taken: the reason went to standard
// error. `help` is set when only the usage was asked for; it has been printed.
bool parseOptions(int argc, char **argv, WorkbenchOptions *options, bool *help);
