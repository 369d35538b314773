// The live view's screen: a transparent widget over the whole display that shows one page of cells
// through a split mode, and keeps the selection, the page and the full screen of a split.
//
// The video plane shows through a hole over the whole area, less the pixels that cells and their
// overlays draw on. Widget thread only.
#pragma once

#include "live/mainviewvideo.h"
#include "live/videoscreenbase.h"
#include "live/zrvideoscreenlayoutmanager.h"

#include <zrvector>

class CameraModel;
class WireReader;
class WireWriter;

class ZrVideoScreen : public VideoScreenBase
{
    ZR_OBJECT(ZrVideoScreen, VideoScreenBase)
public:
    explicit ZrVideoScreen(const ZrRect &mainRect);
    ~ZrVideoScreen() override;

    ZrSignal selectionChanged;
    ZrSignal pageChanged;
    ZrSignal orderChanged;
    ZrSignal menuRequested;

    void setCameraModel(CameraModel *model);
    const ZrRect &mainRect() const { return mainRect_; }
    bool showsNoVideoHint() const { return showsNoVideoHint_; }
    void setShowsNoVideoHint(bool shows);

    // Cells in the user's channel order; those of the page are visible.
    const ZrVector<MainViewVideo *> &cells() const { return cells_; }
    int indexOf(const MainViewVideo *cell) const;
    MainViewVideo *cellAt(int index) const;
    MainViewVideo *cellOfChannel(int channel) const;

    // By index into the split modes. Nothing when it is the mode already, on its first page.
    void setLayout(int index);
    // The split mode that the user chose, also while a cell fills the screen.
    const ZrVideoScreenLayout &userLayout() const { return *userLayout_; }
    static constexpr std::uint8_t NoChannel = 255;
    // The channel of each cell, or none.
    ZrVector<std::uint8_t> channelOrder() const;
    // A channel that is named twice stays at the first place, and one that is not named comes to
    // the first empty cell: no camera is lost from the live view.
    void setChannelOrder(const ZrVector<std::uint8_t> &order);
    int layoutIndex() const;
    int cellCount() const { return currentLayout_->cellCount(); }
    void pageDown();
    void pageUp();
    void setPage(int page);
    int page() const { return pageStart_ / currentLayout_->cellCount(); }
    int pageCount() const;

    MainViewVideo *selected() const { return selected_; }
    // Only a cell that stands for a channel slot; null clears.
    void selectCell(MainViewVideo *cell);
    void toggleFullScreen();
    void showCellFull(MainViewVideo *cell);
    bool isFullScreenOfSplit() const;

    // The preview parameter: to and from the arrangement of the screen.
    void applyPreviewRecord(WireReader record);
    void fillPreviewRecord(WireWriter &record) const;

    void onChannelsChanged();
    void refreshStateLabels();
    // A cell's border or overlay takes other pixels than before.
    void overlaysChanged();
    // Reads the display's size anew.
    void updateStyle() override;

protected:
    void videoReleased(int button, Video *video) override;
    void videoDoubleClicked(int button, Video *video) override;

private:
    // Puts off the hole's recalculation until several changes are done.
    class HoleHold;

    int relayout(int start);
    void refreshPage();
    MainViewVideo *newCell();
    void makeCells();
    void bindChannels(const ZrVector<std::uint8_t> &order);
    int modeFor(int stored) const;
    void restoreSelection(int stored);
    void updateHole();
    int lastBoundIndex() const;
    void showPageAt(int start);
    bool mayShow(const MainViewVideo *cell) const { return cell && cell->canBeShown(); }

    ZrRect mainRect_;
    ZrVector<MainViewVideo *> cells_; // never shrunk; the objects are children
    CameraModel *cameraModel_ = nullptr;
    MainViewVideo *selected_ = nullptr;
    ZrVideoScreenLayout *userLayout_;    // the split mode chosen
    ZrVideoScreenLayout *currentLayout_; // the one shown now
    ZrVideoScreenLayout *fullLayout_;
    int pageStart_ = 0; // index of the first cell shown
    bool restored_ = false;
    bool showsNoVideoHint_ = true;
    int holeHolds_ = 0;
};
