#include "ui/startuptimer.h"

#include <algorithm>

namespace
{

constexpr int MostIpCameras = 64;
constexpr double FreeSlotMs = 62.5;
constexpr double CameraMs = 235;
constexpr int LeastMs = 100;

} // namespace

int startupDelayMs(int ipCameras)
{
    const double delay = (MostIpCameras - ipCameras) * FreeSlotMs + ipCameras * CameraMs;
    return std::max(int(delay), LeastMs);
}
