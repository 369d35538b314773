#include "support/entryscreen.h"

#include <zrtextedit>

using zrtest::EntryScreen;
using zrtest::utf8;

namespace
{

class Area : public ZrTextEdit
{
public:
    explicit Area(ZrWidget *parent) : ZrTextEdit(parent) {}
    ZrRegion painted;

protected:
    void paintEvent(ZrPaintEvent *event) override
    {
        painted += event->region();
        ZrTextEdit::paintEvent(event);
    }
};

ZrString lines(int count)
{
    ZrString text;
    for (int i = 0; i < count; ++i)
        text += (i ? ZrString("\n") : ZrString()) + ZrString("line %1").arg(i);
    return text;
}

class TextEdit : public EntryScreen
{
protected:
    void SetUp() override { area = show(new Area(window.get()), ZrRect(20, 20, 300, 120)); }
    ZrRect repainted()
    {
        screen->settle();
        const ZrRect bounds = area->painted.boundingRect();
        area->painted = ZrRegion();
        return bounds;
    }
    Area *area = nullptr;
};

} // namespace

TEST_F(TextEdit, BeginsAtTheSideOfItsScript)
{
    const int middle = area->width() / 2;
    type("سلام");
    EXPECT_GT(area->cursorRect().left(), middle);
    const int end = area->cursorRect().left();
    key(Zr::Key_Right);
    EXPECT_GT(area->cursorRect().left(), end) << "arrows go where they point";
    EXPECT_EQ(area->cursorPosition(), 3);
    area->setText(ZrString("peace"));
    EXPECT_LT(area->cursorRect().left(), middle);
}

TEST_F(TextEdit, KeysEditAndWalkLines)
{
    const struct {
        int key;
        const char *typed, *text;
        int cursor;
        bool taken;
    } steps[] = {
        {0, "ab", "ab", 2, true},
        {Zr::Key_Enter, "", "ab\n", 3, true},
        {0, "cdef", "ab\ncdef", 7, true},
        {Zr::Key_Up, "", "ab\ncdef", 2, true},   // the shorter line's end
        {Zr::Key_Down, "", "ab\ncdef", 7, true}, // back to where it would like to be
        {Zr::Key_Down, "", "ab\ncdef", 7, false},
        {Zr::Key_Left, "", "ab\ncdef", 6, true},
        {Zr::Key_Backspace, "", "ab\ncdf", 5, true},
        {Zr::Key_Escape, "", "ab\ncdf", 5, false},
    };
    for (const auto &step : steps) {
        EXPECT_EQ(key(step.key, step.typed), step.taken) << step.text;
        EXPECT_EQ(utf8(area->text()), step.text);
        EXPECT_EQ(area->cursorPosition(), step.cursor) << step.text;
    }
}

TEST_F(TextEdit, TheViewFollowsTheCursorAndTheWheel)
{
    area->setText(lines(40));
    EXPECT_TRUE(area->textRect().contains(area->cursorRect()));
    const int end = area->scrollOffset();
    EXPECT_GT(end, 0);
    screen->pointer(100, 60, 0, 120);
    const int up = area->scrollOffset();
    EXPECT_LT(up, end);
    area->setScrollOffset(-5);
    EXPECT_EQ(area->scrollOffset(), 0);
    key(Zr::Key_Up);
    EXPECT_TRUE(area->textRect().contains(area->cursorRect()));
    // A press puts the cursor on the line under it.
    area->setScrollOffset(0);
    screen->click(300, 20 + area->textRect().top() + 2);
    EXPECT_EQ(area->cursorPosition(), 6);
}

TEST_F(TextEdit, AReaderScrollsFromTheBeginning)
{
    area->setReadOnly(true);
    area->setText(lines(40));
    EXPECT_EQ(area->scrollOffset(), 0);
    EXPECT_FALSE(key(Zr::Key_Up)) << "nothing above: the key may leave the field";
    EXPECT_TRUE(key(Zr::Key_Down));
    EXPECT_FALSE(type("x"));
    area->setScrollOffset(1 << 20);
    const int end = area->scrollOffset();
    area->append(ZrString("more"));
    EXPECT_GT(area->scrollOffset(), end) << "who reads the end goes on doing so";
    area->setScrollOffset(0);
    area->append(ZrString("more"));
    EXPECT_EQ(area->scrollOffset(), 0);
}

TEST_F(TextEdit, RepaintsOnlyTheParagraphAndEqualsPaintingAll)
{
    area->setText(ZrString("first\nsecond\nthird\nfourth"));
    area->setCursorPosition(8);
    repainted();
    type("x");
    EXPECT_LT(repainted().height(), 90) << "of 120, with the line above";
    const char *const typed[] = {"a",    " longer words that wrap to more lines",
                                 "\n",   "ที่นี่",
                                 "มุุุุุ",    "é\u0301\u0301\u0301",
                                 "שלום", "b"};
    for (const char *text : typed) {
        area->insert(ZrString(text));
        for (int i = 0; i < 2; ++i) {
            screen->settle();
            const auto parts = screen->picture();
            window->update();
            screen->settle();
            ASSERT_EQ(parts, screen->picture()) << text << (i ? ", deleting" : "");
            area->backspace();
        }
        area->insert(ZrString(text));
        screen->settle();
    }
}
