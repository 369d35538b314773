#include "live/mainviewmanager.h"

#include "cameras/cameramodel.h"
#include "link/app_messages.h"
#include "link/appcalls.h"
#include "link/deviceparams.h"
#include "link/parameters.h"
#include "live/splitmodes.h"
#include "ui/maincommands.h"
#include "ui/receivers.h"
#include "users/authoritymanager.h"

#include <algorithm>
#include <zrapplication>
#include <zrbitarray>

using live::PreviewParam;
using live::PreviewRecord;
using live::ViewParam;

MainViewManager *MainViewManager::instance_ = nullptr;

namespace
{

constexpr int SaveDelayMs = 20000;
constexpr int ViewFlagStep = 1; // a flag's second byte stands behind its first

// Parameter kind 17: a bit for each channel whose PTZ session is open. Where the bit map begins is
// ours to fix.
constexpr int PtzSessionKind = 17;
constexpr int PtzSessionSize = 8432;
constexpr std::size_t PtzSessionBits = 0;
constexpr std::size_t PtzCommandSize = 9;
constexpr std::size_t PtzCommandChannel = 4;

bool pairIsOn(WireReader &record, std::size_t offset)
{
    return record.u8(offset) != 0 && record.u8(offset + ViewFlagStep) != 0;
}

} // namespace

MainViewManager::MainViewManager(ZrObject *parent)
    : ZrObject(parent),
      authority_(AuthorityManager::instance()),
      cameras_(CameraModel::instance()),
      screen_(std::make_unique<ZrVideoScreen>(ZrApplication::instance()->desktopRect()))
{
    instance_ = this;
    setReceiver(Receiver::MainViewManager, this);
    screen_->setCameraModel(cameras_);
    saveTimer_.setSingleShot(true);
    saveTimer_.setInterval(SaveDelayMs);
    connectSignals();
    loadViewParam();
    loadPreviewParam();
    sendPtzSession();
    refreshPreview();
}

MainViewManager::~MainViewManager()
{
    clearReceiver(Receiver::MainViewManager, this);
    instance_ = nullptr;
}

void MainViewManager::connectSignals()
{
    ZrVideoScreen *screen = screen_.get();
    const ZrSlotFunction restart = zrSlot<&MainViewManager::startPreview>;
    connect(screen, &screen->pageChanged, this, restart);
    connect(this, &previewChanged, this, restart);
    connect(authority_, &authority_->userChanged, this, restart);
    connect(authority_, &authority_->accountsChanged, this, restart);
    connect(screen, &screen->orderChanged, this, zrSlot<&MainViewManager::orderChanged>);
    connect(screen, &screen->selectionChanged, this, zrSlot<&MainViewManager::selectionChanged>);
    connect(&saveTimer_, &saveTimer_.timeout, this, zrSlot<&MainViewManager::savePreviewParam>);
    connect(cameras_, &cameras_->listChanged, this, zrSlot<&MainViewManager::listChanged>);
}

void MainViewManager::listChanged()
{
    screen_->onChannelsChanged();
    lastChannels_.clear();
    startPreview();
}

void MainViewManager::selectionChanged()
{
    if (audioOn_)
        sendAudio();
}

void MainViewManager::orderChanged()
{
    saveTimer_.start();
}

int MainViewManager::selectedChannel() const
{
    const MainViewVideo *cell = screen_->selected();
    return cell && cell->channel() ? cell->channel()->channelNo() : -1;
}

// --- pictures ---

PreviewRecord MainViewManager::buildRecord(ZrList<int> &channels) const
{
    PreviewRecord record;
    const User *user = authority_->currentUser();
    for (const MainViewVideo *cell : screen_->cells()) {
        if (!cell->isVisible() || !cell->canBeShown() || cell->channel()->isMasked())
            continue;
        const int number = cell->channel()->channelNo();
        if (!user || !user->canLive(number))
            continue;
        PreviewRecord::Picture picture;
        picture.channel = std::uint32_t(number);
        picture.rect = live::WireRect::of(cell->videoRect());
        if (record.append(picture))
            channels.append(number);
    }
    record.cellCount = std::uint32_t(screen_->cellCount());
    return record;
}

bool MainViewManager::onlyRectanglesChange(const ZrList<int> &channels) const
{
    return !channels.isEmpty() && channels.size() <= lastChannels_.size() &&
           std::all_of(channels.begin(), channels.end(),
                       [this](int channel) { return lastChannels_.contains(channel); });
}

void MainViewManager::startPreview()
{
    if (!screen_->isVisible())
        return;
    ZrList<int> channels;
    const WireWriter record = buildRecord(channels).encode();
    if (onlyRectanglesChange(channels)) {
        appSend(AppMain::liveView, AppLiveView::movePictures, record.data(),
                std::uint32_t(record.size()));
        return;
    }
    lastChannels_ = channels;
    appSend(AppMain::liveView, AppLiveView::setPictures, record.data(),
            std::uint32_t(record.size()));
}

void MainViewManager::refreshPreview()
{
    screen_->show();
    lastChannels_.clear();
    startPreview();
}

