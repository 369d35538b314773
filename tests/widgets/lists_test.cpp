// Lists, stacks of pages and scroll areas.
#include "support/entryscreen.h"
#include "support/signallog.h"

#include <zrguard>
#include <zrlistwidget>
#include <zrscrollarea>
#include <zrscrollbar>
#include <zrstackedwidget>

using zrtest::SignalLog;

namespace
{

constexpr int LeftHeld = Zr::LeftButton;
constexpr int RowHeight = 30;

// Counts the rows it paints.
class List : public ZrListWidget
{
public:
    using ZrListWidget::ZrListWidget;
    mutable int rowsPainted = 0;

protected:
    RowLook rowLook(int row) const override
    {
        rowsPainted++;
        return ZrListWidget::rowLook(row);
    }
};

class Lists : public zrtest::EntryScreen
{
protected:
    void SetUp() override
    {
        list = new List(window.get());
        list->setRowHeight(RowHeight);
        for (int i = 0; i < 20; ++i)
            list->addItem(ZrString("Row %1").arg(i), i);
        show(list, ZrRect(20, 20, 200, 5 * RowHeight));
        log.watch<'r'>(list, &list->currentRowChanged);
        log.watch<'i'>(list, &list->itemClicked);
    }
    void disable(int row)
    {
        ZrListWidgetItem item = list->item(row);
        item.setEnabled(false);
        list->setItem(row, item);
    }

    SignalLog log;
    List *list = nullptr;
};

} // namespace

TEST_F(Lists, KeysWalkAndActivate)
{
    disable(1);
    const struct {
        const char *what;
        int key;
        int row;
        const char *signals;
        bool taken;
    } rows[] = {
        {"nothing to activate", Zr::Key_Enter, -1, "", false},
        {"the first", Zr::Key_Down, 0, "r", true},
        {"over a disabled row", Zr::Key_Down, 2, "r", true},
        {"and back", Zr::Key_Up, 0, "r", true},
        {"at the end the key goes on", Zr::Key_Up, 0, "", false},
        {"activate", Zr::Key_Enter, 0, "i", true},
        {"other keys", Zr::Key_Left, 0, "", false},
        {"forget, and leave closing to the window", Zr::Key_Escape, -1, "r", false},
        {"from the end", Zr::Key_Up, 19, "r", true},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(key(row.key), row.taken) << row.what;
        EXPECT_EQ(list->currentRow(), row.row) << row.what;
        EXPECT_EQ(log.take(), row.signals) << row.what;
    }
    EXPECT_EQ(list->rowRect(19).bottom(), list->viewport()->height() - 1) << "scrolled into sight";
}

TEST_F(Lists, PointerSelectsAndActivates)
{
    disable(1);
    screen->pointer(50, 20 + RowHeight / 2);
    EXPECT_EQ(list->hoveredRow(), 0);
    screen->pointer(50, 20 + RowHeight * 2 + 5, LeftHeld);
    EXPECT_EQ(list->currentRow(), 2);
    EXPECT_EQ(log.take(), "r");
    screen->pointer(50, 20 + RowHeight * 2 + 5);
    EXPECT_EQ(log.take(), "i");
    screen->pointer(50, 20 + RowHeight * 3 + 5, LeftHeld);
    screen->pointer(50, 20 + RowHeight * 4 + 5, LeftHeld);
    screen->pointer(50, 20 + RowHeight * 4 + 5);
    EXPECT_EQ(log.take(), "r") << "slid off the row";
    screen->click(50, 20 + RowHeight + 5);
    EXPECT_EQ(log.take(), "") << "disabled";
    screen->pointer(500, 300);
    EXPECT_EQ(list->hoveredRow(), -1);
    screen->pointer(50, 50, 0, -120);
    EXPECT_EQ(list->rowRect(1).top(), 0) << "the wheel scrolls by a row";
}

TEST_F(Lists, RepaintsOnlyTheRowsThatChange)
{
    screen->pointer(50, 25);
    list->rowsPainted = 0;
    screen->pointer(50, 20 + RowHeight * 4 + 5);
    EXPECT_EQ(list->rowsPainted, 2) << "the one left and the one entered";
    list->rowsPainted = 0;
    list->setCurrentRow(1);
    list->setItem(15, ZrListWidgetItem(ZrString("out of sight")));
    screen->settle();
    EXPECT_EQ(list->rowsPainted, 1);
    ZrList<ZrListWidgetItem> many;
    for (int i = 0; i < 10000; ++i)
        many.append(ZrListWidgetItem(ZrString("x"), i));
    list->setItems(many);
    list->rowsPainted = 0;
    list->setCurrentRow(9999);
    screen->settle();
    EXPECT_LE(list->rowsPainted, 6);
}

