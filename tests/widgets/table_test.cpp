// The table: walking, scrolling, the pointer, and rows that come, go and change places.
#include "support/random_seed.h"
#include "support/tablescreen.h"

#include <algorithm>
#include <functional>
#include <zrcheckbox>
#include <zrguard>
#include <zrpushbutton>
#include <zrslider>

namespace
{

constexpr int LeftHeld = Zr::LeftButton;

class Table : public zrtest::TableScreen
{
};

} // namespace

TEST_F(Table, ArrowsWalkTheCells)
{
    table->setColumnHidden(1, true);
    table->setRowHidden(1, true);
    EXPECT_EQ(cell(), ZrPoint(0, 0)) << "taken with the focus";
    const struct {
        const char *what;
        int key;
        ZrPoint cell;
        const char *signals;
    } steps[] = {
        {"over a hidden column", Zr::Key_Right, {0, 2}, "c"},
        {"the last column", Zr::Key_Right, {0, 3}, "c"},
        {"the right edge", Zr::Key_Right, {0, 3}, ""},
        {"over a hidden row", Zr::Key_Down, {2, 3}, "c"},
        {"and back", Zr::Key_Up, {0, 3}, "c"},
        {"no title row that takes keys", Zr::Key_Up, {0, 3}, ""},
        {"left", Zr::Key_Left, {0, 2}, "c"},
        {"left over the hidden one", Zr::Key_Left, {0, 0}, "c"},
        {"the left edge", Zr::Key_Left, {0, 0}, ""},
        {"Enter", Zr::Key_Enter, {0, 0}, "a"},
    };
    for (const auto &step : steps) {
        EXPECT_TRUE(key(step.key)) << step.what;
        EXPECT_EQ(cell(), step.cell) << step.what;
        EXPECT_EQ(log.take(), step.signals) << step.what;
    }
    EXPECT_FALSE(key(Zr::Key_Escape));
    table->setCurrentCell(0, 1);
    table->setCurrentCell(1, 0);
    EXPECT_EQ(cell(), ZrPoint(0, 0)) << "nothing hidden becomes current";
    table->setColumnHidden(0, true);
    EXPECT_TRUE(key(Zr::Key_Left)) << "nothing but hidden columns on that side";
    table->setCurrentCell(Rows - 1, 2);
    EXPECT_TRUE(key(Zr::Key_Down));
    EXPECT_EQ(cell(), ZrPoint(Rows - 1, 2));
}

TEST_F(Table, BadIndicesDoNothing)
{
    for (const ZrPoint bad : {ZrPoint(-2, 0), ZrPoint(0, -2), ZrPoint(Rows, 0), ZrPoint(0, Columns),
                              ZrPoint(-1, 1), ZrPoint(2, -1)}) {
        table->setCurrentCell(bad.x(), bad.y());
        EXPECT_EQ(cell(), ZrPoint(0, 0));
        table->setText(bad.x(), bad.y(), ZrString("x"));
        EXPECT_EQ(table->item(bad.x(), bad.y()), nullptr);
        EXPECT_EQ(table->cellWidget(bad.x(), bad.y()), nullptr);
        table->setItem(bad.x(), bad.y(), new ZrTableWidgetColItem); // deleted
        table->setSpan(bad.x(), bad.y(), 2, 2);
    }
    for (const int bad : {-1, 1000}) {
        table->setRowHeight(bad, 5);
        table->setColumnWidth(bad, 5);
        table->setColumnHidden(bad, true);
        table->removeRow(bad);
        table->insertRow(bad);
        table->sortByColumn(bad, Zr::Ascending);
        EXPECT_EQ(table->rowHeight(bad), 0);
    }
    EXPECT_EQ(log.take(), "");
    EXPECT_EQ(table->rowCount(), Rows);
    table->setRowCount(-5);
    EXPECT_EQ(table->rowCount(), 0);
    EXPECT_EQ(cell(), ZrPoint(-1, -1));
    log.take();
    for (const int code : {Zr::Key_Enter, Zr::Key_Up, Zr::Key_Down, Zr::Key_Left, Zr::Key_Right})
        EXPECT_FALSE(key(code)) << "an empty table leaves all keys";
    EXPECT_EQ(log.take(), "");
}

