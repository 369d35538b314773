// Every control of the gallery by arrows and Enter alone, and out again.
#include "explorer.h"
#include "galleryscreen.h"
#include "pages.h"
#include "samples.h"
#include "ui/controls/calendar.h"
#include "ui/controls/checklist.h"
#include "ui/controls/tabbar.h"

#include <set>
#include <zrabstractbutton>
#include <zrcombobox>
#include <zrdateedit>
#include <zrgroupbox>
#include <zrlineedit>
#include <zrslider>
#include <zrspinbox>
#include <zrtablewidget>

namespace
{

using Direction = KeyNavigation::Direction;

// What can have the focus in a window, whether it shows or has to be scrolled to.
void collect(ZrWidget *widget, std::set<ZrWidget *> &controls)
{
    for (ZrObject *child : widget->children()) {
        if (!child->isWidgetType())
            continue;
        auto *part = static_cast<ZrWidget *>(child);
        if (part->isHidden() || !part->isEnabled() || part->isWindow())
            continue;
        if (part->focusPolicy() != ZrWidget::NoFocus)
            controls.insert(part);
        // A table's cells are walked by the table.
        if (!part->inherits("ZrTableWidget"))
            collect(part, controls);
    }
}

std::string nameOf(const ZrWidget *widget)
{
    const auto *button = dynamic_cast<const ZrAbstractButton *>(widget);
    return zrtest::RecorderScreen::utf8(widget->className()) +
           (button ? " " + zrtest::RecorderScreen::utf8(button->text()) : "") + " at " +
           std::to_string(widget->geometry().left()) + "," +
           std::to_string(widget->geometry().top());
}

class Walker : public GalleryScreen, public testing::WithParamInterface<ZrSize>
{
protected:
    Walker() : GalleryScreen(GetParam()) {}

    ZrListWidget *menu() const
    {
        for (ZrObject *child : gallery->children())
            if (auto *list = dynamic_cast<ZrListWidget *>(child))
                return list;
        return nullptr;
    }
    void leavePopup()
    {
        navigation.key(Zr::Key_Escape);
        screen->settle();
    }
    bool opensAndLeavesPopup()
    {
        navigation.enter();
        screen->settle();
        const bool opened = ZrDesktop::activePopup();
        leavePopup();
        return opened && !ZrDesktop::activePopup();
    }
    template <char Letter>
    bool emitsOnEnter(ZrObject *sender, ZrSignal *signal)
    {
        log.take();
        log.watch<Letter>(sender, signal);
        navigation.enter();
        screen->settle();
        return log.take() == std::string(1, Letter);
    }
    // Between Enter and Enter the arrows change the value.
    template <typename Control>
    bool adjusts(Control *control, Direction direction)
    {
        const int before = control->value();
        navigation.enter();
        navigation.arrow(direction);
        navigation.enter();
        screen->settle();
        return control->value() != before && !navigation.isEditing();
    }
    bool clicks(ZrAbstractButton *button);
    bool goToCell(ZrTableWidget *table, int row, int column);
    bool worksCells(ZrTableWidget *table);
    // Does what the control is for; false when it did not do it.
    bool operate(ZrWidget *widget);

    zrtest::SignalLog log;
    int dialogsWalked = 0;
};

// Runs inside the loop of a dialog, which would wait for events for ever.
class DialogGuest : public ZrObject
{
public:
    explicit DialogGuest(std::function<void()> visit) : visit_(std::move(visit)) { callAgain(); }
    void customEvent(ZrEvent *) override
    {
        if (ZrDesktop::modalWidget())
            visit_();
        else if (++calls_ < MostCalls)
            callAgain();
    }

private:
    static constexpr int MostCalls = 20;
    void callAgain() { ZrApplication::postEvent(this, new CEvent(ZrEvent::FirstCustom)); }

