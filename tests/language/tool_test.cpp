// The tool that checks the packages, on small packages with one fault each.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

class LanguagesTool : public testing::Test
{
protected:
    LanguagesTool() : folder_(testing::TempDir() + "zrlanguages" + std::to_string(getpid()))
    {
        std::filesystem::create_directories(folder_);
        write("widths.txt", "1-9 100 16 # all\n");
        write("tran_english.xml", package(R"(<tr id="1" text="Save"/><tr id="2" text="%1 of %2"/>
            <tr id="200407" text="Deutsch"/>)"));
    }
    ~LanguagesTool() override { std::filesystem::remove_all(folder_); }

    static std::string package(const std::string &texts) { return "<l>" + texts + "</l>"; }
    static std::string german(const std::string &texts, const std::string &name = "Deutsch")
    {
        return package(texts + R"(<tr id="200407" text=")" + name + "\"/>");
    }
    void write(const std::string &file, const std::string &text)
    {
        std::ofstream(folder_ + "/" + file, std::ios::binary) << text;
    }
    int run(const std::string &arguments)
    {
        output.clear();
        FILE *pipe = popen((ZR_LANGUAGES_TOOL " " + arguments + " 2>&1").c_str(), "r");
        char part[512];
        while (fgets(part, sizeof part, pipe))
            output += part;
        const int status = pclose(pipe);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    int check()
    {
        return run("check " + folder_ +
                   " " ZR_BINARY_DIR "/data/font/yahei_arial_gothic_unicode.ttf"
                   " english german");
    }

    std::string folder_;
    std::string output;
};

} // namespace

TEST_F(LanguagesTool, NamesEachFaultInALine)
{
    const std::string good = R"(<tr id="1" text="Sichern"/><tr id="2" text="%2, davon %1"/>)";
    const struct {
        std::string package, told;
    } rows[] = {
        {"<l><tr", "tran_german.xml: is missing or no whole package\n"},
        {german(R"(<tr id="1" text="Sichern"/>)"), "tran_german.xml: 2 is missing: \"%1 of %2\"\n"},
        {german(good + R"(<tr id="3" text="mehr"/>)"),
         "tran_german.xml: 3 is not in tran_english.xml\n"},
        {german(R"(<tr id="1" text="Sichern"/><tr id="2" text="%1 und %1, %10"/>)"),
         "tran_german.xml: 2 has %1 %1 %10 instead of %1 %2\n"},
        {german(good + R"(<tr id="2" text="%1, %2"/>)"), "tran_german.xml: 2 stands twice\n"},
        {package(R"(<tr id="200407" text="Deutsch"/>)" + good),
         "tran_german.xml: 1 stands behind a higher number\n"},
        {german(R"(<tr id="1"/><tr id="2" text="%1 %2 "/>)"),
         "tran_german.xml: 1 has no text\ntran_german.xml: 2 has spaces around its text\n"},
        {german(good, "German"), "tran_german.xml: 200407 is \"German\" instead of \"Deutsch\"\n"},
        {german(R"(<tr id="1" text="&#xE123;"/><tr id="2" text="%1 %2"/>)"),
         "tran_german.xml: 1 has a character that the font lacks: U+E123\n"},
    };
    for (const auto &row : rows) {
        write("tran_german.xml", row.package);
        EXPECT_EQ(check(), 1);
        EXPECT_EQ(output, row.told);
    }
}

TEST_F(LanguagesTool, MeasuresWithTheFontOfTheScreen)
{
    const std::string second = R"(<tr id="2" text="%1, %2"/>)";
    write("tran_german.xml", german(R"(<tr id="1" text="Sichern"/>)" + second));
    EXPECT_EQ(check(), 0);
    EXPECT_EQ(output, "2 languages, 3 texts each\n");
    write("tran_german.xml", german(R"(<tr id="1" text="Die Änderungen sichern"/>)" + second));
    EXPECT_EQ(check(), 1);
    EXPECT_EQ(output.rfind("tran_german.xml: 1 is ", 0), 0u) << output;
    EXPECT_NE(output.find(" wide where 100 fit: \"Die Änderungen sichern\"\n"), std::string::npos);
    write("widths.txt", "1-9 100\n");
    EXPECT_EQ(check(), 1);
    EXPECT_NE(output.find("cannot read \"1-9 100\"\n"), std::string::npos) << output;
}

TEST_F(LanguagesTool, ListsWhatNoSourceNames)
{
    std::filesystem::create_directory(folder_ + "/sources");
    write("sources/text_ids.h", "enum Id {\n    Save = 1, // 2\n};\n");
    EXPECT_EQ(run("unused " + folder_ + " " + folder_ + "/sources"), 0);
    EXPECT_EQ(output, "2 %1 of %2\n200407 Deutsch\n2 of 3 texts are not used yet\n");
    write("sources/table.cpp", "constexpr int TextIds[] = {\n    2, 200407,\n};\n");
    EXPECT_EQ(run("unused " + folder_ + " " + folder_ + "/sources"), 0);
    EXPECT_EQ(output, "0 of 3 texts are not used yet\n");
    EXPECT_EQ(run("check " + folder_), 2);
}