TEST_F(Lists, RowsComeAndGo)
{
    list->setCurrentRow(5);
    log.take();
    list->insertItem(2, ZrListWidgetItem(ZrString("new")));
    EXPECT_EQ(list->currentRow(), 6);
    list->removeItem(0);
    EXPECT_EQ(list->currentRow(), 5);
    EXPECT_EQ(log.take(), "") << "the same row, at another place";
    list->removeItem(5);
    EXPECT_EQ(list->currentRow(), -1);
    EXPECT_EQ(log.take(), "r");
    list->setCurrentRow(99);
    list->removeItem(99);
    list->clear();
    EXPECT_EQ(list->rowAt(ZrPoint(5, 5)), -1);
    EXPECT_EQ(log.take(), "");
}

TEST_F(Lists, SlotsMayDeleteTheList)
{
    ZrSignal ZrListWidget::*const signals[] = {&ZrListWidget::currentRowChanged,
                                               &ZrListWidget::itemClicked};
    for (const auto signal : signals) {
        for (const bool byKey : {false, true}) {
            auto *victim = new ZrListWidget(window.get());
            victim->addItem(ZrString("a"));
            victim->addItem(ZrString("b"));
            show(victim, ZrRect(300, 20, 100, 200));
            const ZrGuard<ZrListWidget> alive(victim);
            ZrObject::connect(victim, &(victim->*signal), &log, zrtest::deleteSender);
            if (byKey) {
                key(Zr::Key_Down);
                key(Zr::Key_Enter);
            } else {
                screen->click(320, 30);
            }
            EXPECT_FALSE(alive);
        }
    }
}

TEST_F(Lists, AStackShowsOnePage)
{
    auto *stack = show(new ZrStackedWidget(window.get()), ZrRect(300, 20, 200, 100));
    log.watch<'s'>(stack, &stack->currentChanged);
    ZrWidget *pages[3];
    for (ZrWidget *&page : pages) {
        page = new ZrWidget;
        stack->addWidget(page);
    }
    EXPECT_EQ(log.take(), "s");
    EXPECT_TRUE(pages[0]->isVisible());
    EXPECT_FALSE(pages[1]->isVisible());
    stack->setCurrentWidget(pages[2]);
    EXPECT_TRUE(pages[2]->isVisible());
    EXPECT_FALSE(pages[0]->isVisible());
    EXPECT_TRUE(pages[2]->geometry() == stack->rect());
    stack->resize(ZrSize(150, 80));
    EXPECT_TRUE(pages[2]->geometry() == stack->rect());
    delete pages[0];
    EXPECT_EQ(stack->currentIndex(), 1);
    EXPECT_EQ(log.take(), "s");
    delete pages[2];
    EXPECT_EQ(stack->currentWidget(), pages[1]);
    EXPECT_TRUE(pages[1]->isVisible());
    stack->setCurrentIndex(5);
    stack->removeWidget(pages[1]);
    EXPECT_EQ(stack->currentIndex(), -1);
    EXPECT_FALSE(pages[1]->isVisible());
}

TEST_F(Lists, AScrollAreaShowsAPartOfItsWidget)
{
    auto *area = show(new ZrScrollArea(window.get()), ZrRect(300, 20, 200, 100));
    auto *inner = new ZrWidget;
    inner->resize(ZrSize(150, 400));
    auto *child = new ZrWidget(inner);
    child->setGeometry(ZrRect(10, 300, 50, 40));
    area->setWidget(inner);
    EXPECT_EQ(zrtest::utf8(area->viewport()->objectName()), "zr_scrollarea_viewport");
    EXPECT_TRUE(area->verticalScrollBar()->isVisible());
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
    area->ensureVisible(child);
    EXPECT_EQ(inner->pos().y(), -(340 - 100));
    area->ensureVisible(child);
    EXPECT_EQ(inner->pos().y(), -240) << "no more than needed";
    screen->pointer(350, 50, 0, 120);
    EXPECT_GT(inner->pos().y(), -240);
    inner->resize(ZrSize(500, 50));
    EXPECT_FALSE(area->verticalScrollBar()->isVisible()) << "follows the widget's size";
    EXPECT_TRUE(area->horizontalScrollBar()->isVisible());
    EXPECT_EQ(inner->pos().y(), 0);
    delete inner;
    EXPECT_EQ(area->widget(), nullptr);
    area->resize(ZrSize(100, 100));
}