TEST_F(Table, EnterGoesIntoTheWidget)
{
    auto *check = putWidget(0, 1, new ZrCheckBox);
    auto *slider = putWidget(0, 2, new ZrSlider);
    EXPECT_EQ(check->parentWidget(), table->viewPort());
    table->setCurrentCell(0, 1);
    log.take();
    EXPECT_TRUE(key(Zr::Key_Enter));
    screen->pass(200);
    EXPECT_TRUE(check->isChecked());
    EXPECT_EQ(log.take(), "");
    check->setEnabled(false);
    EXPECT_TRUE(key(Zr::Key_Enter));
    EXPECT_EQ(log.take(), "a") << "nobody is there to take it";
    table->setCurrentCell(0, 2);
    key(Zr::Key_Enter);
    EXPECT_TRUE(slider->hasFocus()) << "Enter means nothing to a slider";
}

TEST_F(Table, TheTitleRowTakesKeysWhenItCanBeUsed)
{
    for (int row = 0; row < Rows; ++row)
        table->setText(row, 0, ZrString("Channel %1").arg((row * 7) % Rows + 1));
    table->hHeader()->setSortable(0, true);
    table->hHeader()->setSortable(2, true);
    table->setColumnHidden(1, true);
    table->setCurrentCell(1, 0);
    log.take();
    const struct {
        const char *what;
        int key;
        ZrPoint cell;
        const char *signals;
    } steps[] = {
        {"up", Zr::Key_Up, {0, 0}, "c"},
        {"into the titles", Zr::Key_Up, {-1, 0}, "c"},
        {"their edge", Zr::Key_Up, {-1, 0}, ""},
        {"along them", Zr::Key_Right, {-1, 2}, "c"},
        {"and back over the hidden one", Zr::Key_Left, {-1, 0}, "c"},
        {"sort", Zr::Key_Enter, {-1, 0}, "s"},
        {"back to the rows", Zr::Key_Down, {0, 0}, "c"},
        {"up", Zr::Key_Up, {-1, 0}, "c"},
        {"a title that does not sort", Zr::Key_Right, {-1, 2}, "c"},
        {"right", Zr::Key_Right, {-1, 3}, "c"},
        {"is activated like a cell", Zr::Key_Enter, {-1, 3}, "a"},
    };
    for (const auto &step : steps) {
        EXPECT_TRUE(key(step.key)) << step.what;
        EXPECT_EQ(cell(), step.cell) << step.what;
        EXPECT_EQ(log.take(), step.signals) << step.what;
    }
    EXPECT_EQ(zrtest::utf8(table->text(1, 0)), "Channel 2");
    EXPECT_EQ(zrtest::utf8(table->text(9, 0)), "Channel 10") << "by value, not by letter";
    screen->click(Left + 10, Top + 10);
    EXPECT_EQ(zrtest::utf8(table->text(0, 0)), "Channel 20") << "a second time: downwards";
    EXPECT_EQ(table->hHeader()->sortOrder(), Zr::Descending);
    screen->click(Left + 250, Top + 10);
    EXPECT_EQ(table->hHeader()->sortColumn(), 0);
    EXPECT_EQ(log.take(), "sk");
    EXPECT_EQ(ZrPoint(table->clickedRow(), table->clickedColumn()), ZrPoint(-1, 3));
}

