#include <gtest/gtest.h>

#include "link/deviceparams.h"
#include "live/layoutmenus.h"
#include "live/splitmodes.h"
#include "support/recorderscreen.h"
#include "ui/controls/iconbutton.h"
#include "ui/maincommands.h"
#include "ui/receivers.h"

namespace
{

constexpr std::size_t ChannelCountOffset = 72;

struct LiveView : ZrObject {
    void customEvent(ZrEvent *event) override
    {
        const auto *request = static_cast<CommonCtrlEvent *>(event);
        picked.push_back({request->command(), request->argument()});
    }
    std::vector<std::pair<int, int>> picked;
};

class LayoutMenus : public zrtest::RecorderScreen
{
protected:
    LayoutMenus()
    {
        DeviceParamBlock block;
        block.bytes[ChannelCountOffset] = 16;
        setDeviceParamBlock(block);
        setReceiver(Receiver::MainViewManager, &view);
    }
    ~LayoutMenus() override { clearReceiver(Receiver::MainViewManager, &view); }

    void click(const ZrWidget &widget)
    {
        const ZrPoint at = widget.mapToGlobal(widget.rect().center());
        screen->click(at.x(), at.y());
    }

    LiveView view;
};

} // namespace

TEST_F(LayoutMenus, OfferWhatTheDeviceHasChannelsForAndPostWhatIsPicked)
{
    ScreanLayoutMenu menu;
    menu.setAttribute(ZrWidget::DeleteOnClose, false);
    menu.adjustSize();
    menu.move(ZrPoint(100, 600));
    menu.show();
    screen->settle();
    ASSERT_EQ(menu.buttons().size(), 4); // 4, 9, 12 and 16
    click(*menu.buttons().at(3));
    ASSERT_EQ(view.picked.size(), 1u);
    EXPECT_EQ(view.picked[0], std::make_pair(int(MainViewCommand::SetLayout), 11));

    // The last button opens the others, above it; a pick closes them.
    MoreLayoutMenu *more = MoreLayoutMenu::instance();
    screen->click(menu.geometry().right() - 20, 620);
    ASSERT_TRUE(more->isVisible());
    ASSERT_EQ(more->buttons().size(), live::offeredUnevenModes(16));
    EXPECT_LT(more->geometry().bottom(), 620);
    const ZrRect picture = more->buttons().at(0)->rect();
    const ZrPoint corner = more->buttons().at(0)->mapToGlobal(picture.center());
    EXPECT_TRUE(screen->isOpaque(corner.x(), corner.y()));
    click(*more->buttons().at(4));
    EXPECT_FALSE(more->isVisible());
    EXPECT_EQ(more->lastMode(), live::UnevenModes[4]);
    ASSERT_EQ(view.picked.size(), 2u);
    EXPECT_EQ(view.picked[1].second, live::UnevenModes[4]);
    delete more;
}

TEST_F(LayoutMenus, EnterPicks)
{
    ScreanLayoutMenu menu;
    menu.setAttribute(ZrWidget::DeleteOnClose, false);
    menu.adjustSize();
    menu.show();
    ZrKeyEvent enter(ZrEvent::KeyPress, Zr::Key_Enter);
    ZrApplication::notify(menu.buttons().at(1), &enter);
    screen->pass(ZrAbstractButton::KeyPressMs);
    ASSERT_EQ(view.picked.size(), 1u);
    EXPECT_EQ(view.picked[0].second, 4);
}
