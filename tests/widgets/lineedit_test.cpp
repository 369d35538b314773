#include "support/entryscreen.h"

#include <zrlineedit>
#include <zrpaintdevice>
#include <zrwipe>

using zrtest::EntryScreen;
using zrtest::utf8;

namespace
{

constexpr int Back = Zr::Key_Backspace;
constexpr int Left = Zr::Key_Left;
constexpr int Right = Zr::Key_Right;

// Counts, and remembers where it was painted.
class Field : public ZrLineEdit
{
public:
    explicit Field(ZrWidget *parent) : ZrLineEdit(parent)
    {
        connect(this, &textChanged, this, zrSlot<&Field::countChange>);
        connect(this, &committed, this, zrSlot<&Field::countCommit>);
    }
    int changes = 0;
    int commits = 0;
    int clicks = 0;
    ZrRegion painted;

protected:
    void clicked() override { clicks++; }
    void paintEvent(ZrPaintEvent *event) override
    {
        painted += event->region();
        ZrLineEdit::paintEvent(event);
    }

private:
    void countChange() { changes++; }
    void countCommit() { commits++; }
};

class LineEdit : public EntryScreen
{
protected:
    void SetUp() override { field = show(new Field(window.get()), ZrRect(20, 20, 200, 36)); }
    ZrRect repainted()
    {
        const ZrRect bounds = field->painted.boundingRect();
        field->painted = ZrRegion();
        return bounds;
    }
    Field *field = nullptr;
};

} // namespace

TEST_F(LineEdit, MovesAndDeletesByCluster)
{
    const struct {
        const char *what, *text;
        std::vector<int> stops; // cursor positions that Left reaches from the end
        const char *withoutLast;
    } rows[] = {
        {"Latin", "abc", {2, 1, 0}, "ab"},    {"Thai", "ที่นี่", {3, 0}, "ที่"},
        {"Hindi", "हिन्दी", {4, 2, 0}, "हिन्"}, {"a pair", "a\xF0\x9F\x98\x80", {1, 0}, "a"},
        {"Hangul", "한글", {1, 0}, "한"},
    };
    for (const auto &row : rows) {
        field->setText(ZrString(row.text));
        std::vector<int> stops;
        while (key(Left))
            stops.push_back(field->cursorPosition());
        EXPECT_EQ(stops, row.stops) << row.what;
        field->setCursorPosition(field->text().size());
        key(Back);
        EXPECT_EQ(utf8(field->text()), row.withoutLast) << row.what;
    }
}

TEST_F(LineEdit, ArrowsPointWhereTheyGoInRightToLeftText)
{
    field->setText(ZrString("שלום"));
    EXPECT_EQ(field->cursorPosition(), 4);
    const int atEnd = field->cursorRect().left();
    EXPECT_FALSE(key(Left)) << "the end of the text is its left end";
    EXPECT_TRUE(key(Right));
    EXPECT_EQ(field->cursorPosition(), 3);
    EXPECT_GT(field->cursorRect().left(), atEnd);
    // The text begins at the right edge.
    field->setCursorPosition(0);
    EXPECT_GE(field->cursorRect().right(), field->textRect().right() - 2);
}

TEST_F(LineEdit, KeepsToItsLimits)
{
    const struct {
        const char *what;
        int characters, bytes;
        const char *set, *before, *typed, *after;
    } rows[] = {
        {"characters", 3, 0, nullptr, "", "abcd", "abc"},
        {"a pair is one character", 2, 0, nullptr, "", "\xF0\x9F\x98\x80yz", "\xF0\x9F\x98\x80y"},
        {"bytes", 0, 5, nullptr, "", "äöü", "äö"},
        {"what is there counts", 0, 5, nullptr, "äö", "x", "äöx"},
        {"and fills it", 4, 0, nullptr, "abcd", "x", "abcd"},
        {"a set", 0, 0, "0-9A-F:", "", "1g:Fz", "1:F"},
        {"a dash that ends a set", 0, 0, "a-c-", "", "b-d", "b-"},
        {"no control characters", 0, 0, nullptr, "", "a\tb\nc\x7F", "abc"},
    };
    for (const auto &row : rows) {
        Field limited(window.get());
        limited.setMaxLength(row.characters);
        limited.setMaxBytes(row.bytes);
        if (row.set)
            limited.setAllowedCharacters(ZrCharacterSet(ZrString(row.set)));
        limited.setText(ZrString(row.before));
        limited.insert(ZrString(row.typed));
        EXPECT_EQ(utf8(limited.text()), row.after) << row.what;
    }
}

