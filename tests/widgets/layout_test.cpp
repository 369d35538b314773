#include "support/virtualscreen.h"
#include "widgets/zrinstallwidgets.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>
#include <zrboxlayout>
#include <zrgraphics>
#include <zrgridlayout>
#include <zrwidget>

using zrtest::VirtualScreen;

namespace
{

constexpr auto Fixed = ZrSizePolicy::Fixed;
constexpr auto Preferred = ZrSizePolicy::Preferred;
constexpr auto Expanding = ZrSizePolicy::Expanding;

class Box : public ZrWidget
{
public:
    explicit Box(int width = 20, int height = 10, ZrWidget *parent = nullptr)
        : ZrWidget(parent), hint(width, height)
    {
        setAttribute(DeleteOnClose, false);
    }
    ZrSize sizeHint() const override
    {
        ++asked;
        return hint;
    }
    // As text that wraps: the same area, whatever the width.
    bool hasHeightForWidth() const override { return area > 0; }
    int heightForWidth(int width) const override { return (area + width - 1) / std::max(width, 1); }

    ZrSize hint;
    int area = 0;
    int resizes = 0;
    mutable int asked = 0;

protected:
    void resizeEvent(ZrResizeEvent *) override { ++resizes; }
};

// A window whose layout gets exactly its width and height.
class Frame : public ZrWidget
{
public:
    explicit Frame(int width, int height)
    {
        setAttribute(DeleteOnClose, false);
        setAttribute(LayoutOnWholeRect);
        setGeometry(ZrRect(0, 0, width, height));
    }
};

class Layouts : public testing::Test
{
protected:
    Layouts()
    {
        zrInstallGraphics();
        zrInstallWidgets();
        ZrApplication::parts().makePointer = nullptr;
        screen = std::make_unique<VirtualScreen>(640, 480);
    }
    std::unique_ptr<VirtualScreen> screen;
};

std::string printed(const std::function<void()> &act)
{
    testing::internal::CaptureStdout();
    act();
    return testing::internal::GetCapturedStdout();
}

using Rects = std::vector<ZrRect>;

Rects childRects(const ZrWidget &owner)
{
    Rects all;
    for (const ZrObject *child : owner.children()) {
        if (child->isWidgetType())
            all.push_back(static_cast<const ZrWidget *>(child)->geometry());
    }
    return all;
}

} // namespace

void PrintTo(const ZrRect &rect, std::ostream *out)
{
    *out << rect.left() << "," << rect.top() << " " << rect.width() << "x" << rect.height();
}

