// The translator: which language it takes, what it tells, and whom.
#include "language/translatorapp.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>
#include <zrtranslation>

namespace
{

constexpr std::uint32_t Chinese = 0, Czech = 2, English = 4, German = 7, Ukrainian = 32,
                        Slovak = 33;
const char *const NoPackage = "No language package found !!!\n";

class TranslationTest : public testing::Test
{
protected:
    TranslationTest()
        : home_(std::filesystem::current_path()),
          folder_(testing::TempDir() + "zrtranslation" + std::to_string(getpid()))
    {
        std::filesystem::create_directory(folder_);
        std::filesystem::current_path(folder_);
        ZrList<ZrString> files;
        ZrTranslation::languageFiles(&files);
        for (const ZrString &file : files)
            names_.push_back(file.toUtf8().constData());
    }
    ~TranslationTest() override
    {
        std::filesystem::current_path(home_);
        std::filesystem::remove_all(folder_);
    }

    std::string path(std::uint32_t language) const { return "./language/" + names_[language]; }
    void write(std::uint32_t language, const std::string &document)
    {
        std::ofstream(path(language), std::ios::binary) << document;
    }
    // Packages of these languages and no others; text 1 is the language's own number.
    void offer(const std::vector<std::uint32_t> &languages)
    {
        std::filesystem::remove_all("language");
        std::filesystem::create_directory("language");
        for (const std::uint32_t language : languages)
            write(language, "<l><tr id=\"1\" text=\"" + std::to_string(language) + "\"/></l>");
    }

    std::filesystem::path home_;
    std::string folder_;
    std::vector<std::string> names_;
};

// With a translator, and an App that holds the device's parameters.
class TranslatorTest : public TranslationTest
{
protected:
    TranslatorTest() : app_(folder_ + "/app") {}

    // The first of these languages is configured, and there is a package for each.
    ZrTranslation *start(const std::vector<std::uint32_t> &languages)
    {
        offer(languages);
        app_.configure(languages.front(), 0, 0);
        ZrTranslation::createTranslation(&application_);
        return ZrTranslation::instance();
    }
    // No language is current then; the texts stay.
    void forgetLanguage()
    {
        testing::internal::CaptureStdout();
        ZrTranslation::instance()->setLanguage(ZrTranslation::NoLanguage);
        testing::internal::GetCapturedStdout();
    }

    TranslatorApp app_;
    ZrObject application_;
};

// A window that takes its text anew.
struct Window : ZrObject {
    explicit Window(ZrTranslation *translation)
    {
        connect(translation, &translation->languageChanged, this, zrSlot<&Window::retranslate>);
    }
    void retranslate()
    {
        ++times;
        text = tr(1);
    }
    int times = 0;
    ZrString text;
};

} // namespace

TEST_F(TranslatorTest, TextsAreEmptyBeforeAnyLoadAndWhenUnknown)
{
    EXPECT_TRUE(tr(1).isEmpty());
    start({English});
    EXPECT_TRUE(tr(1) == ZrString("4"));
    for (const int id : {0, 2, -1, 1 << 30})
        EXPECT_TRUE(tr(id).isEmpty()) << id;
}

TEST_F(TranslationTest, FilesAreNamedAfterTheNumbersOfTheLanguages)
{
    ASSERT_EQ(names_.size(), 34u);
    EXPECT_EQ(names_[Chinese], "tran_chinese.xml");
    EXPECT_EQ(names_[English], "tran_english.xml");
    EXPECT_EQ(names_[22], "tran_hindi.xml");
    EXPECT_EQ(names_[Slovak], "tran_slovak.xml");
    std::sort(names_.begin(), names_.end());
    EXPECT_EQ(std::adjacent_find(names_.begin(), names_.end()), names_.end());
}

TEST_F(TranslationTest, MasksThatLeaveNothingAreIgnored)
{
    constexpr std::uint32_t all = 0xFFFFFFFF;
    const struct {
        std::vector<std::uint32_t> files;
        std::uint32_t low, high, lowFound, highFound;
    } rows[] = {
        {{}, 0, 0, 0, 0},
        {{}, all, all, 0, 0},
        {{English, German}, 0, 0, 0x90, 0},
        {{English, German}, all, all, 0x90, 0},
        {{English, German}, 0x10, 0, 0x10, 0},
        {{English, German}, 0x13, 1, 0x10, 0},
        {{English, German}, 0x03, 0, 0x90, 0},          // none of these: all
        {{Chinese, 31, Ukrainian, Slovak}, 1, 2, 1, 2}, // each mask by itself
        {{Chinese, 31, Ukrainian, Slovak}, 2, 4, 1 | 1u << 31, 3},
        {{Slovak}, all, 1, 0, 2},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        offer(rows[i].files);
        std::uint32_t low = rows[i].low, high = rows[i].high;
        ZrTranslation::availableLanguages(&low, &high);
        EXPECT_EQ(low, rows[i].lowFound) << "row " << i;
        EXPECT_EQ(high, rows[i].highFound) << "row " << i;
    }
}

