// Owns the live view: decides which channels App decodes and where, keeps the preview parameter,
// and answers App's acknowledgements. Widget thread only.
#pragma once

#include "live/live_records.h"
#include "live/zrvideoscreen.h"

#include <memory>
#include <zrlist>
#include <zrtimer>

class AuthorityManager;
struct AppMessage;
class CameraModel;

class MainViewManager : public ZrObject
{
    ZR_OBJECT(MainViewManager, ZrObject)
public:
    // After the camera model and the authority manager.
    explicit MainViewManager(ZrObject *parent);
    ~MainViewManager() override;
    static MainViewManager *instance() { return instance_; }

    ZrSignal previewChanged;

    ZrVideoScreen *screen() const { return screen_.get(); }
    // The channel of the selected cell, -1 for none.
    int selectedChannel() const;

    // Shows the screen and tells App the whole set of pictures.
    void refreshPreview();
    // Tells App what is on the screen: the whole set anew, or only the rectangles when the channels
    // are among those of the last set. Nothing while the screen is hidden.
    void startPreview();
    enum class Stop { KeepPictures, SendStop };
    void stopPreview(Stop stop);

    void loadPreviewParam();
    // Written only if it differs from what App has.
    void savePreviewParam();

    void customEvent(ZrEvent *event) override;

private:
    void acknowledge(const AppMessage &message);
    void obey(int command, int argument);
    void setMode(int modeId);
    void connectSignals();
    void loadViewParam();
    void sendPtzSession();
    void listChanged();
    void selectionChanged();
    void orderChanged();
    live::PreviewRecord buildRecord(ZrList<int> &channels) const;
    bool onlyRectanglesChange(const ZrList<int> &channels) const;
    void sendAudio();

    static MainViewManager *instance_;
    AuthorityManager *authority_;
    CameraModel *cameras_;
    std::unique_ptr<ZrVideoScreen> screen_;
    ZrList<int> lastChannels_; // last sent as a whole set
    ZrTimer saveTimer_;
    std::uint32_t sequenceDwell_ = 0;
    std::uint8_t sequenceMode_ = 0;
    std::uint8_t audioVolume_ = 80;
    std::uint8_t audioChannelParam_ = 0;
    bool sequenceOn_ = false;
    bool audioOn_ = false;
    bool savePending_ = false; // the echo of our own write does not reload the screen
};
