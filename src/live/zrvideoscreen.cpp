#include "live/zrvideoscreen.h"

#include "cameras/cameramodel.h"
#include "link/deviceparams.h"
#include "live/splitmodes.h"

#include <algorithm>
#include <zrapplication>
#include <zrtranslation>

class ZrVideoScreen::HoleHold
{
public:
    explicit HoleHold(ZrVideoScreen *screen) : screen_(screen) { ++screen_->holeHolds_; }
    ~HoleHold()
    {
        if (--screen_->holeHolds_ == 0)
            screen_->updateHole();
    }
    HoleHold(const HoleHold &) = delete;
    HoleHold &operator=(const HoleHold &) = delete;

private:
    ZrVideoScreen *screen_;
};

ZrVideoScreen::ZrVideoScreen(const ZrRect &mainRect) : mainRect_(mainRect)
{
    auto *modes = ZrVideoScreenLayoutManager::instance();
    fullLayout_ = modes->layoutOfMode(live::FullScreenMode);
    userLayout_ = fullLayout_;
    currentLayout_ = fullLayout_;
    setBackgroundColor(ZrColor(0, 0, 0, 0));
    setAttribute(DeleteOnClose, false);
    updateStyle();
    setGeometry(mainRect);
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&ZrVideoScreen::refreshStateLabels>);
}

ZrVideoScreen::~ZrVideoScreen() = default;

void ZrVideoScreen::updateStyle()
{
    VideoGridMetrics metrics;
    metrics.displaySize = ZrSize(displayWidth(), displayHeight());
    metrics.screenSize = ZrApplication::instance()->desktopRect().size();
    metrics.positionAlign = videoPosAlign();
    metrics.sizeAlign = videoSizeAlign();
    layout().setMetrics(metrics);
}

void ZrVideoScreen::setCameraModel(CameraModel *model)
{
    cameraModel_ = model;
}

void ZrVideoScreen::setShowsNoVideoHint(bool shows)
{
    if (shows == showsNoVideoHint_)
        return;
    showsNoVideoHint_ = shows;
    refreshStateLabels();
}

// --- cells ---

int ZrVideoScreen::indexOf(const MainViewVideo *cell) const
{
    const auto found = std::find(cells_.begin(), cells_.end(), cell);
    return found == cells_.end() ? -1 : int(found - cells_.begin());
}

MainViewVideo *ZrVideoScreen::cellAt(int index) const
{
    return index >= 0 && index < cells_.size() ? cells_.at(index) : nullptr;
}

MainViewVideo *ZrVideoScreen::cellOfChannel(int channel) const
{
    const auto found = std::find_if(cells_.begin(), cells_.end(), [channel](MainViewVideo *cell) {
        return cell->channel() && cell->channel()->channelNo() == channel;
    });
    return found == cells_.end() ? nullptr : *found;
}

MainViewVideo *ZrVideoScreen::newCell()
{
    auto *cell = new MainViewVideo(this); // owned by this as its parent
    cell->setVisible(false);
    cells_.append(cell);
    return cell;
}

void ZrVideoScreen::refreshStateLabels()
{
    HoleHold hold(this);
    for (MainViewVideo *cell : cells_)
        cell->refreshStateLabel();
}

// --- hole ---

void ZrVideoScreen::overlaysChanged()
{
    if (holeHolds_ == 0)
        updateHole();
}

void ZrVideoScreen::updateHole()
{
    ZrRegion hole(rect());
    for (const MainViewVideo *cell : cells_) {
        if (cell->isVisible())
            hole -= cell->paintedRegion();
    }
    setHoleRegion(hole);
}

// --- pages and modes ---

int ZrVideoScreen::relayout(int start)
{
    HoleHold hold(this);
    for (MainViewVideo *cell : cells_)
        cell->setVisible(false);
    layout().clear();
    int rows = 0;
    int columns = 0;
    currentLayout_->dimensions(rows, columns);
    int index = start;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const int span = currentLayout_->spanAt(row, column);
            if (span == 0)
                continue;
            MainViewVideo *cell = index < cells_.size() ? cells_.at(index) : newCell();
            layout().addItem(cell, row, column, span);
            ++index;
        }
    }
    for (int shown = start; shown < index; ++shown)
        cells_.at(shown)->setVisible(true);
    layout().doLayout();
    update();
    return index;
}

