// The arrangement of the live view as the device keeps it: to the preview parameter and back.
#include "live/zrvideoscreen.h"

#include "cameras/cameramodel.h"
#include "link/deviceparams.h"
#include "live/live_records.h"
#include "live/splitmodes.h"

#include <algorithm>

using live::PreviewParam;

void ZrVideoScreen::applyPreviewRecord(WireReader record)
{
    restored_ = true;
    makeCells();
    ZrVector<std::uint8_t> order;
    for (int i = 0; i < std::min(channelCount(), int(PreviewParam::MaximumSlots)); ++i)
        order.append(record.u8(PreviewParam::OffsetChannels + std::size_t(i)));
    bindChannels(order);
    const int mode = modeFor(record.u8(PreviewParam::OffsetMode));
    userLayout_ = ZrVideoScreenLayoutManager::instance()->layoutAt(mode);
    currentLayout_ = userLayout_;
    const int page = record.u8(PreviewParam::OffsetPage);
    pageStart_ = page < pageCount() ? page * currentLayout_->cellCount() : 0;
    relayout(pageStart_);
    restoreSelection(record.u8(PreviewParam::OffsetSelectedCell));
    if (record.u8(PreviewParam::OffsetFullScreen) != 0)
        toggleFullScreen();
}

ZrVector<std::uint8_t> ZrVideoScreen::channelOrder() const
{
    ZrVector<std::uint8_t> order;
    for (int i = 0; i < channelCount(); ++i) {
        const MainViewVideo *cell = cellAt(i);
        order.append(cell && cell->channel() ? std::uint8_t(cell->channel()->channelNo())
                                             : NoChannel);
    }
    return order;
}

void ZrVideoScreen::setChannelOrder(const ZrVector<std::uint8_t> &order)
{
    bindChannels(order);
    refreshPage();
    emit(this, &pageChanged);
    emit(this, &orderChanged);
}

// Each cell takes the channel that the order names, unless it is taken, absent or without a
// camera; what is left over fills the empty cells.
void ZrVideoScreen::bindChannels(const ZrVector<std::uint8_t> &order)
{
    const int slots = channelCount();
    ZrVector<ZrChannel *> placed;
    placed.resize(slots);
    ZrVector<bool> used;
    used.resize(slots);
    for (int i = 0; i < slots; ++i) {
        placed[i] = nullptr;
        used[i] = false;
    }
    for (int i = 0; i < std::min(slots, order.size()); ++i) {
        const int number = order.at(i);
        ZrChannel *channel = cameraModel_->channel(number);
        if (!channel || used.at(number) || !channel->isValid())
            continue;
        placed[i] = channel;
        used[number] = true;
    }
    for (int number = 0; number < slots; ++number) {
        ZrChannel *channel = cameraModel_->channel(number);
        if (used.at(number) || !channel || !channel->isValid())
            continue;
        auto empty = std::find(placed.begin(), placed.end(), nullptr);
        if (empty != placed.end())
            *empty = channel;
    }
    for (int i = 0; i < slots; ++i)
        cells_.at(i)->setChannel(placed.at(i));
}

// The stored mode, or the largest that the slots fill when it would leave three cells or more
// empty.
int ZrVideoScreen::modeFor(int stored) const
{
    const int last = ZrVideoScreenLayoutManager::instance()->count() - 1;
    const int slots = channelCount();
    int mode = std::min(stored, last);
    if (live::adjustedSplitCount(mode) < slots + 3 && slots != 4)
        return mode;
    for (mode = last; mode > 0 && live::adjustedSplitCount(mode) > slots; --mode) {
    }
    return mode;
}

void ZrVideoScreen::restoreSelection(int stored)
{
    MainViewVideo *cell = cellAt(stored);
    if (!mayShow(cell) || !cell->isVisible()) {
        const auto shown =
            std::find_if(cells_.begin(), cells_.end(), [this](const MainViewVideo *candidate) {
                return mayShow(candidate) && candidate->isVisible();
            });
        if (shown != cells_.end()) {
            cell = *shown;
        } else {
            const auto bound =
                std::find_if(cells_.begin(), cells_.end(),
                             [](const MainViewVideo *candidate) { return candidate->isBound(); });
            cell = bound == cells_.end() ? nullptr : *bound;
        }
    }
    selectCell(cell);
}

void ZrVideoScreen::fillPreviewRecord(WireWriter &record) const
{
    const int slots = channelCount();
    for (int i = 0; i < std::min(slots, int(PreviewParam::MaximumSlots)); ++i) {
        const MainViewVideo *cell = cellAt(i);
        const int number = cell && cell->channel() ? cell->channel()->channelNo() : slots * 2;
        record.u8(PreviewParam::OffsetChannels + std::size_t(i), std::uint8_t(number));
    }
    const auto *modes = ZrVideoScreenLayoutManager::instance();
    const int cells = userLayout_->cellCount();
    const int selectedIndex = selected_ ? std::max(indexOf(selected_), 0) : 0;
    const int page = isFullScreenOfSplit() ? selectedIndex / cells : pageStart_ / cells;
    record.u8(PreviewParam::OffsetMode, std::uint8_t(modes->indexOfLayout(userLayout_)))
        .u8(PreviewParam::OffsetPage, std::uint8_t(page))
        .u8(PreviewParam::OffsetSelectedCell, std::uint8_t(selectedIndex))
        .u8(PreviewParam::OffsetFullScreen, currentLayout_ != userLayout_);
}

// Cells whose camera went become empty, the others keep their place; a camera that came takes its
// own cell if that is free, else the first free one.
void ZrVideoScreen::onChannelsChanged()
{
    bool moved = false;
    for (MainViewVideo *cell : cells_) {
        if (cell->isBound() && !cell->channel()->isValid()) {
            cell->setChannel(nullptr);
            moved = true;
        }
    }
    for (int number = 0; number < cameraModel_->channelCount(); ++number) {
        ZrChannel *channel = cameraModel_->channel(number);
        if (!channel->isValid() || cellOfChannel(number))
            continue;
        MainViewVideo *free = cellAt(number);
        if (!free || free->isBound() || !free->isInUse()) {
            const auto found =
                std::find_if(cells_.begin(), cells_.end(), [](const MainViewVideo *cell) {
                    return cell->isInUse() && !cell->isBound();
                });
            free = found == cells_.end() ? nullptr : *found;
        }
        if (!free)
            continue;
        free->setChannel(channel);
        moved = true;
    }
    if (!moved)
        return;
    emit(this, &pageChanged);
    emit(this, &orderChanged);
}
