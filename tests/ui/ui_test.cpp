#include <gtest/gtest.h>

#include "ui/messageroutes.h"
#include "ui/scale.h"
#include "ui/startuptimer.h"
#include "ui/stringtable.h"
#include "ui/text_ids.h"

#include <fstream>
#include <set>
#include <tinyxml.h>

TEST(Ui, StartUpTakesLongerWithMoreCameras)
{
    const struct {
        int cameras, ms;
    } rows[] = {{0, 4000}, {1, 4172}, {8, 5380}, {64, 15040}};
    for (const auto &row : rows)
        EXPECT_EQ(startupDelayMs(row.cameras), row.ms) << row.cameras;
}

TEST(Ui, DesignUnitsBecomeTheNearestPixel)
{
    setScreenScale(1920, 1080);
    EXPECT_EQ(unitsX(10), 15);
    EXPECT_EQ(unitsY(5), 8) << "7.5 goes up";
    setScreenScale(1280, 1024);
    EXPECT_EQ(fontUnits(20), 20) << "text keeps its shape on a square screen";
    EXPECT_EQ(unitsY(90), 128);
    setScreenScale(1280, 720);
}

TEST(Ui, TheStringTableOfFewerTextsStillHasAllItsPlaces)
{
    ZrList<ZrString> texts;
    texts.append(ZrString("Grün"));
    texts.append(ZrString("b"));
    const std::vector<unsigned char> body = encodeStringTable(texts);
    ASSERT_EQ(body.size(), 284u + 6 + 2 + 69);
    EXPECT_EQ(body[4], 6) << "the second text begins behind the first and its zero";
    EXPECT_EQ(body[284 + 6], 'b');
}

TEST(Ui, MessagesGoToTheirSubjects)
{
    const struct {
        std::uint16_t main, sub;
        int event; // 0 for nobody
    } rows[] = {{100, 0, LiveViewEvent},
                {100, 65535, LiveViewEvent},
                {1000, 56, CameraStatusEvent},
                {1000, 19, CameraStatusEvent},
                {1000, 138, 0},
                {600, 0, 0},
                {12, 0, 0}};
    for (const auto &row : rows) {
        const MessageRoute *route = findRoute(row.main, row.sub);
        EXPECT_EQ(route ? route->event : 0, row.event) << row.main << "/" << row.sub;
    }
}

namespace
{

// The ids that the header names, read from its lines.
std::set<int> namedIds()
{
    std::set<int> ids;
    std::ifstream header(ZR_SOURCE_DIR "/src/ui/text_ids.h");
    for (std::string line; std::getline(header, line);) {
        const std::size_t equals = line.find(" = ");
        if (equals != std::string::npos)
            ids.insert(std::atoi(line.c_str() + equals + 3));
    }
    return ids;
}

} // namespace

TEST(Texts, EveryNameHasItsTextInEnglish)
{
    TiXmlDocument document;
    ASSERT_TRUE(document.LoadFile(ZR_SOURCE_DIR "/language/tran_english.xml"));
    std::set<int> translated;
    for (const TiXmlElement *text = document.RootElement()->FirstChildElement("tr"); text;
         text = text->NextSiblingElement("tr")) {
        int id = -1;
        text->QueryIntAttribute("id", &id);
        EXPECT_TRUE(translated.insert(id).second) << id << " stands twice";
        EXPECT_STRNE(text->Attribute("text"), "") << id;
    }
    const std::set<int> ids = namedIds();
    ASSERT_TRUE(ids.count(Text::NoVideo));
    for (const int id : ids)
        EXPECT_TRUE(translated.count(id)) << id;
}
