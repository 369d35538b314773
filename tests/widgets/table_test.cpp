// The table: walking, scrolling, widgets in cells, order, and what is repainted.
#include "support/entryscreen.h"
#include "support/random_seed.h"
#include "support/signallog.h"

#include <zrcheckbox>
#include <zrguard>
#include <zrpainter>
#include <zrpushbutton>
#include <zrscrollbar>
#include <zrslider>
#include <zrtablewidget>

using zrtest::SignalLog;

namespace
{

constexpr int LeftHeld = Zr::LeftButton;
constexpr int RowHeight = 30;
constexpr int ColumnWidth = 100;
constexpr int Rows = 20;
constexpr int Columns = 4;
constexpr int Left = 20;
constexpr int Top = 20;
const ZrColor Alternate(40, 48, 56);
const ZrColor Selected(24, 64, 96);

// Counts how often it is painted.
class CountedCell : public ZrTableWidgetColItem
{
public:
    explicit CountedCell(int *paints) : ZrTableWidgetColItem(ZrString("x")), paints_(paints) {}
    void paint(ZrPainter &painter) override
    {
        ++*paints_;
        ZrTableWidgetColItem::paint(painter);
    }

private:
    int *paints_;
};

class Table : public zrtest::EntryScreen
{
protected:
    void SetUp() override
    {
        ZrTableOption &group = ZrStyle::applicationStyle().tableOption();
        group.colors.set(Zr::TableCellForeground, ZrColor(232, 240, 248));
        group.colors.set(Zr::TableAlternateRow, Alternate);
        group.colors.set(Zr::TableCurrentBackground, Selected);
        group.colors.set(Zr::TableCellFocusBorder, ZrColor(56, 160, 248));
        group.colors.set(Zr::TableTitleBackground, ZrColor(32, 40, 48));
        table = make(Rows);
        log.watch<'a'>(table, &table->cellActivated);
        log.watch<'c'>(table, &table->currentCellChanged);
        log.watch<'k'>(table, &table->cellClicked);
        log.watch<'d'>(table, &table->cellDoubleClicked);
        log.watch<'s'>(table, &table->sorted);
        log.take();
    }
    // Five rows and all columns in sight, the title row above them, and the vertical bar.
    ZrTableWidget *make(int rows)
    {
        auto *made = new ZrTableWidget(window.get());
        made->setColumnCount(Columns);
        made->setRowCount(rows);
        made->setDefaultRowHeight(RowHeight);
        made->setTitleHeight(RowHeight);
        for (int column = 0; column < Columns; ++column)
            made->setColumnWidth(column, ColumnWidth);
        const int bar = ZrScrollBar::defaultThickness(*made);
        return show(made, ZrRect(Left, Top, Columns * ColumnWidth + bar, 6 * RowHeight));
    }
    ZrPoint cell() const { return ZrPoint(table->currentRow(), table->currentColumn()); }
    ZrPoint onScreen(int row, int column) const
    {
        return table->viewPort()->mapToGlobal(table->cellRect(row, column).center());
    }
    std::uint16_t groundOf(int row) const
    {
        const ZrPoint at = table->viewPort()->mapToGlobal(table->cellRect(row, 3).topRight());
        return screen->pixel(at.x() - 3, at.y() + 3);
    }
    template <typename Widget>
    Widget *putWidget(int row, int column, Widget *widget)
    {
        table->setCellWidget(row, column, widget);
        screen->settle();
        return widget;
    }

