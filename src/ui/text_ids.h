// The texts of the interface by name, sorted by number. The wording is in the language packages.
#pragma once

namespace Text
{
enum Id {
    ConnectFailed = 50057,
    NoVideo = 100000,
    SplitModes = 100009, // title of the menu of split modes
    StreamUnsupported = 100018,
    NoCamera = 100020,
    OutOfDecoders = 100032,
    NoPermissionForChannel = 100036,
    DecodeFailed = 100073,
    ResolutionUnsupported = 100074,
    StreamLost = 100075,
    Connecting = 102513,
    LoginFailed = 102514,
    SplitMode = 103508, // "%1" the mode's short name
    LowBandwidth = 106042,
    LowBattery = 106043,
};
} // namespace Text