void MainViewManager::stopPreview(Stop stop)
{
    screen_->hide();
    if (stop == Stop::KeepPictures)
        return;
    const WireWriter record = PreviewRecord().encode();
    appSend(AppMain::liveView, AppLiveView::setPictures, record.data(),
            std::uint32_t(record.size()));
}

void MainViewManager::customEvent(ZrEvent *event)
{
    if (event->type() == ZrEvent::ControlRequest) {
        const auto *request = static_cast<const CommonCtrlEvent *>(event);
        obey(request->command(), request->argument());
    } else if (event->type() == LiveViewEvent) {
        if (const AppMessage *message = messageOf(event))
            acknowledge(*message);
    }
}

void MainViewManager::acknowledge(const AppMessage &message)
{
    const bool picturesSet = message.subType() == AppLiveView::setPictures ||
                             message.subType() == AppLiveView::movePictures;
    if (picturesSet && message.headResult() == 0 && screen_->isVisible())
        sendAudio();
}

void MainViewManager::obey(int command, int argument)
{
    if (!authority_->currentUser())
        return;
    switch (command) {
    case MainViewCommand::SetLayout:
        setMode(argument);
        break;
    case MainViewCommand::PageUp:
        screen_->pageUp();
        break;
    case MainViewCommand::PageDown:
        screen_->pageDown();
        break;
    default:
        break;
    }
}

// The full screen, asked for on a split, is that of the first cell.
void MainViewManager::setMode(int modeId)
{
    if (modeId == live::FullScreenMode && screen_->cellCount() > 1) {
        screen_->showCellFull(screen_->cellAt(0));
        emit(this, &previewChanged);
    } else {
        screen_->setLayout(ZrVideoScreenLayoutManager::instance()->indexOfMode(modeId));
    }
    saveTimer_.start();
}

void MainViewManager::sendAudio()
{
    const int channel = selectedChannel();
    if (channel < 0)
        return;
    const User *user = authority_->currentUser();
    live::AudioRecord audio;
    audio.channel = std::uint32_t(channel);
    audio.audioChannelParam = audioChannelParam_;
    audio.on = audioOn_ && (!isAudioRightChecked() || (user && user->hasRight(User::AudioRight)));
    audio.volume = audioVolume_;
    audio.source = cameras_->isIp(channel) ? 1 : 0;
    const WireWriter record = audio.encode();
    appSend(AppMain::liveView, AppLiveView::setAudio, record.data(), std::uint32_t(record.size()));
}

// --- parameters ---

void MainViewManager::loadViewParam()
{
    std::uint8_t block[ViewParam::Size];
    ZrGetParam(ViewParam::Kind, block, sizeof block);
    WireReader record(block, sizeof block);
    screen_->setShowsNoVideoHint(pairIsOn(record, ViewParam::OffsetNoVideoHint));
}

void MainViewManager::loadPreviewParam()
{
    if (savePending_) {
        savePending_ = false;
        return;
    }
    std::uint8_t block[PreviewParam::Size];
    ZrGetParam(PreviewParam::Kind, block, sizeof block);
    WireReader record(block, sizeof block);
    sequenceDwell_ = record.u32(PreviewParam::OffsetSequenceDwell);
    sequenceMode_ = record.u8(PreviewParam::OffsetSequenceMode);
    sequenceOn_ = record.u8(PreviewParam::OffsetSequenceOn) != 0;
    audioVolume_ = record.u8(PreviewParam::OffsetAudioVolume);
    audioChannelParam_ = record.u8(PreviewParam::OffsetAudioChannel);
    audioOn_ = record.u8(PreviewParam::OffsetMute) == 0;
    const bool blocked = screen_->blockSignals(true);
    screen_->applyPreviewRecord(record);
    screen_->blockSignals(blocked);
}

void MainViewManager::savePreviewParam()
{
    std::uint8_t block[PreviewParam::Size];
    ZrGetParam(PreviewParam::Kind, block, sizeof block);
    std::uint8_t present[PreviewParam::Size];
    std::copy(std::begin(block), std::end(block), std::begin(present));
    WireWriter record(block, sizeof block);
    screen_->fillPreviewRecord(record);
    if (std::equal(std::begin(block), std::end(block), std::begin(present)))
        return;
    savePending_ = true;
    ZrSetParam(PreviewParam::Kind, block, sizeof block);
}

// A session left open when the interface last ended is opened again, so that App and the panel
// agree.
void MainViewManager::sendPtzSession()
{
    ZrVector<std::uint8_t> block;
    block.resize(PtzSessionSize);
    ZrGetParam(PtzSessionKind, block.data(), std::uint32_t(block.size()));
    const ZrBitArray open = ZrBitArray::fromRawBytes(block.data() + PtzSessionBits, channelCount());
    int channel = 0;
    while (channel < channelCount() && !open.isSet(channel))
        ++channel;
    const bool any = channel < channelCount();
    WireWriter command(PtzCommandSize);
    if (any)
        command.u8(PtzCommandChannel, std::uint8_t(channel));
    appSend(AppMain::recording, any ? AppRecording::ptzOpen : AppRecording::ptzClose,
            command.data(), std::uint32_t(command.size()));
}