TEST_F(Layouts, BoxesPlaceTheirItems)
{
    Box *first = nullptr;
    const struct {
        const char *what;
        std::function<void(ZrBoxLayout &)> fill;
        Rects expected;
    } rows[] = {
        {"stretches",
         [&](ZrBoxLayout &box) {
             box.addWidget(new Box, 1);
             box.addWidget(new Box, 2);
         },
         {ZrRect(0, 0, 100, 60), ZrRect(100, 0, 200, 60)}},
        {"margins, spacing and a stretch between fixed widgets",
         [&](ZrBoxLayout &box) {
             box.setContentsMargins(10, 5, 20, 15);
             box.setSpacing(4);
             for (Box *each : {new Box(30, 10), new Box(40, 50)}) {
                 each->setSizePolicy(ZrSizePolicy(Fixed, Preferred));
                 box.addWidget(each);
                 if (box.count() == 1)
                     box.addStretch();
             }
         },
         {ZrRect(10, 5, 30, 40), ZrRect(240, 5, 40, 40)}},
        {"right to left",
         [&](ZrBoxLayout &box) {
             box.setDirection(ZrBoxLayout::RightToLeft);
             box.addWidget(new Box, 1);
             box.addWidget(new Box, 2);
         },
         {ZrRect(200, 0, 100, 60), ZrRect(0, 0, 200, 60)}},
        {"bottom to top, with fixed spacing",
         [&](ZrBoxLayout &box) {
             box.setDirection(ZrBoxLayout::BottomToTop);
             box.addWidget(new Box, 1);
             box.addSpacing(10);
             box.addWidget(new Box, 1);
         },
         {ZrRect(0, 35, 300, 25), ZrRect(0, 0, 300, 25)}},
        {"a hidden widget takes neither room nor spacing",
         [&](ZrBoxLayout &box) {
             box.setSpacing(10);
             for (int i = 0; i < 3; ++i) {
                 Box *each = new Box(20, 10);
                 box.addWidget(each);
                 if (i == 1)
                     each->hide();
             }
         },
         {ZrRect(0, 0, 145, 60), ZrRect::fromEdges(0, 0, -1, -1), ZrRect(155, 0, 145, 60)}},
        {"alignment keeps the hint; a maximum stands in the middle",
         [&](ZrBoxLayout &box) {
             box.addWidget(new Box(20, 10), 1, Zr::AlignRight | Zr::AlignTop);
             box.addWidget(new Box(20, 10), 1, Zr::AlignCenter);
             Box *limited = new Box(20, 10);
             limited->setMaximumSize(50, 30);
             box.addWidget(limited, 1);
         },
         {ZrRect(105, 0, 20, 10), ZrRect(177, 25, 20, 10), ZrRect(250, 15, 50, 30)}},
        {"layout margins reach out of the cell",
         [&](ZrBoxLayout &box) {
             for (const bool ignores : {false, true}) {
                 Box *each = new Box(20, 10);
                 each->setLayoutMargins(1, 2, 3, 4);
                 each->setAttribute(ZrWidget::IgnoreLayoutMargins, ignores);
                 each->setSizePolicy(ZrSizePolicy(ZrSizePolicy::Ignored, Preferred));
                 box.addWidget(each);
             }
         },
         {ZrRect(-1, -2, 154, 66), ZrRect(150, 0, 150, 60)}},
        {"an expanding layout inside takes what there is",
         [&](ZrBoxLayout &box) {
             box.setSpacing(6);
             auto *column = new ZrVBoxLayout;
             Box *wide = new Box(20, 10);
             wide->setSizePolicy(ZrSizePolicy(Expanding, Fixed));
             column->addWidget(wide);
             column->addWidget(new Box(20, 10));
             box.addLayout(column);
             box.addWidget(new Box(44, 10));
         },
         {ZrRect(0, 0, 250, 10), ZrRect(0, 16, 250, 44), ZrRect(256, 0, 44, 60)}},
        {"a widget added again leaves its first place",
         [&](ZrBoxLayout &box) {
             first = new Box;
             box.addWidget(first);
             box.addWidget(new Box);
             auto *inner = new ZrHBoxLayout;
             box.addLayout(inner);
             inner->addWidget(first);
         },
         {ZrRect(150, 0, 150, 60), ZrRect(0, 0, 150, 60)}},
    };
    for (const auto &row : rows) {
        Frame frame(300, 60);
        auto *box = new ZrHBoxLayout(&frame);
        row.fill(*box);
        box->activate();
        EXPECT_EQ(childRects(frame), row.expected) << row.what;
    }
}

TEST_F(Layouts, GridsPlaceTheirItems)
{
    const struct {
        const char *what;
        std::function<void(ZrGridLayout &)> fill;
        Rects expected;
        ZrSize hint;
    } rows[] = {
        {"columns and rows as wide as their widest",
         [](ZrGridLayout &grid) {
             grid.setHorizontalSpacing(10);
             grid.setVerticalSpacing(4);
             grid.setColumnStretch(1, 1);
             grid.setRowStretch(2, 1);
             grid.addWidget(new Box(50, 10), 0, 0);
             grid.addWidget(new Box(30, 20), 0, 1);
             grid.addWidget(new Box(70, 10), 1, 0);
         },
         {ZrRect(0, 0, 70, 20), ZrRect(80, 0, 220, 20), ZrRect(0, 24, 70, 10)},
         ZrSize(110, 34)},
        {"empty rows and columns are nothing, least sizes are kept",
         [](ZrGridLayout &grid) {
             grid.setSpacing(10);
             grid.addWidget(new Box(50, 10), 0, 0);
             grid.addWidget(new Box(50, 10), 5, 4);
             grid.setColumnMinimumWidth(2, 40);
             grid.setRowMinimumHeight(5, 40);
         },
         {ZrRect(0, 0, 125, 45), ZrRect(175, 55, 125, 45)},
         ZrSize(150, 60)},
        {"what spans needs room in what it covers, and may reach to the end",
         [](ZrGridLayout &grid) {
             grid.addWidget(new Box(20, 10), 0, 0);
             grid.addWidget(new Box(20, 10), 0, 1);
             Box *wide = new Box(200, 10);
             wide->setSizePolicy(ZrSizePolicy(Fixed, Preferred));
             grid.addWidget(wide, 1, 0, 1, -1);
         },
         {ZrRect(0, 0, 150, 50), ZrRect(150, 0, 150, 50), ZrRect(50, 50, 200, 50)},
         ZrSize(200, 20)},
        {"the next cell",
         [](ZrGridLayout &grid) {
             grid.addWidget(new Box, 0, 0);
             grid.addWidget(new Box, 0, 1);
             Box *each = new Box;
             grid.addItem(new ZrWidgetItemV2(each));
         },
         {ZrRect(0, 0, 150, 50), ZrRect(150, 0, 150, 50), ZrRect(0, 50, 150, 50)},
         ZrSize(40, 20)},
    };
    for (const auto &row : rows) {
        Frame frame(300, 100);
        auto *grid = new ZrGridLayout(&frame);
        row.fill(*grid);
        EXPECT_EQ(grid->sizeHint(), row.hint) << row.what;
        grid->activate();
        EXPECT_EQ(childRects(frame), row.expected) << row.what;
    }
}

