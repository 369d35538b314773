// Data beside the program that is missing, broken or far too large: told in a line, and the whole
// gallery still paints.
#include "gallerywindow.h"
#include "pages.h"
#include "popups.h"
#include "samples.h"
#include "support/recorderscreen.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <zrdialog>

namespace
{

namespace fs = std::filesystem;

class BadData : public zrtest::RecorderScreen
{
protected:
    BadData()
    {
        std::string name = fs::temp_directory_path() / "zr-data-XXXXXX";
        data = mkdtemp(name.data());
    }
    ~BadData() override { fs::remove_all(data); }

    // The folders of the good data, as links, but for one that is made anew, and empty.
    void spoil(const std::string &folder, const std::function<void(const fs::path &)> &how)
    {
        fs::remove_all(data);
        fs::create_directory(data);
        for (const auto &entry : fs::directory_iterator(ZR_BINARY_DIR "/data")) {
            const std::string name = entry.path().filename();
            if (name != folder)
                fs::create_symlink(entry.path(), data / name);
        }
        fs::create_directory(data / folder);
        how(data / folder);
    }
    // Every page with what is in the folder; what was told.
    std::string showAll()
    {
        fs::current_path(data);
        forgetStyleFiles();
        forgetPictures();
        ZrStyle::applicationStyle() = ZrStyle();
        testing::internal::CaptureStderr();
        loadCommonStyle();
        GalleryWindow gallery;
        gallery.setAttribute(ZrWidget::DeleteOnClose, false);
        gallery.show();
        for (int page = 0; page < PageCount; ++page) {
            gallery.showPage(page);
            showPopups(*gallery.page(), Pages[page].name);
            for (int y = 60; y < Height; y += 60)
                screen->pointer(Width / 2, y);
        }
        for (int i = 0; i < SampleCount; ++i) {
            const std::unique_ptr<ZrDialog> dialog(Samples[i].make());
            dialog->show();
            screen->settle();
        }
        return testing::internal::GetCapturedStderr();
    }
    void showPopups(const GalleryPage &page, const std::string &name)
    {
        for (int i = 0; i < PopupCount; ++i) {
            if (name != Popups[i].page)
                continue;
            EXPECT_TRUE(openPopup(page, Popups[i])) << Popups[i].name;
            screen->settle();
            closePopup();
        }
    }

    fs::path data;
};

void write(const fs::path &path, const std::string &text)
{
    std::ofstream(path, std::ios::binary) << text;
}

std::string read(const fs::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

} // namespace

TEST_F(BadData, OfTheStyleLeavesTheInterfaceRunning)
{
    constexpr std::size_t Huge = 50 << 20;
    const struct {
        const char *what;
        std::function<void(const fs::path &)> how; // to one style file
        const char *told;                          // in what was told
    } rows[] = {
        {"missing", [](const fs::path &file) { fs::remove(file); },
         "open ini file failed: No such file or directory\n"},
        {"a folder",
         [](const fs::path &file) {
             fs::remove(file);
             fs::create_directory(file);
         },
         ""},
        {"empty", [](const fs::path &file) { write(file, ""); }, ""},
        {"cut off",
         [](const fs::path &file) {
             const std::string whole = read(file);
             write(file, whole.substr(0, whole.size() / 3));
         },
         ""},
        {"no text", [](const fs::path &file) { write(file, std::string(4096, '\xfe')); }, ""},
        {"numbers far out",
         [](const fs::path &file) {
             std::string text = read(file);
             for (std::size_t at = 0; (at = text.find(" = ", at)) != std::string::npos; at += 3)
                 text.insert(at + 3, text[at + 3] == '"' ? "" : "99999999");
             write(file, text);
         },
         ""},
        {"50 MB of keys",
         [](const fs::path &file) {
             std::string text = "[ZrLabel]\n";
             for (int i = 0; text.size() < Huge; ++i)
                 text += "key" + std::to_string(i) + " = " + std::string(80, '9') + "\n";
             write(file, text);
         },
         "ini file too large, the rest is left out: "},
    };
    for (const auto &row : rows) {
        for (const char *name : {"commonstyle.ini", "calendar.ini", "keyboard.ini", "dialog.ini"}) {
            SCOPED_TRACE(std::string(row.what) + ": " + name);
            spoil("style", [&](const fs::path &folder) {
                fs::copy(ZR_BINARY_DIR "/data/style", folder);
                row.how(folder / name);
            });
            const std::string told = showAll();
            if (*row.told) {
                EXPECT_NE(told.find(row.told), std::string::npos) << told;
            }
        }
    }
}

TEST_F(BadData, OfThePicturesLeavesTheirPlacesEmpty)
{
    const std::string whole = read(ZR_BINARY_DIR "/data/images/checkbox-checked.png");
    const struct {
        const char *what;
        std::string bytes;
    } rows[] = {
        {"a text", "not a picture at all\n"},
        {"nothing", ""},
        {"cut off", whole.substr(0, whole.size() / 2)},
        {"another kind", "BM" + std::string(60, '\x7f')},
        {"a broken frame", "\xff\xd8\xff\xe0" + std::string(100, '\x11')},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        spoil("images", [&](const fs::path &folder) {
            write(data / "bad.png", row.bytes);
            for (const auto &file : fs::directory_iterator(ZR_BINARY_DIR "/data/images"))
                fs::create_symlink(data / "bad.png", folder / file.path().filename());
        });
        showAll();
        EXPECT_TRUE(screen->isOpaque(Width / 2, Height / 2));
    }
}
