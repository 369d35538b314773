// The gallery's pictures beside those in gallery/golden. One that differs is written beside
// the golden one as NAME.new.png; to accept it, move it over.
#include "shots.h"

#include "widgets/zrinstallwidgets.h"

#include <cstring>
#include <filesystem>
#include <set>
#include <string>
#include <zrapplication>
#include <zrfontmetrics>
#include <zrgraphics>
#include <zrimage>
#include <zrstyle>

namespace
{

namespace fs = std::filesystem;

const fs::path GoldenFolder = ZR_SOURCE_DIR "/gallery/golden";

class GalleryGolden : public testing::Test
{
protected:
    GalleryGolden() : before_(fs::current_path())
    {
        fs::current_path(ZR_BINARY_DIR "/data");
        std::string name = fs::temp_directory_path() / "zr-shots-XXXXXX";
        folder = mkdtemp(name.data());
        zrInstallGraphics();
        zrInstallWidgets();
        ZrApplication::parts().makePointer = nullptr;
        EXPECT_TRUE(ZrFontMetrics::setFontFile("font/yahei_arial_gothic_unicode.ttf", 5 << 20));
    }
    ~GalleryGolden() override
    {
        ZrStyle::applicationStyle() = ZrStyle();
        fs::remove_all(folder);
        fs::current_path(before_);
    }

    void compare(const fs::path &shot) const
    {
        const fs::path golden = GoldenFolder / shot.filename();
        if (isSame(shot, golden))
            return;
        ADD_FAILURE() << golden << " differs, or is not there";
        fs::copy_file(shot, fs::path(golden).replace_extension(".new.png"),
                      fs::copy_options::overwrite_existing);
    }

    fs::path folder;

private:
    static bool isSame(const fs::path &shot, const fs::path &golden)
    {
        if (!fs::exists(golden))
            return false;
        const ZrImage actual(shot.c_str());
        const ZrImage expected(golden.c_str());
        return actual.width() == expected.width() && actual.height() == expected.height() &&
               std::memcmp(actual.bits(), expected.bits(),
                           std::size_t(actual.width()) * std::size_t(actual.height()) * 4) == 0;
    }

    fs::path before_;
};

} // namespace

TEST_F(GalleryGolden, EveryPageInEnglish)
{
    ASSERT_TRUE(takeShots(folder.string(), {"", "english"}));
    std::set<fs::path> taken;
    for (const auto &shot : fs::directory_iterator(folder)) {
        compare(shot.path());
        taken.insert(shot.path().filename());
    }
    for (const auto &golden : fs::directory_iterator(GoldenFolder)) {
        const std::string name = golden.path().filename();
        if (name.find("-english-") != std::string::npos &&
            name.find(".new.") == std::string::npos) {
            EXPECT_TRUE(taken.count(name)) << name << " is shown no more";
        }
    }
}

TEST_F(GalleryGolden, OnePageInEachLanguage)
{
    ASSERT_TRUE(takeShots(folder.string(), {"labels", ""}));
    for (const auto &shot : fs::directory_iterator(folder)) {
        if (shot.path().filename().string().find("-1280x720") != std::string::npos)
            compare(shot.path());
    }
}