TEST_F(Layouts, HeightsFollowTheWidth)
{
    for (const bool inGrid : {false, true}) {
        Frame frame(100, 200);
        Box *text = new Box(40, 10), *rest = new Box(40, 10);
        text->area = 2000;
        if (inGrid) {
            auto *grid = new ZrGridLayout(&frame);
            grid->setSpacing(5);
            grid->addWidget(text, 0, 0);
            grid->addWidget(rest, 1, 0);
            grid->setRowStretch(1, 1);
        } else {
            auto *box = new ZrVBoxLayout(&frame);
            box->setSpacing(5);
            box->addWidget(text);
            box->addWidget(rest, 1);
        }
        EXPECT_EQ(frame.heightForWidth(100), 35);
        EXPECT_EQ(frame.heightForWidth(50), 55);
        frame.show();
        EXPECT_EQ(text->geometry(), ZrRect(0, 0, 100, 20));
        EXPECT_EQ(rest->geometry(), ZrRect(0, 25, 100, 175));
        frame.resize(ZrSize(40, 200));
        EXPECT_EQ(text->geometry(), ZrRect(0, 0, 40, 50)) << inGrid;
        EXPECT_EQ(rest->geometry(), ZrRect(0, 55, 40, 145)) << inGrid;
    }
}

TEST_F(Layouts, ChangesAreLaidOutOnceByTheNextRequest)
{
    Frame frame(300, 60);
    auto *box = new ZrHBoxLayout(&frame);
    Box *left = new Box, *right = new Box;
    box->addWidget(left);
    box->addWidget(right);
    EXPECT_EQ(left->geometry().right(), -1) << "nothing is placed before the first activation";
    frame.show();
    EXPECT_EQ(left->width(), 150);
    screen->settle();

    left->resizes = left->asked = 0;
    right->hint = ZrSize(200, 10);
    right->updateGeometry();
    right->setMinimumWidth(110);
    EXPECT_EQ(left->width(), 150) << "not before the request is handled";
    screen->settle();
    EXPECT_EQ(left->geometry(), ZrRect(0, 0, 100, 60));
    EXPECT_EQ(left->resizes, 1);
    EXPECT_EQ(left->asked, 0) << "hints that did not change are kept";

    right->hide();
    screen->settle();
    EXPECT_EQ(left->width(), 300);
    right->show();
    screen->settle();
    EXPECT_EQ(right->width(), 200);
    EXPECT_EQ(left->width(), 100);
    delete right;
    screen->settle();
    EXPECT_EQ(left->width(), 300);
    EXPECT_EQ(box->count(), 1);
    frame.resize(ZrSize(90, 60));
    EXPECT_EQ(left->width(), 90) << "a change of size is followed at once";
}

