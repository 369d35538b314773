#include "workbench/options.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{

constexpr char kUsage[] =
    "Runs the recorder's interface on a simulated recorder.\n"
    "  --program PATH      the interface\n"
    "  --data DIR          its working directory, with style, images, font and custom-config.ini\n"
    "  --board DIR         where to make the virtual board (default: a temporary folder)\n"
    "  --size WxH          the monitor: 1920x1080 (default) or 1280x720\n"
    "  --port N            port of the browser page (default 8080, or the next free one)\n"
    "  --vnc-port N        port for VNC viewers (default 5900, or the next free one)\n"
    "  --screenshot FILE   boot, wait until the picture is still, write it as PNG and leave\n"
    "  --script FILE       do what the file says, a command a line; see workbench/README.md\n"
    "  --log FILE          write what the interface prints to a file\n"
    "  --help              this\n";

bool parseSize(const char *text, WorkbenchOptions *options)
{
    const int sizes[][2] = {{1920, 1080}, {1280, 720}};
    for (const auto &size : sizes) {
        char name[32];
        snprintf(name, sizeof name, "%dx%d", size[0], size[1]);
        if (strcmp(text, name) == 0) {
            options->width = size[0];
            options->height = size[1];
            return true;
        }
    }
    fprintf(stderr, "%s is no size of a monitor here: 1920x1080 or 1280x720\n", text);
    return false;
}

bool parsePort(const char *text, int *port)
{
    char *end;
    const long value = strtol(text, &end, 10);
    if (*end || end == text || value < 1 || value > 65535) {
        fprintf(stderr, "%s is no port\n", text);
        return false;
    }
    *port = int(value);
    return true;
}

} // namespace

bool parseOptions(int argc, char **argv, WorkbenchOptions *options, bool *help)
{
    struct {
        const char *name;
        std::string *value;
    } const texts[] = {
        {"--program", &options->program}, {"--data", &options->data},
        {"--board", &options->board},     {"--screenshot", &options->screenshot},
        {"--script", &options->script},   {"--log", &options->log},
    };
    *help = false;
    for (int i = 1; i < argc; ++i) {
        const std::string name = argv[i];
        if (name == "--help" || name == "-h") {
            fputs(kUsage, stdout);
            *help = true;
            return true;
        }
        std::string *text = nullptr;
        for (const auto &entry : texts)
            text = name == entry.name ? entry.value : text;
        const bool isKnown = text || name == "--size" || name == "--port" || name == "--vnc-port";
        if (!isKnown || i + 1 == argc) {
            fprintf(stderr, isKnown ? "%s wants a value\n" : "%s is no option; see --help\n",
                    name.c_str());
            return false;
        }
        const char *value = argv[++i];
        if (text)
            *text = value;
        else if (name == "--size"
                     ? !parseSize(value, options)
                     : !parsePort(value, name == "--port" ? &options->webPort : &options->vncPort))
            return false;
    }
    if (options->program.empty())
        fprintf(stderr, "No --program is given; see --help\n");
    return !options->program.empty();
}
