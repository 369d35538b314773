// What stands in a table's cells, where, and what of it is painted.
#include "support/random_seed.h"
#include "support/tablescreen.h"

#include <zrcheckbox>
#include <zrpainter>

namespace
{

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

class TableCells : public zrtest::TableScreen
{
};

} // namespace

TEST_F(TableCells, MarginsAreInProportionToTheCell)
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

TEST_F(TableCells, AWidgetFillsItsCellOrKeepsItsSize)
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

TEST_F(TableCells, EverySecondRowInSightHasAnotherGround)
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

TEST_F(TableCells, OnlyRowsInSightArePaintedAndPlaced)
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

TEST_F(TableCells, ColumnsDivideWhatIsLeft)
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
    table->setColumnWidth(3, 90);
    screen->settle();
    EXPECT_EQ(table->columnWidth(1), 20 + 160 / 3) << "a later one takes from an earlier one";
    table->setColumnWidth(3, 30);
    table->resize(ZrSize(200, table->height()));
    check(0);
    EXPECT_TRUE(table->hScrollBar()->isVisible());
    table->setColumnHidden(3, true);
    screen->settle();
    EXPECT_EQ(table->columnWidth(3), 0);
    table->setColumnHidden(3, false);
    EXPECT_EQ(table->columnWidth(3), 30);
}

TEST_F(TableCells, ASpanIsOneCell)
{
    int own = 0;
    int covered = 0;
    table->setItem(1, 1, new CountedCell(&own));
    table->setItem(2, 2, new CountedCell(&covered));
    table->setSpan(1, 1, 2, 2);
    screen->settle();
    EXPECT_EQ(own, 1);
    EXPECT_EQ(covered, 0);
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

TEST_F(TableCells, ThePartsWithoutCellsHaveTheirColours)
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

TEST_F(TableCells, TheGroundFollowsThePointer)
{
    const ZrColor hovered(0, 80, 0);
    ZrStyle::applicationStyle().tableOption().colors.set(Zr::TableHoverBackground, hovered);
    table->hHeader()->setSortable(1, true);
    table->setCurrentCell(4, 0);
    const auto isLit = [this](int row, int column) {
        const ZrPoint at = row < 0 ? ZrPoint(Left + column * ColumnWidth + 3, Top + 3)
                                   : onScreen(row, column) - ZrPoint(ColumnWidth / 2 - 3, 0);
        return (screen->pixel(at.x(), at.y()) & 0x7fff) == (80 >> 3) << 5;
    };
    const ZrPoint places[] = {{0, 1}, {1, 1}, {0, 1}, {-1, 1}, {0, 1}, {-1, 1}, {-1, 2}, {0, 2}};
    for (const ZrPoint &place : places) {
        const ZrPoint at = place.x() < 0 ? ZrPoint(Left + place.y() * ColumnWidth + 50, Top + 10)
                                         : onScreen(place.x(), place.y());
        screen->pointer(at.x(), at.y());
        for (const ZrPoint &other : places)
            EXPECT_EQ(isLit(other.x(), other.y()), other == place && other != ZrPoint(-1, 2))
                << other.x() << ',' << other.y() << " while over " << place.x() << ',' << place.y();
    }
}

TEST_F(TableCells, TheLookIsSharedUntilOneDiffers)
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

TEST_F(TableCells, APartRepaintedEqualsTheWhole)
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
