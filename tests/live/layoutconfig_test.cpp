#include <gtest/gtest.h>

#include "live/mainviewlayoutconfigdialog.h"
#include "live/zrvideoscreenlayoutmanager.h"
#include "support/recorderscreen.h"
#include "ui/controls/combobox.h"

#include <vector>

namespace
{

constexpr int FourCells = 1;
constexpr int SixCells = 2;
constexpr std::uint8_t None = ZrVideoScreen::NoChannel;

class LayoutConfig : public zrtest::RecorderScreen
{
protected:
    MainViewLayoutConfigDialog *show(int mode, std::initializer_list<int> order)
    {
        ZrVector<std::uint8_t> channels;
        for (int channel : order)
            channels.append(std::uint8_t(channel));
        ZrList<MainViewLayoutConfigDialog::Choice> choices;
        for (int channel = 0; channel < 9; ++channel)
            choices.append(
                {ZrString("Channel ") + ZrString::number(channel + 1), std::uint8_t(channel)});
        auto *page = new MainViewLayoutConfigDialog(
            *ZrVideoScreenLayoutManager::instance()->layoutOfMode(mode), channels, choices);
        page->setParent(window.get());
        page->setGeometry(ZrRect(ZrPoint(0, 0), page->preferredSize()));
        page->show();
        return page;
    }
};

std::vector<int> orderOf(const MainViewLayoutConfigDialog &page)
{
    std::vector<int> order;
    for (std::uint8_t channel : page.order())
        order.push_back(channel);
    return order;
}

std::vector<int> shownBy(const MainViewLayoutConfigDialog &page)
{
    std::vector<int> shown;
    for (int cell = 0; cell < page.order().size(); ++cell)
        if (const ComboBox *box = page.boxOf(cell))
            shown.push_back(box->currentData());
    return shown;
}

void choose(const MainViewLayoutConfigDialog &page, int cell, int channel)
{
    ComboBox *box = page.boxOf(cell);
    box->setCurrentIndex(box->findData(channel));
}

} // namespace

TEST_F(LayoutConfig, AChannelThatAnotherCellShowsSwapsWithIt)
{
    auto *page = show(FourCells, {0, 1, 2, None});
    choose(*page, 0, 2);
    EXPECT_EQ(orderOf(*page), (std::vector<int>{2, 1, 0, None}));
    EXPECT_EQ(shownBy(*page), orderOf(*page));
    choose(*page, 3, 1);
    EXPECT_EQ(orderOf(*page), (std::vector<int>{2, None, 0, 1})) << "with an empty one";
    choose(*page, 0, 8);
    EXPECT_EQ(orderOf(*page), (std::vector<int>{8, None, 0, 1})) << "one that no cell shows";
    choose(*page, 0, None);
    EXPECT_EQ(orderOf(*page), (std::vector<int>{None, None, 0, 1})) << "many may be empty";
    EXPECT_EQ(shownBy(*page), orderOf(*page));
}

TEST_F(LayoutConfig, PagesShareOneOrder)
{
    auto *page = show(SixCells, {0, 1, 2, 3, 4, 5, 6, 7});
    ASSERT_EQ(page->pageCount(), 2);
    page->setPage(1);
    EXPECT_EQ(page->boxOf(0), nullptr);
    EXPECT_EQ(shownBy(*page), (std::vector<int>{6, 7}))
        << "cells that the device has not show no box";
    choose(*page, 7, 0);
    EXPECT_EQ(orderOf(*page), (std::vector<int>{7, 1, 2, 3, 4, 5, 6, 0}));
    page->setPage(0);
    EXPECT_EQ(shownBy(*page), (std::vector<int>{7, 1, 2, 3, 4, 5}));
    // The merged block is the larger cell.
    EXPECT_GT(page->boxOf(0)->width(), page->boxOf(1)->width() / 2);
    EXPECT_LT(page->boxOf(0)->mapToGlobal(ZrPoint(0, 0)).y(),
              page->boxOf(2)->mapToGlobal(ZrPoint(0, 0)).y());
}
