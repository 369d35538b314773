// A cell of the live view: one channel's place, with its border, labels and icons. The picture
// itself is App's; this cell only says where it goes.
#pragma once

#include "cameras/zrchannel.h"
#include "live/video.h"
#include "live/videolabel.h"

class RecordFlagBox;
class ZrVideoScreen;

class MainViewVideo : public Video
{
    ZR_OBJECT(MainViewVideo, Video)
public:
    explicit MainViewVideo(ZrVideoScreen *screen);
    ~MainViewVideo() override;

    ZrSignal alarmChanged;

    ZrChannel *channel() const { return channel_; }
    // Null empties the cell.
    void setChannel(ZrChannel *channel);
    bool isBound() const { return channel_ != nullptr; }
    // Bound to a channel that is there.
    bool canBeShown() const { return channel_ && channel_->canBeShown(); }
    // The cell stands for a channel slot of the device.
    bool isInUse() const { return inUse_; }
    void setInUse(bool inUse);
    bool isSelected() const { return selected_; }
    void setSelected(bool selected);
    // The cell fills the screen for a while, out of a split.
    void setEnlarged(bool enlarged);

    int borderWidth() const;
    // What the cell and its overlays draw on, in coordinates of the screen: the hole leaves it out.
    ZrRegion paintedRegion() const;
    void refreshStateLabel();

    int indexInScreen() const override;
    void resizeEvent(ZrResizeEvent *event) override;
    void hideEvent() override;
    void showEvent() override;
    void paintEvent(const ZrRegion &region) override;
    void customEvent(ZrEvent *event) override;

private:
    // What the border tells; also the index of its colour.
    enum BorderStyle { Unused, NoCamera, NoCameraSelected, Normal, NormalSelected, Enlarged };

    void updateBorder();
    ZrRegion ringAround() const;
    void refreshNameLabel();
    void refreshFlags();
    void placeNameLabel();
    void placeStateLabel();
    void placeFlags();
    void moveInside(ZrWidget &overlay, int x, int y) const;
    void overlaysChanged();
    int stateText() const;

    ZrVideoScreen *screen_;
    ZrChannel *channel_ = nullptr;
    VideoLabel *nameLabel_; // children of the screen
    VideoLabel *stateLabel_;
    RecordFlagBox *flagBox_;
    BorderStyle borderStyle_ = Unused;
    int shownText_ = 0; // id of the state label's
    bool inUse_ = false;
    bool selected_ = false;
    bool enlarged_ = false;
};