TEST_F(LineEdit, TypingReplacesTheSelection)
{
    field->setText(ZrString("one two"));
    field->setSelection(4, 7);
    type("2");
    EXPECT_EQ(utf8(field->text()), "one 2");
    field->selectAll();
    key(Back);
    EXPECT_TRUE(field->isEmpty());
    // A double click selects all, a drag what lies between.
    field->setText(ZrString("abcdef"));
    const int y = 38;
    screen->pointer(25, y);
    screen->pointer(25, y, 1);
    screen->pointer(210, y, 1);
    screen->pointer(210, y, 0);
    EXPECT_EQ(field->selectionEnd() - field->selectionStart(), 6);
    EXPECT_EQ(field->clicks, 0) << "a selection is no click";
    screen->pass(1000);
    screen->click(215, y);
    EXPECT_EQ(field->clicks, 1);
    EXPECT_FALSE(field->hasSelection());
}

TEST_F(LineEdit, EmitsOnceAChangeAndLeavesOtherKeys)
{
    field->setText(ZrString("a"));
    field->setText(ZrString("a"));
    EXPECT_EQ(field->changes, 1);
    EXPECT_FALSE(key(Zr::Key_Up));
    EXPECT_FALSE(key(Zr::Key_Escape));
    EXPECT_TRUE(key(Zr::Key_Enter));
    EXPECT_EQ(field->commits, 1);
    field->setReadOnly(true);
    EXPECT_FALSE(type("b"));
    EXPECT_EQ(utf8(field->text()), "a");
    EXPECT_TRUE(field->cursorRect().isEmpty());
}

TEST_F(LineEdit, LongTextScrollsAndRestsAtItsBeginning)
{
    field->setText(ZrString(80, ZrUcs2('m')));
    const ZrRect area = field->textRect();
    for (int i = 0; i < 80; ++i) {
        EXPECT_TRUE(area.contains(field->cursorRect())) << field->cursorPosition();
        key(Left);
    }
    EXPECT_EQ(field->textOrigin().x(), area.left());
    field->setCursorPosition(80);
    EXPECT_LT(field->textOrigin().x(), area.left());
    auto *other = show(new Field(window.get()), ZrRect(20, 80, 200, 36));
    EXPECT_TRUE(other->hasFocus());
    EXPECT_EQ(field->textOrigin().x(), area.left());
}

TEST_F(LineEdit, RepaintsOnlyFromTheChange)
{
    field->setText(ZrString("abcdefgh"));
    screen->settle();
    repainted();
    const int end = field->cursorRect().left();
    type("i");
    const ZrRect typed = repainted();
    EXPECT_LT(typed.width(), 60) << "one letter at the end of eight";
    EXPECT_TRUE(typed.contains(ZrPoint(end, 18)));
    screen->pass(ZrLineEdit::BlinkMs);
    EXPECT_EQ(repainted().width(), 2) << "the cursor alone blinks";
    key(Left);
    EXPECT_LT(repainted().width(), 30);
}

