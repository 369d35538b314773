// The texts of the interface by name, sorted by number. The wording is in the language packages.
#pragma once

namespace Text
{
enum Id {
    Confirm = 5,
    Notice = 6,
    GalleryPlain = 121,
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
    Recorder = 120000,
    Yes = 120003,
    No = 120004,
    UsbDrive = 125735,
    Ok = 200000,
    Cancel = 200001,
    Close = 200002,
    SelectAll = 200013,
    Continue = 200021,
    Disabled = 200042,
    Percent = 200056, // "%1" 0 to 100
    PleaseWait = 200071,
    PleaseWaitFor = 200072, // "%1" what is waited for
    StillWaiting = 200073,
    ReadingSettings = 200075,
    SearchingRecordings = 200076,
    CopyingFiles = 200078,
    ClosesIn = 200083,      // "%1" seconds
    MonthJanuary = 200101,  // and so on to December
    ShortMonday = 200151,   // and the six days behind it
    WeekdayMonday = 200161, // one letter, and so on to Sunday
    MonthAndYear = 200170,  // "%1" the month, "%2" the year
    Date = 200175,
    KeySpace = 200201,
    KeySymbols = 200202,
    KeyLetters = 200205,
    Password = 200221,
    NetworkFolder = 200284,
    EraseEverything = 200286,
    EraseRecordings = 200287,
    EraseAiData = 200288,
    Gallery = 200360,
    GalleryButtons = 200361,
    GalleryChoices = 200362,
    GalleryEntry = 200363,
    GalleryNumbers = 200364,
    GalleryLists = 200365,
    GallerySliders = 200366,
    GalleryTables = 200367,
    GalleryDialogs = 200368,
    GalleryLabels = 200372,
    GalleryPlainButton = 200373,
    GalleryMainButton = 200374,
    GalleryPictureButton = 200376,
    GallerySwitchedOn = 200377,
    GallerySwitchedOff = 200378,
    GalleryChoice = 200379,
    GalleryEntryNumber = 200382,
    GalleryShowQuestion = 200384,
    GalleryShowNotice = 200385,
    GalleryShowCountdown = 200386,
    GalleryShowProgress = 200388,
    GalleryLongText = 200389,
    GalleryHelp = 200390,
    GalleryHovered = 200392,
    GalleryFocused = 200393,
    GalleryPressed = 200394,
    GalleryTip = 200395,
    GalleryReadOnly = 200396,
    GalleryLargeTitle = 200397,
    GallerySmallHint = 200398,
    FirstLanguageName = 200400, // of language 0; the others follow by number
};
} // namespace Text
