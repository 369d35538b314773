// What the simulated App answers, and what it does of itself behind a message.
#include "link/parameters.h"
#include "link/paramkinds.h"
#include "link/profilelayout.h"
#include "workbench/simapp/simapp.h"
#include "workbench/simapp/simconnection.h"

#include <algorithm>
#include <iterator>

namespace
{

using Body = std::vector<uint8_t>;

constexpr size_t kSecondaryDefaultsSize = Profile::Size - Profile::OffsetSecondary;
constexpr size_t kSliceBitmapSize = 1024;
constexpr size_t kLargestUnknownParam = 1 << 20;

Body words(std::initializer_list<uint32_t> values)
{
    WireWriter body(values.size() * 4);
    size_t offset = 0;
    for (uint32_t value : values) {
        body.u32(offset, value);
        offset += 4;
    }
    return Body(body.data(), body.data() + body.size());
}

Body text(const char *value, size_t size)
{
    WireWriter body(size);
    body.text(0, size, value);
    return Body(body.data(), body.data() + size);
}

// Requests for which an empty answer means that there is nothing: a search without hits, a list
// without entries.
constexpr uint16_t kEmptyAnswers[] = {
    AppSystem::faceSearch,      AppSystem::faceGet,         AppSystem::faceCompare,
    AppSystem::faceAdd,         AppSystem::faceGroups,      AppSystem::facePictures,
    AppSystem::faceBatchFirst,  AppSystem::faceBatchSecond, AppSystem::facePage,
    AppSystem::faceEdit,        AppSystem::faceRemove,      AppSystem::faceInfo,
    AppSystem::faceImportCheck, AppSystem::objectQuery,     AppSystem::objectPage,
    AppSystem::objectDetails,   AppSystem::analysisStop,    AppSystem::snapshotFirst,
    AppSystem::snapshotSecond,  AppSystem::snapshotThird,   AppSystem::snapshotFourth,
    AppSystem::raidQuery,       AppSystem::diskPanelState,  AppSystem::internetState,
    AppSystem::pageQuery62,     AppSystem::faceQuery203,    AppSystem::faceQuery204,
    AppSystem::faceQuery205,    AppSystem::pageQuery232,    AppSystem::objectQuery235,
    AppSystem::pageQuery269,    AppSystem::pageQuery283,
};

} // namespace

std::optional<Body> SimApp::bodyOfAnswer(const Received &request)
{
    const uint16_t sub = request.head.subType;
    switch (request.head.mainType) {
    case AppMain::liveView:
        if (sub == AppLiveView::channelSupportInfo)
            return words({1920, 1080});
        if (sub == AppLiveView::setPictures || sub == AppLiveView::movePictures ||
            sub == AppLiveView::pictureInPicture)
            return Body();
        return std::nullopt;
    case AppMain::playback:
        if (sub == AppPlayback::sliceBitmap)
            return Body(kSliceBitmapSize);
        if (sub == AppPlayback::snapshot)
            return words({1});
        if (sub == AppPlayback::cropCapture)
            return Body();
        return std::nullopt;
    case AppMain::parameters:
        return parameterAnswer(request);
    case AppMain::system:
        return systemAnswer(request);
    default:
        return std::nullopt;
    }
}

std::optional<Body> SimApp::parameterAnswer(const Received &request)
{
    switch (request.head.subType) {
    case AppParameter::getDefaultParams:
        return device_.defaultParams();
    case AppParameter::getSecondaryDefaults:
        return Body(kSecondaryDefaultsSize);
    case AppParameter::paramAccess: {
        WireReader body(request.body.data(), request.body.size());
        if (body.u8(ParamRequest::OffsetIsRead) != 1)
            return std::nullopt;
        const uint32_t kind = body.u32(ParamRequest::OffsetKind);
        const bool useDefault = body.u8(ParamRequest::OffsetUseDefault) == 1;
        const Body &record = useDefault ? params_.factoryDefault(kind) : params_.current(kind);
        const size_t asked = body.u32(ParamRequest::OffsetSize);
        return record.empty() ? Body(std::min(asked, kLargestUnknownParam)) : record;
    }
    default:
        return std::nullopt;
    }
}

std::optional<Body> SimApp::systemAnswer(const Received &request)
{
    const uint16_t sub = request.head.subType;
    switch (sub) {
    case AppSystem::getDeviceParams:
        return device_.deviceParamBlock(profile_);
    case AppSystem::getChipCode:
        return words({options_.chipCode});
    case AppSystem::diskList:
        return device_.diskList();
    case AppSystem::deviceName:
        return text("Recorder", 36);
    case AppSystem::liveAddresses:
        return Body{192, 168, 1, 100, 255, 255, 255, 0, 192, 168, 1, 1, 192, 168, 1, 1, 9, 9, 9, 9};
    case AppSystem::liveAddressesIpv6:
        return text("fe80::1", 80);
    case AppSystem::servicePassword:
        return Body(32);
    case AppSystem::defaultPasswordInForce:
    case AppSystem::mobileState:
        return words({0});
    default:
        if (std::find(std::begin(kEmptyAnswers), std::end(kEmptyAnswers), sub) !=
            std::end(kEmptyAnswers))
            return Body();
        return std::nullopt;
    }
}

void SimApp::storeParam(const Received &request)
{
    WireReader body(request.body.data(), request.body.size());
    if (body.u8(ParamRequest::OffsetIsRead) != 0 || request.body.size() < ParamRequest::Size)
        return;
    const uint32_t kind = body.u32(ParamRequest::OffsetKind);
    if (!params_.store(kind, request.body.data() + ParamRequest::Size,
                       request.body.size() - ParamRequest::Size))
        return;
    // App tells everybody of a change, also the one who made it.
    sendLocked(AppMain::parameters, AppParameter::paramAccess, words({0, kind}), 0, 0);
}

// An import replaces every record: App names them all in one list, the count first.
void SimApp::tellImported()
{
    Body list = words({uint32_t(paramKindsEnd() - paramKindsBegin())});
    for (auto row = paramKindsBegin(); row != paramKindsEnd(); ++row) {
        const Body kind = words({row->kind});
        list.insert(list.end(), kind.begin(), kind.end());
    }
    sendLocked(AppMain::parameters, AppParameter::paramsReloaded, list, 0, 0);
}

void SimApp::afterwards(const Received &request)
{
    if (request.head.mainType == AppMain::liveView) {
        if (request.head.subType == AppLiveView::setPictures ||
            request.head.subType == AppLiveView::movePictures)
            pictures_ = request.body;
        return;
    }
    if (request.is(AppMain::parameters, AppParameter::setProfile))
        profile_ = request.body;
    else if (request.is(AppMain::parameters, AppParameter::paramAccess))
        storeParam(request);
    else if (request.is(AppMain::parameters, AppParameter::importParams))
        tellImported();
    else if (request.is(AppMain::system, AppSystem::uiRunning) && options_.answersStart)
        sendLocked(AppMain::system, AppSystem::appRunning, {}, 0, 0);
    else if (request.is(AppMain::system, AppSystem::configDone) && options_.answersStart)
        sendLocked(AppMain::system, AppSystem::appInitDone, {}, 0, 0);
    else if (request.is(AppMain::system, AppSystem::uiProcessId))
        sendStates(); // from here on somebody listens
}
