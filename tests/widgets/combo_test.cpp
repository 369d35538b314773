// Combo boxes and their pop-up.
#include "support/entryscreen.h"
#include "support/signallog.h"

#include <zrcombobox>
#include <zrguard>
#include <zrinnerlistwidget>

using zrtest::SignalLog;
using zrtest::utf8;

namespace
{

constexpr ZrRect Place(20, 20, 200, 36);

class Combos : public zrtest::EntryScreen
{
protected:
    void SetUp() override
    {
        combo = new ZrComboBox(window.get());
        for (const char *text : {"Zero", "One", "Two", "Three"})
            combo->addItem(ZrString(text), combo->count() * 10);
        show(combo, Place);
        log.watch<'x'>(combo, &combo->currentIndexChanged);
        log.watch<'a'>(combo, &combo->activated);
        log.watch<'e'>(combo, &combo->editTextChanged);
    }
    void TearDown() override { delete combo; }
    ZrWidget *popup() { return ZrDesktop::activePopup(); }
    // A point in the pop-up's row, on the screen.
    ZrPoint rowPoint(int row)
    {
        const auto *list = dynamic_cast<ZrInnerListWidget *>(popup());
        return list ? list->viewport()->mapToGlobal(list->rowRect(row).center()) : ZrPoint();
    }

    SignalLog log;
    ZrComboBox *combo = nullptr;
};

} // namespace

TEST_F(Combos, ChooseByKeys)
{
    combo->setItemEnabled(1, false);
    EXPECT_TRUE(key(Zr::Key_Enter));
    ASSERT_TRUE(combo->isPopupVisible());
    key(Zr::Key_Down);
    EXPECT_EQ(log.take(), "") << "nothing is chosen yet";
    key(Zr::Key_Enter);
    EXPECT_FALSE(combo->isPopupVisible());
    EXPECT_EQ(combo->currentIndex(), 2);
    EXPECT_EQ(combo->currentData(), 20);
    EXPECT_EQ(log.take(), "xa");
    EXPECT_TRUE(combo->hasFocus()) << "the keys come back";
    key(Zr::Key_Enter);
    key(Zr::Key_Enter);
    EXPECT_EQ(log.take(), "a") << "the same row again";
    key(Zr::Key_Enter);
    key(Zr::Key_Down);
    key(Zr::Key_Escape);
    EXPECT_FALSE(combo->isPopupVisible());
    EXPECT_EQ(log.take(), "");
    for (const int arrow : {Zr::Key_Left, Zr::Key_Right, Zr::Key_Up, Zr::Key_Down})
        EXPECT_FALSE(key(arrow)) << "left to the walk from control to control";
}

TEST_F(Combos, ChooseByPointer)
{
    screen->pointer(30, 30, Zr::RightButton);
    screen->pointer(30, 30);
    EXPECT_FALSE(combo->isPopupVisible());
    screen->click(30, 30);
    ASSERT_TRUE(combo->isPopupVisible());
    const ZrPoint row = rowPoint(3);
    screen->click(row.x(), row.y());
    EXPECT_EQ(combo->currentIndex(), 3);
    EXPECT_EQ(log.take(), "xa");
    screen->click(30, 30);
    screen->click(500, 350);
    EXPECT_FALSE(combo->isPopupVisible()) << "a press elsewhere closes";
    EXPECT_EQ(log.take(), "");
    screen->click(30, 30);
    combo->hide();
    EXPECT_EQ(popup(), nullptr);
}

TEST_F(Combos, ThePopupStaysOnTheScreen)
{
    for (int i = 0; i < 60; ++i)
        combo->addItem(ZrString("Another one with a long text %1").arg(i));
    for (const int y : {0, 100, 300, Height - 36}) {
        combo->move(ZrPoint(Width - 210, y));
        combo->showPopup();
        const ZrRect place = popup()->geometry();
        EXPECT_TRUE(ZrRect(0, 0, Width, Height).contains(place)) << y;
        EXPECT_FALSE(place.intersects(combo->geometry())) << y;
        EXPECT_GE(place.width(), combo->width());
        combo->hidePopup();
    }
    combo->clear();
    combo->showPopup();
    EXPECT_EQ(popup(), nullptr) << "nothing to choose from";
}

