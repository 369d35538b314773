#include "ui/messageroutes.h"

#include "link/app_messages.h"

namespace
{

constexpr MessageRoute Routes[] = {
    {AppMain::liveView, MessageRoute::AnySubType, LiveViewEvent, Receiver::MainViewManager},
    {AppMain::system, AppSystem::channelStatusBits, CameraStatusEvent, Receiver::CameraModel},
    {AppMain::system, AppSystem::videoTypes, CameraStatusEvent, Receiver::CameraModel},
    {AppMain::system, AppSystem::connectStates, CameraStatusEvent, Receiver::CameraModel},
    {AppMain::system, AppSystem::videoStatus, CameraStatusEvent, Receiver::CameraModel},
    {AppMain::system, AppSystem::recordStatus, CameraStatusEvent, Receiver::CameraModel},
};

} // namespace

const MessageRoute *findRoute(std::uint16_t mainType, std::uint16_t subType)
{
    for (const MessageRoute &route : Routes) {
        if (route.mainType == mainType &&
            (route.subType == MessageRoute::AnySubType || route.subType == subType))
            return &route;
    }
    return nullptr;
}