TEST_F(Layouts, OwnersInsideLayoutsAndBelowPlainWidgetsAreReached)
{
    Frame frame(200, 100);
    auto *outer = new ZrHBoxLayout(&frame);
    auto *page = new ZrWidget;
    outer->addWidget(page);
    auto *plain = new ZrWidget(page);
    plain->setGeometry(ZrRect(0, 0, 80, 40));
    auto *panel = new ZrWidget(page);
    panel->setAttribute(ZrWidget::LayoutOnWholeRect);
    panel->setGeometry(ZrRect(0, 50, 80, 40));
    Box *inner = new Box;
    (new ZrVBoxLayout(panel))->addWidget(inner);
    frame.show();
    EXPECT_EQ(inner->geometry(), ZrRect(0, 0, 80, 40));

    auto *late = new ZrWidget(plain);
    late->setGeometry(ZrRect(0, 0, 30, 30));
    Box *content = new Box;
    (new ZrVBoxLayout(late))->addWidget(content);
    screen->settle();
    EXPECT_EQ(content->geometry(), ZrRect(0, 0, 31, 31)) << "the contents rectangle";

    // A hint deep inside moves the widgets of the window.
    auto *side = new Box(100, 10);
    side->setSizePolicy(ZrSizePolicy(Fixed, Preferred));
    outer->addWidget(side);
    auto *pageLayout = new ZrVBoxLayout(page);
    Box *needed = new Box(10, 10);
    pageLayout->addWidget(needed);
    screen->settle();
    EXPECT_EQ(page->width(), 100);
    needed->setMinimumWidth(140);
    screen->settle();
    EXPECT_EQ(frame.width(), 240) << "a window grows to what its layout needs";
    EXPECT_EQ(page->width(), 140);
    needed->setMinimumWidth(0);
    frame.resize(ZrSize(150, 100));
    screen->settle();
    EXPECT_EQ(frame.size(), ZrSize(150, 100)) << "that was no request for a minimum";
}

TEST_F(Layouts, WindowsTakeTheirFirstSizeFromTheLayout)
{
    Box content(70, 30);
    ZrWidget window;
    window.setAttribute(ZrWidget::DeleteOnClose, false);
    window.setContentsMargins(1, 2, 3, 4);
    auto *box = new ZrVBoxLayout(&window);
    box->addWidget(&content);
    box->setContentsMargins(10, 10, 10, 10);
    EXPECT_EQ(window.sizeHint(), ZrSize(94, 56));
    window.show();
    EXPECT_EQ(window.size(), ZrSize(94, 56));
    EXPECT_EQ(content.geometry(), ZrRect::fromEdges(11, 12, 81, 42));
    content.setParent(nullptr);
    EXPECT_EQ(box->count(), 0);
}

TEST_F(Layouts, MisuseIsToldAndChangesNothing)
{
    Frame frame(100, 100), other(100, 100);
    auto *box = new ZrHBoxLayout(&frame);
    auto *grid = new ZrGridLayout;
    auto *nested = new ZrVBoxLayout;
    box->addLayout(nested);
    const struct {
        std::function<void()> act;
        const char *line;
    } rows[] = {
        {[&] { box->addWidget(nullptr); }, "Cannot add null widge.\n"},
        {[&] { grid->addWidget(nullptr, 0, 0); }, "Cannot add null widge.\n"},
        {[&] { frame.setLayout(nullptr); }, "ZrWidget::setLayout: Cannot set layout to 0\n"},
        {[&] { frame.setLayout(box); }, ""},
        {[&] { frame.setLayout(grid); },
         "ZrWidget::setLayout: Attempting to set ZrLayout, which already has a layout\n"},
        {[&] { other.setLayout(nested); },
         "ZrWidget::setLayout: Attempting to set ZrLayout, when the ZrLayout already has a "
         "parent\n"},
        {[&] { box->addLayout(nested); }, "ZrLayout::addLayout: the layout already has a parent\n"},
        {[&] { grid->addItem(new ZrSpacerItem(1, 1, ZrSizePolicy()), 2, 1, 0, 1); },
         "ZrGridLayout: Multi-cell fromRow greater than toRow\n"},
        {[&] { grid->addItem(new ZrSpacerItem(1, 1, ZrSizePolicy()), 2, 1, 1, 0); },
         "ZrGridLayout: Multi-cell fromCol greater than toCol\n"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(printed(row.act), row.line);
    EXPECT_EQ(box->count(), 1);
    EXPECT_EQ(box->itemAt(1), nullptr);
    EXPECT_EQ(box->itemAt(-1), nullptr);
    EXPECT_EQ(box->sizeHint(), ZrSize(0, 0));

    // A layout moves from widget to widget with what it holds.
    Box *content = new Box;
    nested->addWidget(content);
    other.setLayout(box);
    EXPECT_EQ(frame.layout(), nullptr);
    EXPECT_EQ(other.layout(), box);
    EXPECT_EQ(content->parentWidget(), &other);
    frame.setLayout(grid);
    other.show();
    EXPECT_EQ(content->geometry(), ZrRect(0, 0, 100, 100));
    delete nested;
    EXPECT_EQ(box->count(), 0);
    delete box;
    EXPECT_EQ(other.layout(), nullptr);
    other.resize(ZrSize(50, 50));
    screen->settle();
}