TEST_F(Combos, RowsComeAndGo)
{
    combo->setCurrentIndex(2);
    log.take();
    combo->insertItem(0, ZrString("New"));
    EXPECT_EQ(utf8(combo->currentText()), "Two");
    combo->removeItem(0);
    EXPECT_EQ(combo->currentIndex(), 2);
    EXPECT_EQ(log.take(), "") << "the same row, at another place";
    combo->removeItem(2);
    EXPECT_EQ(utf8(combo->currentText()), "Three");
    EXPECT_EQ(log.take(), "x");
    EXPECT_EQ(combo->findText(ZrString("One")), 1);
    EXPECT_EQ(combo->findData(30), 2);
    EXPECT_EQ(combo->findData(20), -1);
    combo->setCurrentIndex(17);
    EXPECT_EQ(combo->currentIndex(), -1);
    EXPECT_TRUE(combo->itemText(17).isEmpty());
    combo->removeItem(-1);
    combo->clear();
    combo->addItem(ZrString("Only"));
    EXPECT_EQ(combo->currentIndex(), 0);
}

TEST_F(Combos, TheTextMayBeTyped)
{
    combo->setEditable(true);
    const struct {
        const char *what;
        int key;
        const char *typed;
        const char *text;
        int cursor;
        bool taken;
    } rows[] = {
        {"append", 0, "s", "Zeros", 5, true},
        {"left", Zr::Key_Left, "", "Zeros", 4, true},
        {"delete", Zr::Key_Backspace, "", "Zers", 3, true},
        {"insert", 0, "é", "Zerés", 4, true},
        {"right", Zr::Key_Right, "", "Zerés", 5, true},
        {"the end", Zr::Key_Right, "", "Zerés", 5, false},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(key(row.key, row.typed), row.taken) << row.what;
        EXPECT_EQ(utf8(combo->currentText()), row.text) << row.what;
        EXPECT_EQ(combo->cursorPosition(), row.cursor) << row.what;
    }
    EXPECT_EQ(log.take(), "eee");
    screen->click(20 + combo->textRect().left(), 38);
    EXPECT_EQ(combo->cursorPosition(), 0);
    EXPECT_FALSE(combo->isPopupVisible()) << "a press in the text places the cursor";
    const ZrPoint arrow = combo->arrowRect().center();
    screen->click(20 + arrow.x(), 20 + arrow.y());
    EXPECT_TRUE(combo->isPopupVisible());
    key(Zr::Key_Enter);
    EXPECT_EQ(utf8(combo->currentText()), "Zero") << "the row instead of what was typed";
    combo->setMaxLength(6);
    type("long text");
    EXPECT_EQ(utf8(combo->currentText()), "Zerolo");
}

TEST_F(Combos, SlotsMayDeleteTheCombo)
{
    ZrSignal ZrComboBox::*const signals[] = {&ZrComboBox::currentIndexChanged,
                                             &ZrComboBox::activated};
    for (const auto signal : signals) {
        for (const bool byKey : {false, true}) {
            auto *victim = new ZrComboBox(window.get());
            victim->addItem(ZrString("a"));
            victim->addItem(ZrString("b"));
            show(victim, ZrRect(300, 20, 200, 36));
            const ZrGuard<ZrComboBox> alive(victim);
            ZrObject::connect(victim, &(victim->*signal), &log, zrtest::deleteSender);
            victim->showPopup();
            screen->settle();
            if (byKey) {
                key(Zr::Key_Down);
                key(Zr::Key_Enter);
            } else {
                const ZrPoint row = rowPoint(1);
                screen->click(row.x(), row.y());
            }
            EXPECT_FALSE(alive);
            EXPECT_EQ(popup(), nullptr);
        }
    }
}
