#include "workbench/script.h"
#include "workbench/vncview.h"
#include "workbench/webserver.h"

#include "support/deadline.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <netinet/in.h>
#include <sstream>
#include <sys/socket.h>
#include <unistd.h>

namespace
{

int connectTo(int port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(uint16_t(port));
    const int connection = socket(AF_INET, SOCK_STREAM, 0);
    EXPECT_EQ(connect(connection, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    return connection;
}

// Whether something listens on the port, by the addresses of a table of the kernel.
std::vector<std::string> listeners(const char *table, int port)
{
    std::ifstream file(table);
    std::vector<std::string> found;
    char suffix[8];
    snprintf(suffix, sizeof suffix, ":%04X", unsigned(port));
    std::string number, local, remote, state;
    for (std::string line; std::getline(file, line);) {
        std::istringstream(line) >> number >> local >> remote >> state;
        const size_t colon = local.find(':');
        if (state == "0A" && colon != std::string::npos && local.substr(colon) == suffix)
            found.push_back(local.substr(0, colon));
    }
    return found;
}

class VncViewTest : public testing::Test
{
protected:
    VncViewTest() : picture(128, 64)
    {
        EXPECT_TRUE(view.startNear(&picture, 5977, 100,
                                   [this](const VncView::Mouse &mouse) { mice.push_back(mouse); }));
    }
    // Serves the view until the client has so many bytes.
    std::string read(int connection, size_t count)
    {
        std::string bytes;
        EXPECT_TRUE(eventually([&] {
            view.run(1);
            char piece[65536];
            const ssize_t got =
                recv(connection, piece, std::min(sizeof piece, count - bytes.size()), MSG_DONTWAIT);
            bytes.append(piece, size_t(std::max<ssize_t>(got, 0)));
            return bytes.size() == count;
        })) << "got "
            << bytes.size() << " of " << count;
        return bytes;
    }
    void write(int connection, const std::string &bytes)
    {
        EXPECT_EQ(send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL),
                  ssize_t(bytes.size()));
    }
    // As a viewer that wants no password.
    int connectViewer()
    {
        const int client = connectTo(view.port());
        read(client, 12);
        write(client, "RFB 003.008\n");
        EXPECT_EQ(read(client, 2), std::string("\x01\x01", 2));
        write(client, "\x01");
        read(client, 4);
        write(client, "\x01");
        read(client, 24 + 8);
        return client;
    }

    Picture picture;
    VncView view;
    std::vector<VncView::Mouse> mice;
};

TEST_F(VncViewTest, ListensOnThisMachineOnly)
{
    EXPECT_EQ(listeners("/proc/net/tcp", view.port()), std::vector<std::string>{"0100007F"});
    EXPECT_TRUE(listeners("/proc/net/tcp6", view.port()).empty());
}

TEST_F(VncViewTest, ShowsThePictureAndPassesTheMouseOn)
{
    picture.fill(picture.area(), 0x102030);
    const int client = connectViewer();
    write(client, std::string("\x03\x00\x00\x01\x00\x02\x00\x01\x00\x01", 10));
    const std::string update = read(client, 4 + 12 + 4);
    EXPECT_EQ(update.substr(16), std::string("\x30\x20\x10\x00", 4));
    // Right button at (70, 33), then released with the wheel turned towards the user.
    write(client, std::string("\x05\x04\x00\x46\x00\x21", 6));
    write(client, std::string("\x05\x10\x00\x46\x00\x22", 6));
    EXPECT_TRUE(eventually([&] {
        view.run(1);
        return mice.size() == 2;
    }));
    EXPECT_EQ(mice[0].x, 70);
    EXPECT_EQ(mice[0].y, 33);
    EXPECT_EQ(mice[0].buttons, 2);
    EXPECT_EQ(mice[1].buttons, 0);
    EXPECT_EQ(mice[1].wheel, 1);
    close(client);
}

TEST_F(VncViewTest, SurvivesRequestsThatAreNoViewers)
{
    for (const char *request : {"GET / HTTP/1.1\r\nHost: x\r\n\r\n", "GET / HTTP/1.0\r\n\r\n",
                                "GET \r\n", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}) {
        const int stranger = connectTo(view.port());
        write(stranger, request);
        for (int i = 0; i < 20; ++i)
            view.run(1);
        close(stranger);
        view.run(1);
    }
    close(connectViewer());
}

class WebServerTest : public testing::Test
{
protected:
    WebServerTest()
    {
        namespace fs = std::filesystem;
        folder_ = testing::TempDir() + "zrweb" + std::to_string(getpid());
        fs::create_directories(folder_ + "/pages/core");
        std::ofstream(folder_ + "/secret") << "secret";
        std::ofstream(folder_ + "/pages/core/rfb.js") << "code";
        fs::create_symlink("../secret", folder_ + "/pages/link");
        server.setIndex("<p>here</p>");
        EXPECT_TRUE(server.start(folder_ + "/pages", 0));
    }
    ~WebServerTest() override
    {
        server.stop();
        std::filesystem::remove_all(folder_);
    }
    std::string fetch(const std::string &request)
    {
        const int connection = connectTo(server.port());
        EXPECT_EQ(send(connection, request.data(), request.size(), MSG_NOSIGNAL),
                  ssize_t(request.size()));
        std::string answer;
        char bytes[4096];
        for (ssize_t count; (count = recv(connection, bytes, sizeof bytes, 0)) > 0;)
            answer.append(bytes, size_t(count));
        close(connection);
        return answer;
    }

    std::string folder_;
    WebServer server;
};

TEST_F(WebServerTest, ServesItsFolderToThisMachineAndNothingElse)
{
    struct {
        const char *request;
        int status;
        const char *body;
    } const rows[] = {
        {"GET / HTTP/1.1\r\nHost: 127.0.0.1:1\r\n\r\n", 200, "<p>here</p>"},
        {"GET /core/rfb.js?x=1 HTTP/1.1\r\nHost: localhost\r\n\r\n", 200, "code"},
        {"GET /core/rfb%2Ejs HTTP/1.0\r\n\r\n", 200, "code"},
        {"GET /../secret HTTP/1.1\r\n\r\n", 403, nullptr},
        {"GET /core/../../secret HTTP/1.1\r\n\r\n", 403, nullptr},
        {"GET /%2e%2e/secret HTTP/1.1\r\n\r\n", 403, nullptr},
        {"GET /link HTTP/1.1\r\n\r\n", 403, nullptr},
        {"GET /core HTTP/1.1\r\n\r\n", 404, nullptr},
        {"GET /none HTTP/1.1\r\n\r\n", 404, nullptr},
        {"GET /%00 HTTP/1.1\r\n\r\n", 400, nullptr},
        {"GET secret HTTP/1.1\r\n\r\n", 400, nullptr},
        {"nonsense\r\n\r\n", 400, nullptr},
        {"POST / HTTP/1.1\r\n\r\n", 405, nullptr},
        {"GET / HTTP/1.1\r\nHost: evil.example\r\n\r\n", 403, nullptr},
    };
    EXPECT_EQ(listeners("/proc/net/tcp", server.port()), std::vector<std::string>{"0100007F"});
    for (const auto &row : rows) {
        const std::string answer = fetch(row.request);
        EXPECT_EQ(answer.substr(0, 12), "HTTP/1.1 " + std::to_string(row.status)) << row.request;
        EXPECT_EQ(answer.find("secret"), std::string::npos);
        if (row.body) {
            EXPECT_EQ(answer.substr(answer.find("\r\n\r\n") + 4), row.body);
        }
    }
}

TEST(Script, ReadsCommandsAndRefusesWhatIsNone)
{
    std::vector<ScriptCommand> commands;
    ASSERT_TRUE(parseScript("# a visit\n\n  click 10 20 2\nsettle\n", &commands));
    ASSERT_EQ(commands.size(), 2u);
    EXPECT_EQ(commands[0].number(2), 2);
    EXPECT_EQ(commands[1].line, 4);
    for (const char *broken : {"clik 1 2", "click 1", "await 100"}) {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(parseScript(broken, &commands));
        EXPECT_NE(testing::internal::GetCapturedStderr().find("Line 1 "), std::string::npos);
    }
}

} // namespace