TEST_F(LineEdit, RepaintingAPartEqualsPaintingAll)
{
    const char *const texts[] = {"abc",         "ffi fi", "क्षत्रि", "ที่นี่",
                                 "abc שלום 12", "سلام",   "kี่ี่",     "Zี่\u0301"};
    for (const char *text : texts) {
        field->setText(ZrString());
        const ZrString all(text);
        for (int i = 0; i < all.size(); ++i) {
            field->insert(all.mid(i, 1));
            if (i % 3 == 2)
                field->setSelection(i / 2, i);
            screen->settle();
            const auto parts = screen->picture();
            window->update();
            screen->settle();
            ASSERT_EQ(parts, screen->picture()) << text << " after unit " << i;
            field->setCursorPosition(i + 1);
        }
        while (!field->isEmpty()) {
            key(Back);
            const auto parts = screen->picture();
            window->update();
            screen->settle();
            ASSERT_EQ(parts, screen->picture()) << text << ", deleting";
        }
    }
}

TEST_F(LineEdit, AnEmptyFieldsCursorStandsWhereItsHintBegins)
{
    field->setHint(ZrString("name"));
    EXPECT_EQ(field->cursorRect().left(), field->textRect().left());
    field->setHint(ZrString("اسم"));
    EXPECT_EQ(field->cursorRect().right(), field->textRect().right());
    type("a");
    EXPECT_LT(field->cursorRect().right(), field->width() / 2) << "the text's own side";
}

TEST_F(LineEdit, APasswordShowsItsLastCharacterBriefly)
{
    field->setEchoMode(ZrLineEdit::Password);
    type("a");
    type("b");
    EXPECT_EQ(utf8(field->shownText()), "•b");
    screen->pass(ZrLineEdit::RevealMs);
    EXPECT_EQ(utf8(field->shownText()), "••");
    type("\xF0\x9F\x98\x80");
    EXPECT_EQ(utf8(field->shownText()), "••\xF0\x9F\x98\x80");
    EXPECT_EQ(field->cursorPosition(), 4);
    key(Left);
    EXPECT_EQ(field->cursorPosition(), 2);
    key(Right);
    key(Back);
    EXPECT_EQ(utf8(field->text()), "ab");
    // Neither a mark, which would join its neighbour, nor a text set by the program shows.
    type("\u0e34");
    EXPECT_EQ(utf8(field->shownText()), "•••");
    field->setText(ZrString("secret"));
    EXPECT_EQ(utf8(field->shownText()), "••••••");
    field->setMaxLength(4);
    EXPECT_EQ(utf8(field->text()), "secr");
    field->setMaxLength(0);
    field->setText(ZrString("secret"));
    // Leaving the field hides what shows.
    type("!");
    show(new Field(window.get()), ZrRect(20, 80, 200, 36));
    EXPECT_EQ(utf8(field->shownText()), "•••••••");
}

TEST(Wipe, LeavesNothingInSharedBodiesAndFreedMemory)
{
    ZrString secret("secret");
    const ZrString copy = secret;
    zrWipe(secret);
    EXPECT_TRUE(secret.isEmpty());
    for (int i = 0; i < copy.size(); ++i)
        EXPECT_EQ(copy.at(i), 0) << i;
    ZrString nothing;
    zrWipe(nothing);
    EXPECT_TRUE(ZrString().isEmpty());
    EXPECT_EQ(ZrString().constData()[0], 0);
}

namespace
{

struct Killer : ZrObject {
    void kill(ZrObject *sender) { delete sender; }
};

} // namespace

TEST_F(LineEdit, AHandlerMayDeleteTheField)
{
    Killer killer;
    using Act = void (*)(LineEdit &);
    const Act acts[] = {
        [](LineEdit &test) { test.key(0, "x"); },
        [](LineEdit &test) { test.key(Zr::Key_Enter); },
    };
    for (const Act act : acts) {
        auto *doomed = show(new ZrLineEdit(window.get()), ZrRect(20, 80, 200, 36));
        ZrObject::connect(doomed, &doomed->textChanged, &killer, zrSlot<&Killer::kill>);
        ZrObject::connect(doomed, &doomed->committed, &killer, zrSlot<&Killer::kill>);
        const int before = window->children().size();
        act(*this);
        EXPECT_EQ(window->children().size(), before - 1);
    }
}
