#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <zrinifile>

namespace
{

constexpr double TextContrast = 4.5;
constexpr double FocusContrast = 3;
constexpr double StateContrast = 1.25; // told apart without seeing hues
constexpr int ColorStep = 8;           // what a 5-bit channel shows as it is

// Where text without a ground of its own may stand: screens, panels, fields.
const ZrColor PlainGrounds[] = {{8, 16, 24}, {24, 32, 40}, {32, 40, 48}};

struct StyleFile {
    std::string name;
    std::vector<std::string> lines;
    ZrIniFile file;
    std::vector<std::string> keys;

    bool has(const std::string &key) const { return file.contains(ZrString(key.c_str())); }
    ZrColor color(const std::string &key) const { return file.colorValue(ZrString(key.c_str())); }
};

StyleFile readStyle(const std::filesystem::path &path)
{
    StyleFile style{path.filename().string(), {}, ZrIniFile(path.c_str()), {}};
    std::ifstream text(path);
    for (std::string line; std::getline(text, line);)
        style.lines.push_back(line);
    for (auto it = style.file.values().begin(); it != style.file.values().end(); ++it)
        style.keys.push_back(it.key().toUtf8().constData());
    return style;
}

const std::vector<StyleFile> &styles()
{
    static const std::vector<StyleFile> all = [] {
        std::vector<StyleFile> files;
        for (const auto &file : std::filesystem::directory_iterator(ZR_SOURCE_DIR "/style")) {
            if (file.path().extension() == ".ini")
                files.push_back(readStyle(file.path()));
        }
        return files;
    }();
    return all;
}

// Relative luminance and contrast as WCAG 2.1 defines them.
double luminance(const ZrColor &color)
{
    const auto linear = [](int channel) {
        const double part = channel / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) +
           0.0722 * linear(color.blue());
}

double contrast(const ZrColor &a, const ZrColor &b)
{
    const double first = luminance(a), second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

// The key with the last of these words as another one; empty when it has none of them.
std::string replaced(std::string key, std::initializer_list<const char *> words, const char *other)
{
    for (const std::string word : words) {
        const std::size_t at = key.rfind(word);
        if (at != std::string::npos)
            return key.replace(at, word.size(), other);
    }
    return {};
}

// The ground that the text of this key stands on: that of the same part and state, else of the
// part at rest, else of what the part lies in.
std::vector<ZrColor> groundsOf(const StyleFile &style, const std::string &key)
{
    const std::string same = replaced(key, {"SubForeground", "Foreground"}, "Background");
    if (style.has(same))
        return {style.color(same)};
    std::string part = same.substr(0, same.rfind("Background"));
    while (!part.empty()) {
        for (const char *ground : {"Background", "Background/Normal"}) {
            if (style.has(part + ground))
                return {style.color(part + ground)};
        }
        part.pop_back();
        part.resize(part.rfind('/') + 1);
    }
    return {std::begin(PlainGrounds), std::end(PlainGrounds)};
}

// The border of a state that has one; a missing or transparent one is none.
std::optional<ZrColor> borderOf(const StyleFile &style, const std::string &key)
{
    if (!style.has(key) || style.color(key).alpha() == 0)
        return std::nullopt;
    return style.color(key);
}

// How far two states of a control are apart without their hues: the part that differs most. None
// when the control lacks one of the states.
std::optional<double> stateContrast(const StyleFile &style, const std::string &control,
                                    const std::string &one, const std::string &other)
{
    std::optional<double> best;
    for (const std::string part : {"Foreground/", "Background/", "Slider/"}) {
        const std::string a = control + part + one, b = control + part + other;
        if (style.has(a) && style.has(b))
            best = std::max(best.value_or(0), contrast(style.color(a), style.color(b)));
    }
    const std::string border =
        control + (style.has(control + "BorderColor/Focus") ? "BorderColor/" : "Border/");
    const auto a = borderOf(style, border + one);
    const auto b = borderOf(style, border + other);
    if (a && b)
        best = std::max(best.value_or(0), contrast(*a, *b));
    const bool hasBar =
        style.has(control + "Bar/Color") && (one == "Current" || other == "Current");
    if (best && (bool(a) != bool(b) || hasBar))
        best = std::max(*best, FocusContrast);
    return best;
}

// Their pictures tell hover, and the arrow of a combo box is part of the field about it.
bool isToldByPictures(const std::string &control)
{
    return control == "ZrCheckBox/" || control == "ZrRadioButton/" ||
           control == "ZrComboBox/DropDown/";
}

// What the file has at rest: the keys that end so, without that ending.
std::set<std::string> controlsOf(const StyleFile &style)
{
    std::set<std::string> controls;
    for (const std::string &key : style.keys) {
        for (const std::string part : {"Foreground/Normal", "Background/Normal", "Border/Normal"}) {
            if (key.size() > part.size() && key.rfind(part) == key.size() - part.size())
                controls.insert(key.substr(0, key.size() - part.size()));
        }
    }
    return controls;
}

bool isText(const std::string &key)
{
    return key.find("Foreground") != std::string::npos;
}

} // namespace

TEST(Style, EveryLineIsAKeyOfItsOwnOrASectionOrARemark)
{
    ASSERT_EQ(styles().size(), 23u);
    for (const StyleFile &style : styles()) {
        std::size_t keys = 0;
        for (const std::string &line : style.lines) {
            const bool isRemark = line[0] == ';' && line.find_first_of("[=") == std::string::npos;
            const bool isKey = line[0] != ';' && line.find(" = ") != std::string::npos;
            EXPECT_TRUE(isKey || isRemark || line.empty() || line[0] == '[')
                << style.name << ": " << line;
            keys += isKey;
        }
        EXPECT_EQ(style.keys.size(), keys) << style.name << " repeats a key";
    }
}

TEST(Style, ColoursAreShownAsTheyAreByFiveBits)
{
    for (const StyleFile &style : styles()) {
        for (const std::string &key : style.keys) {
            SCOPED_TRACE(style.name + " " + key);
            const std::string value = style.file.value(ZrString(key.c_str())).toUtf8().constData();
            if (value[0] != 'r') {
                EXPECT_EQ(value.find_first_not_of("0123456789"), std::string::npos);
                continue;
            }
            const ZrColor color = style.color(key);
            for (const int channel : {color.red(), color.green(), color.blue()})
                EXPECT_EQ(channel % ColorStep, 0);
            EXPECT_TRUE(color.alpha() == 255 || value == "rgba(0, 0, 0, 0)") << "half transparent";
        }
    }
}

TEST(Style, TextReadsOnItsGround)
{
    for (const StyleFile &style : styles()) {
        for (const std::string &key : style.keys) {
            if (!isText(key))
                continue;
            for (const ZrColor &ground : groundsOf(style, key))
                EXPECT_GE(contrast(style.color(key), ground), TextContrast)
                    << style.name << " " << key << " on " << ground.red() << ", " << ground.green()
                    << ", " << ground.blue();
        }
    }
}

// Texts whose keys do not pair by their names.
TEST(Style, TextReadsOnTheGroundsOfOtherNames)
{
    struct Pair {
        const char *file, *text, *ground;
    };
    constexpr Pair Pairs[] = {
        {"commonstyle.ini", "ZrProgressBar/Foreground", "ZrProgressBar/Chunk"},
        {"backuptoolbar.ini", "ZrProgressBar/Foreground", "ZrProgressBar/Chunk"},
        {"commonstyle.ini", "Common/Foreground/Dim", "Common/Background/Raised"},
        {"commonstyle.ini", "Common/Foreground/Disabled", "Common/Background/Raised"},
        {"commonstyle.ini", "Common/Good/Color", "Common/Background/Raised"},
        {"commonstyle.ini", "Common/Warning/Color", "Common/Background/Raised"},
        {"commonstyle.ini", "Common/Bad/Color", "Common/Background/Raised"},
        {"commonstyle.ini", "Common/Accent/Light", "Common/Background/Current"},
        {"settingstile.ini", "TileItem/MainText/Color", "TileItem/Background_0"},
        {"settingstile.ini", "TileItem/SubText/Color", "TileItem/Background_7"},
        {"settingstile.ini", "TileItem/MainText/HoverColor", "TileItem/HoverBackground"},
        {"settingstile.ini", "TileItem/SubText/HoverColor", "TileItem/HoverBackground"},
        {"playback.ini", "EventTable/Foreground/Normal", "EventTable/AlternateBackground"},
        {"mainview.ini", "AlarmInfoPanel/Row/SubForeground", "AlarmInfoPanel/Row/Background/Focus"},
    };
    for (const Pair &pair : Pairs) {
        const auto style =
            std::find_if(styles().begin(), styles().end(),
                         [&](const StyleFile &file) { return file.name == pair.file; });
        ASSERT_NE(style, styles().end()) << pair.file;
        ASSERT_TRUE(style->has(pair.text) && style->has(pair.ground)) << pair.text;
        EXPECT_GE(contrast(style->color(pair.text), style->color(pair.ground)), TextContrast)
            << pair.file << " " << pair.text << " on " << pair.ground;
    }
}

TEST(Style, FocusIsSeenFromAfar)
{
    for (const StyleFile &style : styles()) {
        for (const std::string &key : style.keys) {
            const bool isRing =
                key.find("Border") != std::string::npos && key.find("Width") == std::string::npos &&
                key.find("Focus") != std::string::npos && key.find("DropDown") == std::string::npos;
            for (const std::string &beside :
                 {replaced(key, {"Focus"}, "Normal"),
                  replaced(key, {"BorderColor", "Border"}, "Background")}) {
                if (!isRing || !style.has(beside) || style.color(beside).alpha() == 0)
                    continue;
                EXPECT_GE(contrast(style.color(key), style.color(beside)), FocusContrast)
                    << style.name << " " << key << " beside " << beside;
            }
        }
    }
}

TEST(Style, StatesAreToldByMoreThanHue)
{
    constexpr const char *States[] = {"Normal", "Hover", "Focus", "Disabled", "Current"};
    for (const StyleFile &style : styles()) {
        for (const std::string &control : controlsOf(style)) {
            if (isToldByPictures(control))
                continue;
            for (const char *one : States) {
                for (const char *other : States) {
                    const auto apart =
                        one == other ? std::nullopt : stateContrast(style, control, one, other);
                    EXPECT_GE(apart.value_or(StateContrast), StateContrast)
                        << style.name << " " << control << " " << one << " and " << other;
                }
            }
        }
    }
}