TEST_F(Table, SortingMovesWholeRows)
{
    const char *const names[] = {"b2", "a10", "a2", "B1", "a2", "", "a", "a02x"};
    table->setRowCount(8);
    for (int row = 0; row < 8; ++row)
        table->setText(row, 0, ZrString(names[row]));
    auto *button = putWidget(0, 1, new ZrPushButton);
    table->setRowHeight(0, 50);
    table->rowItem(4)->setEnabled(false);
    table->setCurrentCell(1, 1);
    log.take();
    table->sortByColumn(0, Zr::Ascending);
    screen->settle();
    const char *const order[] = {"", "a", "a2", "a2", "a02x", "a10", "B1", "b2"};
    for (int row = 0; row < 8; ++row)
        EXPECT_EQ(zrtest::utf8(table->text(row, 0)), order[row]) << row;
    EXPECT_TRUE(table->rowItem(2)->isEnabled()) << "equal rows keep their order";
    EXPECT_FALSE(table->rowItem(3)->isEnabled());
    EXPECT_EQ(table->cellWidget(7, 1), button);
    EXPECT_EQ(button->geometry().top(), table->cellRect(7, 1).top());
    EXPECT_EQ(table->rowHeight(7), 50);
    EXPECT_EQ(cell(), ZrPoint(5, 1)) << "the same row, elsewhere";
    EXPECT_EQ(log.take(), "sc");
}

TEST_F(Table, TheWheelMovesATwentieth)
{
    const int notchDown = -120;
    ZrScrollBar &vertical = *table->vScrollBar();
    ZrScrollBar &horizontal = *table->hScrollBar();
    const int step = table->viewPort()->height() / 20;
    const ZrPoint at = onScreen(2, 1);
    screen->pointer(at.x(), at.y(), 0, 2 * notchDown);
    EXPECT_EQ(vertical.value(), 2 * table->viewPort()->height() / 20);
    screen->pointer(at.x(), at.y(), 0, 120);
    EXPECT_EQ(vertical.value(), 2 * table->viewPort()->height() / 20 - step);
    vertical.setValue(vertical.maximum());
    screen->pointer(at.x(), at.y(), 0, notchDown);
    EXPECT_EQ(vertical.value(), vertical.maximum());
    EXPECT_EQ(horizontal.value(), 0) << "no horizontal bar";
    table->setColumnWidth(0, 3 * ColumnWidth);
    screen->settle();
    vertical.setValue(vertical.maximum());
    screen->pointer(at.x(), at.y(), 0, notchDown);
    EXPECT_EQ(horizontal.value(), table->viewPort()->width() / 20) << "the other one moves";
    table->setRowCount(2);
    screen->settle();
    EXPECT_TRUE(vertical.isHidden());
    horizontal.setValue(0);
    screen->pointer(at.x(), at.y(), 0, notchDown);
    EXPECT_EQ(horizontal.value(), table->viewPort()->width() / 20);
}

TEST_F(Table, TheCurrentCellComesIntoSight)
{
    const ZrRect seen = table->viewPort()->rect();
    for (int i = 0; i < 5; ++i)
        key(Zr::Key_Down);
    EXPECT_EQ(table->cellRect(5, 0).bottom(), seen.bottom()) << "the far edge, and no more";
    for (int i = 0; i < 5; ++i)
        key(Zr::Key_Up);
    EXPECT_EQ(table->cellRect(0, 0).top(), 0);
    for (int column = 0; column < Columns; ++column)
        table->setColumnWidth(column, 2 * ColumnWidth);
    screen->settle();
    key(Zr::Key_Right);
    key(Zr::Key_Right);
    EXPECT_EQ(table->cellRect(0, 2).right(), table->viewPort()->width() - 1);
    table->setColumnWidth(1, 20 * ColumnWidth);
    key(Zr::Key_Left);
    EXPECT_EQ(table->cellRect(0, 1).left(), 0) << "of what does not fit, the near edge";
    table->setCurrentCell(Rows - 1, 0);
    EXPECT_EQ(table->vScrollBar()->value(), table->vScrollBar()->maximum());
    table->setRowCount(100); // arranged on the way
    table->setCurrentCell(99, 0);
    EXPECT_EQ(table->cellRect(99, 0).bottom(), table->viewPort()->height() - 1);
}