    std::function<void()> visit_;
    int calls_ = 0;
};

bool Walker::clicks(ZrAbstractButton *button)
{
    log.take();
    log.watch<'c'>(button, &button->clicked);
    navigation.enter();
    screen->settle();
    EXPECT_TRUE(button->isDown()) << nameOf(button);
    const DialogGuest guest([this] {
        ZrWidget *dialog = ZrDesktop::modalWidget();
        if (dialog->inherits("Blocker"))
            return;
        std::set<ZrWidget *> controls;
        collect(dialog, controls);
        Explorer inside(navigation, *screen, nullptr);
        ++dialogsWalked;
        navigation.arrow(Direction::Down);
        EXPECT_TRUE(inside.explore([](ZrWidget *) {})) << nameOf(dialog);
        for (ZrWidget *control : controls)
            EXPECT_TRUE(inside.hasReached(control)) << nameOf(control) << " in a dialog";
        leavePopup();
    });
    screen->pass(ZrAbstractButton::KeyPressMs);
    screen->pass(SlowButton::SlowMs);
    EXPECT_FALSE(ZrDesktop::modalWidget()) << nameOf(button);
    if (ZrDesktop::activePopup())
        leavePopup();
    return log.take() == "c";
}

bool Walker::goToCell(ZrTableWidget *table, int row, int column)
{
    constexpr int MostSteps = 20;
    const auto step = [&](int now, int wanted, Direction back, Direction on) {
        if (now != wanted)
            navigation.arrow(now > wanted ? back : on);
    };
    for (int i = 0; i < MostSteps; ++i) {
        step(table->currentRow(), row, Direction::Up, Direction::Down);
        step(table->currentColumn(), column, Direction::Left, Direction::Right);
        screen->settle();
    }
    return table->currentRow() == row && table->currentColumn() == column;
}

// What stands in the cells of the first rows, or the cells themselves.
bool Walker::worksCells(ZrTableWidget *table)
{
    constexpr int Rows = 5;
    for (int row = 0; row < std::min(Rows, table->rowCount()); ++row)
        for (int column = 0; column < table->columnCount(); ++column) {
            if (table->cellRect(row, column).isEmpty())
                continue;
            ZrWidget *widget = table->cellWidget(row, column);
            const bool isWorked =
                goToCell(table, row, column) &&
                (widget && widget->isEnabled() ? operate(widget)
                                               : emitsOnEnter<'a'>(table, &table->cellActivated));
            EXPECT_TRUE(isWorked) << "cell " << row << "," << column;
            EXPECT_EQ(ZrDesktop::focusWidget(), table) << "cell " << row << "," << column;
            if (!isWorked)
                return false;
        }
    return true;
}

bool Walker::operate(ZrWidget *widget)
{
    if (auto *table = dynamic_cast<ZrTableWidget *>(widget))
        return worksCells(table);
    if (auto *button = dynamic_cast<ZrAbstractButton *>(widget))
        return clicks(button);
    if (auto *slider = dynamic_cast<ZrAbstractSlider *>(widget))
        return adjusts(slider, slider->orientation() == Zr::Horizontal ? Direction::Right
                                                                       : Direction::Down);
    if (auto *box = dynamic_cast<ZrSpinBox *>(widget))
        return adjusts(box, Direction::Up);
    if (auto *list = dynamic_cast<CheckList *>(widget)) {
        navigation.arrow(Direction::Down);
        return emitsOnEnter<'k'>(list, &list->checkedChanged);
    }
    if (auto *list = dynamic_cast<ZrListWidget *>(widget))
        return emitsOnEnter<'l'>(list, &list->itemClicked);
    if (auto *box = dynamic_cast<ZrGroupBox *>(widget))
        return emitsOnEnter<'g'>(box, &box->toggled);
    if (auto *calendar = dynamic_cast<Calendar *>(widget))
        return emitsOnEnter<'d'>(calendar, &calendar->dayClicked);
    if (auto *tabs = dynamic_cast<TabBar *>(widget)) {
        navigation.arrow(Direction::Right);
        return emitsOnEnter<'b'>(tabs, &tabs->currentChanged);
    }
    return opensAndLeavesPopup();
}

} // namespace

TEST_P(Walker, ReachesAndWorksEveryControlAndComesOut)
{
    ZrListWidget *home = menu();
    ASSERT_TRUE(home);
    home->setFocus(Zr::KeyManagerFocus);
    for (int page = 0; page < PageCount; ++page) {
        SCOPED_TRACE(Pages[page].name);
        if (page > 0)
            navigation.arrow(Direction::Down);
        screen->settle();
        ASSERT_EQ(home->currentRow(), page);
        std::set<ZrWidget *> controls;
        collect(gallery.get(), controls);
        Explorer explorer(navigation, *screen, home);
        const bool done = explorer.explore([&](ZrWidget *widget) {
            EXPECT_TRUE(widget->isEnabled() && widget->isVisible()) << nameOf(widget);
            EXPECT_TRUE(operate(widget)) << nameOf(widget);
            EXPECT_EQ(ZrDesktop::focusWidget(), widget) << nameOf(widget);
        });
        EXPECT_TRUE(done);
        for (ZrWidget *control : controls)
            EXPECT_TRUE(explorer.hasReached(control)) << nameOf(control);
        ASSERT_TRUE(explorer.walkHome());
    }
    EXPECT_EQ(dialogsWalked, SampleCount);
}

INSTANTIATE_TEST_SUITE_P(Sizes, Walker, testing::Values(ZrSize(1280, 720), ZrSize(1920, 1080)));
