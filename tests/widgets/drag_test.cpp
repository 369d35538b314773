#include <gtest/gtest.h>

#include "support/virtualscreen.h"
#include "widgets/zrdesktop.h"
#include "widgets/zrinstallwidgets.h"

#include <memory>
#include <string>
#include <zrdrag>
#include <zrgraphics>
#include <zrmemsurface>
#include <zrscreen>

using zrtest::VirtualScreen;

namespace
{

// Writes down what is dragged over it.
class Target : public ZrWidget
{
public:
    Target(const char *name, std::string *log, const ZrRect &place, bool wants)
        : name_(name), log_(log), wants_(wants)
    {
        setAttribute(DeleteOnClose, false);
        setGeometry(place);
        show();
    }

protected:
    void dragEnterEvent(ZrEvent *event) override
    {
        *log_ += name_ + ":enter ";
        event->setAccepted(wants_);
    }
    void dragMoveEvent(ZrEvent *event) override
    {
        const ZrPoint at = static_cast<ZrDragMoveEvent *>(event)->position();
        *log_ += name_ + ":move" + std::to_string(at.x()) + "," + std::to_string(at.y()) + " ";
    }
    void dragLeaveEvent(ZrEvent *) override { *log_ += name_ + ":leave "; }
    void dropEvent(ZrEvent *event) override
    {
        const auto *drop = static_cast<ZrDropEvent *>(event);
        *log_ += name_ + ":drop=" + drop->mimeData()->data("text").constData() + " ";
    }

private:
    std::string name_;
    std::string *log_;
    bool wants_;
};

class DragTest : public testing::Test
{
protected:
    DragTest()
    {
        zrInstallGraphics();
        zrInstallWidgets();
        // The pointer's thread has no business here, and prints when it finds no device.
        ZrApplication::parts().makePointer = nullptr;
        screen = std::make_unique<VirtualScreen>(320, 200);
        source = std::make_unique<Target>("source", &log, ZrRect(0, 0, 100, 100), false);
        target = std::make_unique<Target>("target", &log, ZrRect(100, 0, 100, 100), true);
        ZrApplication::instance()->processPending();
    }
    ~DragTest() override
    {
        source.reset();
        target.reset();
        screen.reset();
        ZrApplication::parts() = ZrApplicationParts();
    }
    ZrDrag *startDrag(const ZrPoint &at)
    {
        pointer(at, Zr::LeftButton);
        auto *drag = new ZrDrag(source.get());
        auto *data = new ZrMimeData; // owned by the drag
        data->setData("text", ZrByteArray("hello", 5));
        drag->setMimeData(data);
        drag->setPixmap(ZrImage(8, 8, ZrColor(255, 0, 0)), ZrPoint(4, 4));
        EXPECT_TRUE(drag->start());
        return drag;
    }
    void pointer(const ZrPoint &at, int buttons)
    {
        ZrApplication::postEvent(ZrApplication::instance(), new ZrRawMouseEvent(at, buttons, 0));
        ZrApplication::instance()->processPending();
    }
    std::string take() { return std::move(log); }

    std::string log;
    std::unique_ptr<VirtualScreen> screen;
    std::unique_ptr<Target> source, target;
};

TEST_F(DragTest, EntersMovesAndDropsWhereItIsWanted)
{
    startDrag(ZrPoint(10, 10));
    pointer(ZrPoint(20, 20), Zr::LeftButton);
    EXPECT_EQ(take(), "source:enter ") << "not wanted: no moves";
    pointer(ZrPoint(110, 30), Zr::LeftButton);
    EXPECT_EQ(take(), "target:enter target:move10,30 ");
    ASSERT_EQ(ZrScreen::instance()->surfaces().size(), 3);
    EXPECT_EQ(ZrScreen::instance()->surfaces().last()->rect(), ZrRect(106, 26, 8, 8));
    pointer(ZrPoint(50, 50), Zr::LeftButton);
    EXPECT_EQ(take(), "target:leave source:enter ");
    pointer(ZrPoint(150, 60), 0);
    EXPECT_EQ(take(), "target:enter target:move50,60 target:move50,60 target:drop=hello ");
    EXPECT_FALSE(ZrDragManager::instance()->isDragging());
    pointer(ZrPoint(120, 20), 0);
    EXPECT_EQ(take(), "");
}

TEST_F(DragTest, NeedsDataAndOneAtATime)
{
    testing::internal::CaptureStdout();
    ZrDrag empty(source.get());
    EXPECT_FALSE(empty.start());
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "ZrDrag: No mimedata set before starting the drag\n");
    startDrag(ZrPoint(10, 10));
    auto *data = new ZrMimeData; // owned by the drag
    empty.setMimeData(data);
    EXPECT_FALSE(empty.start());
    testing::internal::CaptureStdout();
    ZrEvent event(ZrEvent::MouseMove);
    EXPECT_FALSE(ZrDragManager::instance()->eventFilter(nullptr, &event));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "ZrDragManager::eventFilter: No object\n");
    ZrDragManager::instance()->cancel();
}

TEST_F(DragTest, SurvivesTheDeathOfEitherSide)
{
    startDrag(ZrPoint(10, 10));
    pointer(ZrPoint(110, 30), Zr::LeftButton);
    target.reset();
    pointer(ZrPoint(112, 30), Zr::LeftButton);
    EXPECT_TRUE(ZrDragManager::instance()->isDragging());
    source.reset();
    EXPECT_FALSE(ZrDragManager::instance()->isDragging());
    pointer(ZrPoint(112, 40), 0);
}

} // namespace
