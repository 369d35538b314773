// The remote's way into a table, through its cells and widgets, and out again.
#include "support/tablescreen.h"
#include "ui/input/keynavigation.h"

#include <zrcheckbox>
#include <zrcombobox>
#include <zrpushbutton>

using Direction = KeyNavigation::Direction;

namespace
{

class TableKeys : public zrtest::TableScreen
{
protected:
    void SetUp() override
    {
        zrtest::TableScreen::SetUp();
        above = show(new ZrPushButton(ZrString("above"), window.get()), ZrRect(Left, 0, 200, 16));
        below = show(new ZrPushButton(ZrString("below"), window.get()), ZrRect(Left, 300, 200, 30));
        right = show(new ZrPushButton(ZrString("right"), window.get()), ZrRect(500, 100, 80, 30));
        table->setFocus(Zr::KeyManagerFocus);
        table->setCurrentCell(0, 0);
        screen->settle();
    }
    void arrows(Direction direction, int times)
    {
        for (int i = 0; i < times; ++i)
            navigation.arrow(direction);
        screen->settle();
    }

    KeyNavigation navigation;
    ZrPushButton *above = nullptr;
    ZrPushButton *below = nullptr;
    ZrPushButton *right = nullptr;
};

} // namespace

TEST_F(TableKeys, AnArrowThatMovesNothingLeadsOut)
{
    arrows(Direction::Right, Columns - 1);
    EXPECT_EQ(cell(), ZrPoint(0, Columns - 1));
    arrows(Direction::Right, 1);
    EXPECT_TRUE(right->hasFocus());
    arrows(Direction::Left, 1);
    EXPECT_TRUE(table->hasFocus());
    EXPECT_EQ(cell(), ZrPoint(0, Columns - 1)) << "where it was left";
    arrows(Direction::Down, Rows - 1);
    EXPECT_EQ(cell(), ZrPoint(Rows - 1, Columns - 1));
    arrows(Direction::Down, 1);
    EXPECT_TRUE(below->hasFocus());
    arrows(Direction::Up, 1);
    EXPECT_TRUE(table->hasFocus());
}

TEST_F(TableKeys, AnEmptyTableIsPassed)
{
    below->setFocus(Zr::KeyManagerFocus);
    table->setRowCount(0);
    screen->settle();
    arrows(Direction::Up, 2);
    EXPECT_TRUE(above->hasFocus());
}

TEST_F(TableKeys, WidgetsAreUsedFromTheirCells)
{
    std::vector<ZrCheckBox *> checks;
    for (int row = 0; row < Rows; ++row)
        checks.push_back(putWidget(row, 1, new ZrCheckBox));
    arrows(Direction::Right, 1);
    navigation.enter();
    screen->pass(200);
    EXPECT_TRUE(checks[0]->isChecked());
    EXPECT_TRUE(table->hasFocus()) << "the walk goes on in the table";
    auto *combo = putWidget(0, 2, new ZrComboBox);
    combo->addItem(ZrString("one"));
    combo->addItem(ZrString("two"));
    arrows(Direction::Right, 1);
    navigation.enter();
    arrows(Direction::Down, 1);
    navigation.enter();
    screen->settle();
    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_FALSE(combo->isPopupVisible());
    arrows(Direction::Left, 1);
    EXPECT_EQ(cell(), ZrPoint(0, 1)) << "back among the cells";
    // By pointer into a widget, then on by the keys: through every row, and out of the table.
    checks[1]->setFocus(Zr::MouseFocus);
    screen->settle();
    EXPECT_EQ(cell(), ZrPoint(1, 1));
    int steps = 0;
    while (!below->hasFocus() && ++steps < 3 * Rows)
        arrows(Direction::Down, 1);
    EXPECT_TRUE(below->hasFocus());
    EXPECT_EQ(cell(), ZrPoint(Rows - 1, 1));
}