    SignalLog log;
    ZrTableWidget *table = nullptr;
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
    screen->click(Left + 350, Top + 10);
    EXPECT_EQ(table->hHeader()->sortColumn(), 0);
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

TEST_F(Table, MarginsAreInProportionToTheCell)
{
    const struct {
        ZrSides margin; // top, right, bottom, left
        ZrRect cell;
        ZrRect rect;
    } rows[] = {
        {ZrSides(0), {5, 6, 100, 40}, {5, 6, 100, 40}},
        {ZrSides(0, 0, 0, 51), {0, 0, 100, 40}, {20, 0, 80, 40}},
        {ZrSides(51, 0, 0, 0), {10, 7, 100, 40}, {10, 15, 100, 32}},
        {ZrSides(30, 10, 30, 10), {0, 0, 99, 42}, {3, 4, 93, 34}}, // 3.88 and 4.94
        {ZrSides(30, 10, 30, 10), {0, 0, 198, 84}, {7, 9, 184, 66}},
        {ZrSides(0, 0, 0, 51), {-30, 0, 100, 40}, {-10, 0, 80, 40}},
    };
    for (const auto &row : rows) {
        ZrTableWidgetColItem item;
        item.setMargin(row.margin);
        item.setGeometry(row.cell.left(), row.cell.top(), row.cell.width(), row.cell.height());
        EXPECT_TRUE(item.rect() == row.rect)
            << item.rect().left() << ' ' << item.rect().top() << ' ' << item.rect().width() << ' '
            << item.rect().height();
    }
}

TEST_F(Table, AWidgetFillsItsCellOrKeepsItsSize)
{
    class Sized : public ZrWidget
    {
    public:
        ZrSize sizeHint() const override { return ZrSize(40, 16); }
    };
    const struct {
        ZrSizePolicy policy;
        ZrSize least;
        ZrRect place; // in a cell of 100 by 30
    } rows[] = {
        {ZrSizePolicy(), {0, 0}, {0, 0, 100, 30}},
        {ZrSizePolicy(ZrSizePolicy::Minimum, ZrSizePolicy::Preferred), {0, 0}, {0, 0, 40, 30}},
        {ZrSizePolicy(ZrSizePolicy::Preferred, ZrSizePolicy::Minimum), {0, 0}, {0, 7, 100, 16}},
        {ZrSizePolicy(ZrSizePolicy::Minimum, ZrSizePolicy::Minimum), {60, 20}, {0, 5, 60, 20}},
        {ZrSizePolicy(ZrSizePolicy::Minimum, ZrSizePolicy::Minimum), {160, 50}, {0, 0, 100, 30}},
    };
    for (const auto &row : rows) {
        auto *widget = new Sized;
        widget->setSizePolicy(row.policy);
        widget->setMinimumSize(row.least.width(), row.least.height());
        putWidget(0, 0, widget);
        EXPECT_TRUE(widget->geometry() == row.place)
            << widget->geometry().left() << ' ' << widget->geometry().top() << ' '
            << widget->width() << ' ' << widget->height();
    }
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

TEST_F(Table, EverySecondRowInSightHasAnotherGround)
{
    table->setCurrentCell(-1, -1);
    table->setAlternatingRowColors(true);
    screen->settle();
    const std::uint16_t plain = groundOf(0);
    const std::uint16_t other = groundOf(1);
    EXPECT_NE(plain, other);
    EXPECT_EQ(groundOf(2), plain);
    table->vScrollBar()->setValue(RowHeight);
    screen->settle();
    EXPECT_EQ(groundOf(1), plain) << "by place: the first in sight is plain";
    table->vScrollBar()->setValue(2 * RowHeight);
    screen->settle();
    EXPECT_EQ(groundOf(2), plain);
    EXPECT_EQ(groundOf(3), other);
    table->setRowHidden(3, true);
    screen->settle();
    EXPECT_EQ(groundOf(4), other) << "a hidden row does not count";
    table->viewPort()->update(table->cellRect(5, 3));
    screen->settle();
    EXPECT_EQ(groundOf(5), plain) << "nor does it matter what is repainted";
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

TEST_F(Table, OnlyRowsInSightArePaintedAndPlaced)
{
    table->setRowCount(10000);
    int paints = 0;
    std::vector<ZrWidget *> widgets;
    for (int row = 0; row < 10000; ++row) {
        table->setItem(row, 0, new CountedCell(&paints));
        if (row % 10 == 0) {
            widgets.push_back(new ZrWidget);
            table->setCellWidget(row, 1, widgets.back());
        }
    }
    screen->settle();
    paints = 0;
    table->vScrollBar()->setValue(5000 * RowHeight);
    screen->settle();
    EXPECT_EQ(paints, 5);
    EXPECT_TRUE(widgets[500]->geometry() == table->cellRect(5000, 1));
    const ZrRect seen = table->viewPort()->rect();
    for (const ZrWidget *widget : widgets)
        EXPECT_EQ(!(widget->geometry() & seen).isEmpty(), widget == widgets[500]);
    table->vScrollBar()->setValue(5001 * RowHeight);
    EXPECT_EQ(widgets[500]->geometry().bottom(), -1) << "just left";
    paints = 0;
    screen->settle();
    table->setText(3, 0, ZrString("out of sight"));
    screen->settle();
    EXPECT_EQ(paints, 5) << "one scroll, and nothing for the text";
    paints = 0;
    table->setText(5003, 0, ZrString("in sight"));
    screen->settle();
    EXPECT_EQ(paints, 1);
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

TEST_F(Table, ColumnsDivideWhatIsLeft)
{
    table->setColumnShare(1, 1);
    table->setColumnShare(3, 2);
    table->setColumnWidth(1, 20);
    table->setColumnWidth(3, 30);
    const auto check = [this](int spare) {
        screen->settle();
        EXPECT_EQ(table->columnWidth(0), ColumnWidth);
        EXPECT_EQ(table->columnWidth(1), 20 + spare / 3);
        EXPECT_EQ(table->hHeader()->colEdges().at(Columns),
                  std::max(250, table->viewPort()->width()))
            << "no pixel is left over";
    };
    check(150);
    table->resize(ZrSize(table->width() + 70, table->height()));
    check(220);
    table->resize(ZrSize(200, table->height()));
    check(0);
    EXPECT_TRUE(table->hScrollBar()->isVisible());
    table->setColumnHidden(3, true);
    screen->settle();
    EXPECT_EQ(table->columnWidth(3), 0);
    table->setColumnHidden(3, false);
    EXPECT_EQ(table->columnWidth(3), 30);
}

TEST_F(Table, ASpanIsOneCell)
{
    table->setText(1, 1, ZrString("wide"));
    table->setSpan(1, 1, 2, 2);
    EXPECT_TRUE(table->cellRect(2, 2) == table->cellRect(1, 1));
    EXPECT_EQ(table->cellRect(1, 1).width(), 2 * ColumnWidth);
    table->setCurrentCell(2, 2);
    EXPECT_EQ(cell(), ZrPoint(1, 1));
    key(Zr::Key_Right);
    EXPECT_EQ(cell(), ZrPoint(1, 3));
    key(Zr::Key_Left);
    EXPECT_EQ(cell(), ZrPoint(1, 1));
    key(Zr::Key_Down);
    EXPECT_EQ(cell(), ZrPoint(3, 1));
    ZrStyle::applicationStyle().tableOption().colors.set(Zr::TableMergedArea, ZrColor(80, 0, 0));
    table->setCurrentCell(0, 0);
    table->viewPort()->update();
    screen->settle();
    const ZrPoint inside = table->viewPort()->mapToGlobal(table->cellRect(1, 1).bottomRight());
    EXPECT_EQ(screen->pixel(inside.x() - 5, inside.y() - 5) & 0x7fff, (80 >> 3) << 10);
    table->setSpan(1, 1, 1, 1);
    EXPECT_EQ(table->cellRect(1, 1).width(), ColumnWidth);
}

TEST_F(Table, ThePartsWithoutCellsHaveTheirColours)
{
    ZrTableOption &group = ZrStyle::applicationStyle().tableOption();
    group.colors.set(Zr::TableBottomArea, ZrColor(0, 80, 0));
    group.colors.set(Zr::TableRightArea, ZrColor(0, 0, 80));
    table->setRowCount(2);
    table->setColumnCount(3);
    screen->settle();
    const ZrRect port = table->viewPort()->rect();
    const ZrPoint corner = table->viewPort()->mapToGlobal(ZrPoint(0, 0));
    const auto at = [&](int x, int y) {
        return screen->pixel(corner.x() + x, corner.y() + y) & 0x7fff;
    };
    EXPECT_EQ(at(port.right() - 2, 5), 80 >> 3);
    EXPECT_EQ(at(5, port.bottom() - 2), (80 >> 3) << 5);
    EXPECT_EQ(at(port.right() - 2, port.bottom() - 2), (80 >> 3) << 5);
}

TEST_F(Table, TheLookIsSharedUntilOneDiffers)
{
    const struct {
        int state;
        int index;
    } indices[] = {{0, 0}, {1, 1}, {2, 2}, {3, 2}, {4, 3}, {7, 3}, {8, 4}, {15, 4}};
    for (const auto &row : indices)
        EXPECT_EQ(ZrTableWidgetColItem::styleIndex(row.state), row.index) << row.state;
    table->cellStyle().alignment.set(0, Zr::AlignRight);
    ZrTableWidgetColItem *one = table->item(1, 1);
    ZrTableWidgetColItem *two = table->item(1, 2);
    EXPECT_EQ(one->alignment(), int(Zr::AlignRight));
    table->rowItem(1)->setAlignment(Zr::AlignHCenter);
    two->setAlignment(Zr::AlignBottom);
    EXPECT_EQ(one->alignment(), int(Zr::AlignHCenter));
    EXPECT_EQ(two->alignment(), int(Zr::AlignBottom));
    EXPECT_EQ(table->item(2, 2)->alignment(), int(Zr::AlignRight));
    auto *check = putWidget(1, 3, new ZrCheckBox);
    table->rowItem(1)->setEnabled(false);
    EXPECT_FALSE(check->isEnabled());
    EXPECT_FALSE(one->isEnabled());
    table->rowItem(1)->setEnabled(true);
    EXPECT_TRUE(check->isEnabled());
}

TEST_F(Table, APartRepaintedEqualsTheWhole)
{
    for (int row = 0; row < Rows; ++row)
        for (int column = 0; column < Columns; ++column)
            table->setText(row, column, ZrString("Cell %1, %2").arg(row).arg(column));
    table->setAlternatingRowColors(true);
    table->setRowHidden(4, true);
    table->setSpan(2, 1, 2, 2);
    table->rowItem(5)->setBackground(ZrColor(64, 16, 16));
    table->setRowSideWidth(40);
    table->vScrollBar()->setValue(RowHeight / 3);
    table->hScrollBar()->setValue(17);
    table->setCurrentCell(5, 3);
    screen->settle();
    std::mt19937 random = seededRandom();
    for (int round = 0; round < 200; ++round) {
        const std::vector<std::uint16_t> whole = screen->picture();
        const ZrRect part(pick(random, 0, Columns * ColumnWidth), pick(random, 0, 6 * RowHeight),
                          pick(random, 1, 120), pick(random, 1, 80));
        table->update(part);
        screen->settle();
        ASSERT_EQ(screen->picture(), whole) << "round " << round;
    }
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