TEST_F(TranslatorTest, TheConfiguredLanguageOrTheLowestAllowedIsTaken)
{
    const struct {
        const char *what;
        std::vector<std::uint32_t> files;
        std::uint32_t language, low, high;
        std::uint32_t taken;
        bool isStored;
        std::uint32_t lowStored, highStored;
        const char *printed;
    } rows[] = {
        {"allowed", {English, German}, German, 0x90, 0, German, false, 0, 0, ""},
        {"no masks", {English, German}, German, 0, 0, German, false, 0, 0, ""},
        {"in the high mask", {English, Slovak}, Slovak, 0, 2, Slovak, false, 0, 0, ""},
        {"no file", {English, German}, Czech, 0xFF, 3, English, true, 0x90, 3, ""},
        {"not allowed", {English, German}, English, 0x80, 3, German, true, 0x80, 3, ""},
        {"a mask of others", {English, German}, Czech, 4, 0, English, true, 0x90, 0, ""},
        {"only high ones", {Ukrainian, Slovak}, English, 0x10, 2, Slovak, true, 0x10, 2, ""},
        {"the lowest high one", {Ukrainian, Slovak}, English, 0, 0, Ukrainian, true, 0, 3, ""},
        {"beyond the list", {German}, 99, 0, 0, German, true, 0x80, 0, ""},
        {"none at all", {}, English, 0x10, 0, English, false, 0, 0, NoPackage},
        {"none, beyond the list", {}, 99, 0, 0, 99, false, 0, 0, NoPackage},
    };
    ZrTranslation *translation = start({Czech});
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        forgetLanguage();
        offer(row.files);
        const ZrString textBefore = tr(1);
        app_.configure(row.language, row.low, row.high);
        app_.app().forgetReceived();
        testing::internal::CaptureStdout();
        translation->loadConfiguredLanguage();
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.printed);
        EXPECT_EQ(translation->currentLanguage(), row.taken);
        EXPECT_TRUE(tr(1) == (row.files.empty() ? textBefore : ZrString::number(int(row.taken))));
        readGeneralParams(); // behind a write, if there is one
        const SimApp::Messages messages = app_.app().received();
        ASSERT_EQ(messages.size(), row.isStored ? 3u : 2u);
        if (!row.isStored)
            continue;
        const GeneralParams stored = readGeneralParams();
        EXPECT_EQ(stored.language, row.taken);
        EXPECT_EQ(stored.languageMask, row.lowStored);
        EXPECT_EQ(stored.extendedLanguageMask, row.highStored);
        EXPECT_EQ(stored.bytes[100], 42);
    }
}

TEST_F(TranslatorTest, AFailureIsToldOnceAndLeavesTheTexts)
{
    ZrTranslation *translation = start({English});
    Window window(translation);
    write(Czech, "");
    write(German, "<l><tr id=\"1\" text=\"no\"/>"); // cut off
    std::filesystem::create_directory(path(Slovak));
    const auto failed = [](const std::string &file) {
        return "Translation file " + file + " load failed !!!\n";
    };
    const struct {
        std::uint32_t language;
        std::string printed;
    } rows[] = {{ZrTranslation::NoLanguage, NoPackage},
                {35, NoPackage},
                {0xFFFFFFFF, NoPackage},
                {Chinese, NoPackage},
                {Czech, failed(path(Czech))},
                {German, failed(path(German))},
                {Slovak, failed(path(Slovak))}};
    for (const auto &row : rows) {
        testing::internal::CaptureStdout();
        translation->setLanguage(row.language);
        translation->setLanguage(row.language);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.printed);
        EXPECT_EQ(translation->currentLanguage(), row.language);
        EXPECT_TRUE(tr(1) == ZrString("4"));
    }
    EXPECT_EQ(window.times, 0);
}

TEST_F(TranslatorTest, WindowsHearOfAChangeWhenTheTextsAreThere)
{
    ZrTranslation *translation = start({English, German});
    ZrTranslation::createTranslation(&application_); // does nothing
    Window window(translation);
    translation->setLanguage(English);
    EXPECT_EQ(window.times, 0);
    translation->setLanguage(German);
    EXPECT_EQ(window.times, 1);
    EXPECT_TRUE(window.text == ZrString("7"));
    // As when App has sent the general parameters anew.
    app_.configure(English, 0, 0);
    translation->loadConfiguredLanguage();
    EXPECT_EQ(window.times, 2);
    EXPECT_TRUE(window.text == ZrString("4"));
    translation->loadConfiguredLanguage();
    EXPECT_EQ(window.times, 2);
}
