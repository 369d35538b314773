#include "workbench/webserver.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <netinet/in.h>
#include <poll.h>
#include <sstream>
#include <strings.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

constexpr size_t kLongestRequest = 16 << 10;
constexpr int kPatienceMs = 2000;

struct Type {
    const char *ending;
    const char *type;
};
constexpr Type kTypes[] = {{".html", "text/html; charset=utf-8"},
                           {".js", "text/javascript; charset=utf-8"},
                           {".css", "text/css; charset=utf-8"},
                           {".json", "application/json"},
                           {".svg", "image/svg+xml"},
                           {".png", "image/png"},
                           {".ico", "image/x-icon"},
                           {".woff", "font/woff"},
                           {".ttf", "font/ttf"},
                           {".mp3", "audio/mpeg"},
                           {".oga", "audio/ogg"}};

const char *typeOf(const std::string &name)
{
    const std::string ending = fs::path(name).extension().string();
    for (const Type &type : kTypes) {
        if (ending == type.ending)
            return type.type;
    }
    return "application/octet-stream";
}

const char *reasonOf(int status)
{
    switch (status) {
    case 200:
        return "OK";
    case 400:
        return "Bad Request";
    case 403:
        return "Forbidden";
    case 404:
        return "Not Found";
    default:
        return "Method Not Allowed";
    }
}

int hexadecimal(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    const char lower = char(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The path of a target without its query, escapes resolved. False for a broken or zero escape.
bool decodePath(const std::string &target, std::string *path)
{
    for (size_t i = 0; i < target.size() && target[i] != '?' && target[i] != '#'; ++i) {
        if (target[i] != '%') {
            path->push_back(target[i]);
            continue;
        }
        const int high = i + 2 < target.size() ? hexadecimal(target[i + 1]) : -1;
        const int low = i + 2 < target.size() ? hexadecimal(target[i + 2]) : -1;
        if (high < 0 || low < 0 || high * 16 + low == 0)
            return false;
        path->push_back(char(high * 16 + low));
        i += 2;
    }
    return true;
}

// Names of this machine, with any port.
bool isLocalHost(const std::string &request)
{
    std::istringstream lines(request);
    for (std::string line; std::getline(lines, line) && line.size() > 1;) {
        if (strncasecmp(line.c_str(), "Host:", 5) != 0)
            continue;
        const size_t begin = line.find_first_not_of(" \t", 5);
        if (begin == std::string::npos)
            return false;
        const size_t end = line.find_first_of(":\r \t", begin);
        const std::string host = line.substr(begin, end - begin);
        return host == "127.0.0.1" || strcasecmp(host.c_str(), "localhost") == 0;
    }
    return true; // a request of HTTP 1.0 names none
}

} // namespace

WebServer::~WebServer()
{
    stop();
}

bool WebServer::start(const std::string &folder, int port)
{
    std::error_code error;
    folder_ = fs::weakly_canonical(folder, error).string();
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(uint16_t(port));
    FileDescriptor fresh(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const int yes = 1;
    setsockopt(fresh.get(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    socklen_t size = sizeof address;
    if (bind(fresh.get(), reinterpret_cast<sockaddr *>(&address), sizeof address) < 0 ||
        listen(fresh.get(), 16) < 0 ||
        getsockname(fresh.get(), reinterpret_cast<sockaddr *>(&address), &size) < 0)
        return false;
    port_ = ntohs(address.sin_port);
    listener_ = std::move(fresh);
    waker_.reset(eventfd(0, EFD_CLOEXEC));
    thread_ = std::thread([this] { run(); });
    return true;
}

bool WebServer::startNear(const std::string &folder, int port, int tries)
{
    for (int next = port; next < port + tries && next <= 65535; ++next) {
        if (start(folder, next))
            return true;
    }
    fprintf(stderr, "Cannot serve pages: no port from %d on is free\n", port);
    return false;
}

void WebServer::stop()
{
    if (!thread_.joinable())
        return;
    const uint64_t one = 1;
    [[maybe_unused]] const ssize_t count = write(waker_.get(), &one, sizeof one);
    thread_.join();
    port_ = 0;
    listener_.reset();
}

void WebServer::run()
{
    for (;;) {
        pollfd doors[] = {{waker_.get(), POLLIN, 0}, {listener_.get(), POLLIN, 0}};
        if (poll(doors, 2, -1) < 0 && errno != EINTR)
            return;
        if (doors[0].revents)
            return;
        if (!(doors[1].revents & POLLIN))
            continue;
        const FileDescriptor connection(accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (connection.isOpen())
            serve(connection.get());
    }
}

void WebServer::serve(int connection) const
{
    // One slow peer must not hold up the others for long.
    const timeval limit = {kPatienceMs / 1000, 0};
    setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    setsockopt(connection, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    std::string request;
    char bytes[4096];
    while (request.find("\r\n\r\n") == std::string::npos && request.size() < kLongestRequest) {
        const ssize_t count = recv(connection, bytes, sizeof bytes, 0);
        if (count <= 0)
            return;
        request.append(bytes, size_t(count));
    }
    const Reply answer = reply(request);
    std::ostringstream out;
    out << "HTTP/1.1 " << answer.status << ' ' << reasonOf(answer.status)
        << "\r\nContent-Type: " << answer.type << "\r\nContent-Length: " << answer.body.size()
        << "\r\nCache-Control: no-cache\r\nX-Content-Type-Options: nosniff"
        << "\r\nConnection: close\r\n\r\n";
    if (request.compare(0, 5, "HEAD ") != 0)
        out << answer.body;
    const std::string whole = out.str();
    for (size_t done = 0; done < whole.size();) {
        const ssize_t count =
            send(connection, whole.data() + done, whole.size() - done, MSG_NOSIGNAL);
        if (count <= 0)
            return;
        done += size_t(count);
    }
}

WebServer::Reply WebServer::reply(const std::string &request) const
{
    const auto refuse = [](int status) {
        return Reply{status, "text/plain", std::string(reasonOf(status)) + "\n"};
    };
    std::istringstream first(request.substr(0, request.find("\r\n")));
    std::string method, target, version, path;
    first >> method >> target >> version;
    if (version.compare(0, 5, "HTTP/") != 0 || !decodePath(target, &path) || path.empty() ||
        path[0] != '/')
        return refuse(400);
    if (method != "GET" && method != "HEAD")
        return refuse(405);
    if (!isLocalHost(request))
        return refuse(403);
    if (path == "/" && !index_.empty())
        return {200, "text/html; charset=utf-8", index_};
    std::error_code error;
    const std::string file = fs::weakly_canonical(folder_ + path, error).string();
    // Links and dots are resolved by now: what is not below the folder stays out.
    if (error || file.compare(0, folder_.size() + 1, folder_ + "/") != 0)
        return refuse(403);
    std::ifstream stream(file, std::ios::binary);
    if (!fs::is_regular_file(file, error) || !stream)
        return refuse(404);
    std::ostringstream body;
    body << stream.rdbuf();
    return {200, typeOf(file), body.str()};
}