TEST_F(Table, ThePointerSelects)
{
    table->setCurrentCell(-1, -1);
    log.take();
    const ZrPoint first = onScreen(1, 2);
    screen->click(first.x(), first.y());
    EXPECT_EQ(cell(), ZrPoint(1, 2));
    EXPECT_EQ(log.take(), "ck");
    screen->pointer(first.x(), first.y(), LeftHeld);
    screen->pointer(first.x(), first.y());
    EXPECT_EQ(log.take(), "d") << "the release that ends a double click is no click";
    EXPECT_EQ(ZrPoint(table->clickedRow(), table->clickedColumn()), ZrPoint(1, 2));
    screen->pass(1000);
    const ZrPoint second = onScreen(2, 2);
    screen->pointer(first.x(), first.y());
    screen->pointer(first.x(), first.y(), LeftHeld);
    screen->pointer(second.x(), second.y(), LeftHeld);
    screen->pointer(second.x(), second.y());
    EXPECT_EQ(log.take(), "") << "slid off the cell";
    screen->pass(1000);
    screen->pointer(second.x(), second.y(), Zr::RightButton);
    screen->pointer(second.x(), second.y());
    EXPECT_EQ(table->clickedButton(), int(Zr::RightButton));
    EXPECT_EQ(log.take(), "ck");
    // A row half in sight stays where it is under the pointer.
    table->vScrollBar()->setValue(RowHeight / 2);
    const ZrPoint half = onScreen(5, 0);
    screen->click(half.x(), Top + 6 * RowHeight - 2);
    EXPECT_EQ(cell(), ZrPoint(5, 0));
    EXPECT_EQ(table->vScrollBar()->value(), RowHeight / 2);
}

TEST_F(Table, AClickOnAWidgetMakesItsCellCurrent)
{
    auto *check = putWidget(3, 1, new ZrCheckBox);
    log.take();
    const ZrPoint at = check->mapToGlobal(check->rect().center());
    screen->click(at.x(), at.y());
    screen->pass(200);
    EXPECT_EQ(cell(), ZrPoint(3, 1));
    EXPECT_TRUE(check->hasFocus());
    table->setSelectionMode(ZrTableWidget::SelectRow);
    EXPECT_EQ(table->cellState(3, 0), int(ZrTableWidgetColItem::Selected));
    EXPECT_EQ(table->cellState(3, 1),
              ZrTableWidgetColItem::Selected | ZrTableWidgetColItem::Current);
    table->setSelectionMode(ZrTableWidget::NoSelection);
    EXPECT_EQ(table->cellState(3, 0), 0);
}

TEST_F(Table, RowsComeAndGo)
{
    table->setText(5, 0, ZrString("five"));
    table->setCurrentCell(5, 0);
    log.take();
    table->insertRow(2);
    EXPECT_EQ(cell(), ZrPoint(6, 0));
    EXPECT_EQ(zrtest::utf8(table->text(6, 0)), "five");
    EXPECT_EQ(table->rowItem(6)->index(), 6);
    table->removeRow(0);
    EXPECT_EQ(cell(), ZrPoint(5, 0));
    EXPECT_EQ(log.take(), "cc");
    table->removeRow(7);
    EXPECT_EQ(log.take(), "");
    table->removeRow(5);
    EXPECT_EQ(cell(), ZrPoint(5, 0)) << "the next one";
    table->setCurrentCell(table->rowCount() - 1, 0);
    table->removeRow(table->rowCount() - 1);
    EXPECT_EQ(cell(), ZrPoint(table->rowCount() - 1, 0));
    while (table->rowCount() > 0)
        table->removeRow(0);
    EXPECT_EQ(cell(), ZrPoint(-1, -1));
    table->setColumnCount(0);
    screen->settle();
}

TEST_F(Table, AButtonMayRemoveItsRow)
{
    auto *button = putWidget(2, 3, new ZrPushButton);
    const ZrGuard<ZrWidget> alive(button);
    struct Remover : ZrObject {
        explicit Remover(ZrTableWidget *t) : victim(t) {}
        void remove() { victim->removeRow(2); }
        ZrTableWidget *victim;
    } remover(table);
    ZrObject::connect(button, &button->clicked, &remover, zrSlot<&Remover::remove>);
    const ZrPoint at = button->mapToGlobal(button->rect().center());
    screen->click(at.x(), at.y());
    screen->pass(200);
    EXPECT_EQ(table->rowCount(), Rows - 1);
    EXPECT_FALSE(alive);
    auto *gone = putWidget(0, 0, new ZrPushButton);
    delete gone;
    EXPECT_EQ(table->cellWidget(0, 0), nullptr);
    screen->settle();
}