void ZrVideoScreen::refreshPage()
{
    relayout(pageStart_);
    if (selected_ && !selected_->isVisible())
        selectCell(cellAt(pageStart_));
    if (selected_)
        selected_->setEnlarged(isFullScreenOfSplit());
}

int ZrVideoScreen::layoutIndex() const
{
    return ZrVideoScreenLayoutManager::instance()->indexOfLayout(currentLayout_);
}

void ZrVideoScreen::setLayout(int index)
{
    ZrVideoScreenLayout *next = ZrVideoScreenLayoutManager::instance()->layoutAt(index);
    if (next == currentLayout_ && pageStart_ == 0)
        return;
    HoleHold hold(this);
    userLayout_ = next;
    currentLayout_ = next;
    pageStart_ = 0;
    refreshPage();
    emit(this, &pageChanged);
}

int ZrVideoScreen::lastBoundIndex() const
{
    int index = cells_.size() - 1;
    while (index > 0 && !cells_.at(index)->isBound())
        --index;
    return std::max(index, 0);
}

int ZrVideoScreen::pageCount() const
{
    return lastBoundIndex() / currentLayout_->cellCount() + 1;
}

void ZrVideoScreen::showPageAt(int start)
{
    HoleHold hold(this);
    pageStart_ = start;
    refreshPage();
    emit(this, &pageChanged);
}

void ZrVideoScreen::pageDown()
{
    if (!restored_ && currentLayout_->cellCount() > 1)
        return;
    const int end = restored_ ? lastBoundIndex() : userLayout_->cellCount() - 1;
    const int next = pageStart_ + currentLayout_->cellCount();
    showPageAt(next > end ? 0 : next);
}

void ZrVideoScreen::pageUp()
{
    if (!restored_ && currentLayout_->cellCount() > 1)
        return;
    const int previous = pageStart_ - currentLayout_->cellCount();
    showPageAt(previous < 0 ? currentLayout_->cellCount() * (pageCount() - 1) : previous);
}

void ZrVideoScreen::setPage(int page)
{
    showPageAt(std::clamp(page, 0, pageCount() - 1) * currentLayout_->cellCount());
}

// --- selection and full screen ---

void ZrVideoScreen::selectCell(MainViewVideo *cell)
{
    if (cell == selected_ || (cell && !cell->isInUse()))
        return;
    HoleHold hold(this);
    if (selected_)
        selected_->setSelected(false);
    selected_ = cell;
    if (selected_)
        selected_->setSelected(true);
    emit(this, &selectionChanged);
}

bool ZrVideoScreen::isFullScreenOfSplit() const
{
    return currentLayout_ == fullLayout_ && userLayout_ != fullLayout_;
}

void ZrVideoScreen::toggleFullScreen()
{
    if (!selected_ || userLayout_ == fullLayout_)
        return;
    const int index = indexOf(selected_);
    if (currentLayout_ == userLayout_ && mayShow(selected_)) {
        currentLayout_ = fullLayout_;
        showPageAt(index);
    } else {
        currentLayout_ = userLayout_;
        const int cells = userLayout_->cellCount();
        showPageAt(index / cells * cells);
    }
}

void ZrVideoScreen::showCellFull(MainViewVideo *cell)
{
    const int index = indexOf(cell);
    if (index < 0)
        return;
    HoleHold hold(this);
    currentLayout_ = fullLayout_;
    pageStart_ = index;
    selectCell(cell);
    refreshPage();
}

void ZrVideoScreen::videoReleased(int button, Video *video)
{
    if (button == Zr::RightButton)
        emit(this, &menuRequested);
    auto *cell = static_cast<MainViewVideo *>(video);
    if (cell)
        selectCell(cell);
}

void ZrVideoScreen::videoDoubleClicked(int button, Video *video)
{
    auto *cell = static_cast<MainViewVideo *>(video);
    if (button == Zr::RightButton || !cell)
        return;
    if (!mayShow(cell) && !isFullScreenOfSplit())
        return;
    selectCell(cell);
    toggleFullScreen();
}

// --- the stored arrangement ---

void ZrVideoScreen::makeCells()
{
    while (cells_.size() < channelCount())
        newCell();
    for (int i = 0; i < channelCount(); ++i)
        cells_.at(i)->setInUse(true);
}
