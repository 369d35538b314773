// The workbench as a program, around the least of an interface.
#include "workbench/childprocess.h"

#include "support/deadline.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <png.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;

class ProgramTest : public testing::Test
{
protected:
    ProgramTest()
        : folder_(testing::TempDir() + "zrwb" + std::to_string(getpid())), board_(folder_ + "/b")
    {
        fs::create_directories(folder_ + "/data");
        fs::copy_file(ZR_SOURCE_DIR "/custom-config.ini", folder_ + "/data/custom-config.ini",
                      fs::copy_options::overwrite_existing);
    }
    ~ProgramTest() override
    {
        unsetenv("ZR_FAKE_FAULT");
        fs::remove_all(folder_);
    }
    pid_t start(const std::vector<std::string> &more)
    {
        std::vector<std::string> words = {ZR_WORKBENCH_PROGRAM,
                                          "--program",
                                          ZR_FAKE_INTERFACE,
                                          "--data",
                                          folder_ + "/data",
                                          "--board",
                                          board_,
                                          "--log",
                                          folder_ + "/log"};
        words.insert(words.end(), more.begin(), more.end());
        const pid_t id = fork();
        if (id == 0) {
            freopen((folder_ + "/out").c_str(), "w", stdout);
            freopen((folder_ + "/err").c_str(), "w", stderr);
            std::vector<char *> arguments;
            for (std::string &word : words)
                arguments.push_back(word.data());
            arguments.push_back(nullptr);
            execv(arguments[0], arguments.data());
            _exit(127);
        }
        return id;
    }
    // Its exit status, or 128 and the signal.
    int wait(pid_t id)
    {
        int status = 0;
        EXPECT_TRUE(
            eventually([&] { return waitpid(id, &status, WNOHANG) == id; }, 2 * kDeadlineMs));
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    std::string file(const std::string &name)
    {
        std::ostringstream text;
        text << std::ifstream(folder_ + name).rdbuf();
        return text.str();
    }
    // Whether any process has the word among its environment: a child that was left behind.
    bool anybodyUses(const std::string &word)
    {
        for (const auto &entry : fs::directory_iterator("/proc")) {
            std::ostringstream text;
            text << std::ifstream(entry.path() / "environ").rdbuf();
            if (text.str().find(word) != std::string::npos)
                return true;
        }
        return false;
    }

    const std::string folder_;
    const std::string board_;
};

// A screenshot that the program wrote.
class Shot
{
public:
    explicit Shot(const std::string &path)
    {
        image_.version = PNG_IMAGE_VERSION;
        if (!png_image_begin_read_from_file(&image_, path.c_str()))
            return;
        image_.format = PNG_FORMAT_RGB;
        pixels_.resize(PNG_IMAGE_SIZE(image_));
        png_image_finish_read(&image_, nullptr, pixels_.data(), 0, nullptr);
    }
    std::pair<int, int> size() const { return {image_.width, image_.height}; }
    int pixel(int x, int y) const
    {
        const uint8_t *at = &pixels_.at(3 * (size_t(y) * image_.width + size_t(x)));
        return at[0] << 16 | at[1] << 8 | at[2];
    }

private:
    png_image image_ = {};
    std::vector<uint8_t> pixels_;
};

TEST_F(ProgramTest, WritesWhatAMonitorWouldShow)
{
    for (const auto &size : {std::make_pair(1280, 720), std::make_pair(1920, 1080)}) {
        const std::string path = folder_ + "/shot.png";
        const std::string text = std::to_string(size.first) + "x" + std::to_string(size.second);
        ASSERT_EQ(wait(start({"--size", text, "--screenshot", path})), 0) << file("/err");
        const Shot shot(path);
        ASSERT_EQ(shot.size(), size);
        EXPECT_EQ(shot.pixel(99, 300), 0xFF0000);  // the interface's frame
        EXPECT_EQ(shot.pixel(100, 100), 0x2C2820); // the plane under its hole
        EXPECT_FALSE(fs::exists(board_));
    }
}

TEST_F(ProgramTest, AScriptClicksWhereItSays)
{
    std::ofstream(folder_ + "/script")
        << "await 100 0\nsettle\nclick 640 360\nclick 1179 110\nsettle\n";
    const std::string path = folder_ + "/shot.png";
    ASSERT_EQ(
        wait(start({"--size", "1280x720", "--script", folder_ + "/script", "--screenshot", path})),
        0)
        << file("/err");
    const Shot shot(path);
    EXPECT_EQ(shot.pixel(640, 360), 0x0000FF);
    EXPECT_EQ(shot.pixel(1179, 110), 0x0000FF);
}

TEST_F(ProgramTest, SaysSoWhenTheInterfaceDies)
{
    setenv("ZR_FAKE_FAULT", "die", 1);
    EXPECT_EQ(wait(start({"--screenshot", folder_ + "/shot.png"})), 1);
    EXPECT_EQ(file("/err"), "The interface ended with status 7.\n");
    EXPECT_FALSE(fs::exists(folder_ + "/shot.png"));
    EXPECT_FALSE(fs::exists(board_));
}

TEST_F(ProgramTest, RefusesWhatItCannotStart)
{
    EXPECT_EQ(wait(start({"--size", "640x480"})), 2);
    EXPECT_EQ(wait(start({"--program", folder_ + "/none"})), 1);
    EXPECT_NE(file("/err").find("Cannot run " + folder_ + "/none"), std::string::npos);
    EXPECT_EQ(wait(start({"--script", folder_ + "/none"})), 1);
    EXPECT_FALSE(fs::exists(board_));
}

TEST_F(ProgramTest, EndsEverythingItStartedHoweverItEnds)
{
    for (const int signal : {SIGINT, SIGTERM, SIGKILL}) {
        const pid_t id = start({});
        ASSERT_TRUE(
            eventually([&] { return file("/log").find("App init OK") != std::string::npos; }));
        EXPECT_NE(file("/out").find("VNC viewer: 127.0.0.1:"), std::string::npos);
        ASSERT_TRUE(anybodyUses("ZR_ROOT=" + board_));
        kill(id, signal);
        EXPECT_EQ(wait(id), signal == SIGKILL ? 128 + SIGKILL : 0);
        EXPECT_TRUE(eventually([&] { return !anybodyUses("ZR_ROOT=" + board_); }));
        EXPECT_EQ(fs::exists(board_), signal == SIGKILL);
        fs::remove_all(board_);
        fs::remove(folder_ + "/log");
    }
}

} // namespace