TEST_F(Table, SlotsMayDeleteTheTable)
{
    ZrSignal ZrTableWidget::*const signals[] = {
        &ZrTableWidget::cellActivated, &ZrTableWidget::currentCellChanged,
        &ZrTableWidget::cellClicked,   &ZrTableWidget::cellDoubleClicked,
        &ZrTableWidget::sorted,
    };
    for (const auto signal : signals) {
        ZrTableWidget *victim = make(3);
        victim->hHeader()->setSortable(0, true);
        victim->setCurrentCell(0, 0);
        victim->setText(2, 0, ZrString("a"));
        const ZrGuard<ZrTableWidget> alive(victim);
        ZrObject::connect(victim, &(victim->*signal), &log, zrtest::deleteSender);
        key(Zr::Key_Enter);
        if (alive)
            key(Zr::Key_Down);
        for (int i = 0; alive && i < 2; ++i)
            screen->click(Left + 10, Top + RowHeight + 10);
        if (alive)
            screen->click(Left + 10, Top + 10);
        EXPECT_FALSE(alive);
        screen->pass(1000);
    }
}

TEST_F(Table, RandomUseLeavesItWhole)
{
    std::mt19937 random = seededRandom();
    const auto row = [&] { return pick(random, -1, table->rowCount()); };
    const auto column = [&] { return pick(random, -1, table->columnCount()); };
    const std::function<void()> deeds[] = {
        [&] { table->setRowCount(pick(random, 0, 40)); },
        [&] { table->setColumnCount(pick(random, 0, 6)); },
        [&] { table->insertRow(row()); },
        [&] { table->removeRow(row()); },
        [&] { table->setRowHidden(row(), pick(random, 0, 1)); },
        [&] { table->setColumnHidden(column(), pick(random, 0, 1)); },
        [&] { table->setRowHeight(row(), pick(random, 0, 300)); },
        [&] { table->setColumnWidth(column(), pick(random, 0, 300)); },
        [&] { table->setColumnShare(column(), pick(random, 0, 3)); },
        [&] { table->setText(row(), column(), ZrString("%1").arg(pick(random, 0, 99))); },
        [&] { table->setCellWidget(row(), column(), new ZrCheckBox(window.get())); },
        [&] { table->setCellWidget(row(), column(), nullptr); },
        [&] { table->setSpan(row(), column(), pick(random, 1, 3), pick(random, 1, 3)); },
        [&] { table->hHeader()->setSortable(column(), pick(random, 0, 1)); },
        [&] { table->sortByColumn(column(), Zr::SortOrder(pick(random, 0, 1))); },
        [&] { table->setCurrentCell(row(), column()); },
        [&] { table->vScrollBar()->setValue(pick(random, 0, 2000)); },
        [&] { table->hScrollBar()->setValue(pick(random, 0, 500)); },
        [&] { screen->pointer(pick(random, 0, 460), pick(random, 0, 220), pick(random, 0, 2)); },
        [&] { key(pick(random, Zr::Key_Left, Zr::Key_Right)); },
        [&] { key(pick(random, 0, 1) ? Zr::Key_Down : Zr::Key_Enter); },
        [&] { screen->pass(300); },
    };
    for (int step = 0; step < 3000; ++step) {
        deeds[pick(random, 0, int(std::size(deeds)) - 1)]();
        if (step % 3 == 0)
            screen->settle();
        const int r = table->currentRow();
        const int c = table->currentColumn();
        ASSERT_TRUE((r == -1 && c == -1) ||
                    (r >= -1 && r < table->rowCount() && c >= 0 && c < table->columnCount()))
            << "step " << step << ": " << r << ", " << c;
        const ZrVector<int> &edges = table->vHeader()->rowEdges();
        ASSERT_EQ(edges.size(), table->rowCount() + 1);
        ASSERT_TRUE(std::is_sorted(edges.begin(), edges.end())) << "step " << step;
        for (int i = 0; i < table->rowCount(); ++i)
            ASSERT_EQ(table->rowItem(i)->index(), i) << "step " << step;
    }
}
