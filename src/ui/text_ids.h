// The texts of the interface by name, sorted by number. The wording is in the language packages.
#pragma once

namespace Text
{
enum Id {
    Confirm = 5,
    Notice = 6,
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
    Yes = 120003,
    No = 120004,
    Ok = 200000,
    Cancel = 200001,
    Close = 200002,
    Continue = 200021,
    Percent = 200056,       // "%1" 0 to 100
    PleaseWait = 200071,
    PleaseWaitFor = 200072, // "%1" what is waited for
    StillWaiting = 200073,
    ReadingSettings = 200075,
    SearchingRecordings = 200076,
    ClosesIn = 200083, // "%1" seconds
};
} // namespace Text
