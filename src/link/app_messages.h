// The numbers by which messages on the App link are named, by family. A request and its reply have
// the same numbers. "b" marks a blocking request, "d" a request that keeps the interface alive, "<"
// what App sends on its own, "<>" both; all others are sent and forgotten. The records stand in the
// *_records.h of their subjects.
#pragma once

#include <cstdint>

namespace AppMain
{
enum Type : uint16_t {
    liveView = 100,   // live view control; both directions
    playback = 300,   // playback, search and backup; both
    recording = 500,  // recording side of channels, and PTZ; to App
    parameters = 600, // parameters; both
    system = 1000,    // state, disks, cameras, network, dialogs, upgrade, AI; both
};
} // namespace AppMain

namespace AppLiveView
{
enum Type : uint16_t {
    setPictures = 0,         // <> replaces the whole set of live pictures; App acknowledges
    movePictures = 1,        // <> the same channels, new rectangles; App acknowledges
    zoomOverview = 3,        //    overview of a zoomed channel
    pictureInPicture = 7,    // <> one picture with small windows over it; App acknowledges
    setAudio = 8,            //    which channel is heard, and how loud
    manualAlarmOutput = 12,  //    manual alarm output of a channel, on or off
    zoomArea = 14,           //    visible part of a zoomed picture
    channelSupportInfo = 15, // b  width and height of a channel's picture
};
} // namespace AppLiveView

namespace AppPlayback
{
enum Type : uint16_t {
    splitScreen = 0,         //    places the playback tiles
    searchDay = 1,           // <> record files of a span
    startPlay = 2,           // <> plays a search result
    stopPlay = 3,            // <> stops; from App, the progress of each channel
    pausePlay = 5,           //    pauses a replayed hit
    seek = 6,                //    to a time
    playSpeed = 7,           //    direction, pause and speed
    setAudio = 8,            //    which tile is heard
    querySize = 9,           // <> size of a time span
    recordSize = 10,         // <> size of chosen record files
    zoomOverview = 11,       //    overview of a zoomed tile
    backupTargets = 12,      // <> where a backup can go
    searchMotion = 13,       // <> motion inside an area
    playEnded = 14,          // <
    searchMonth = 15,        // <  days of a month with records
    stopSizeQuery = 16,      //    gives up a size query
    searchPictures = 17,     // <  stored pictures of a span
    pictureSize = 18,        // <> size of chosen pictures
    playPictures = 19,       // <> shows stored pictures in turn
    channelInformation = 20, // <  picture and audio of the channels in play
    changeTag = 21,          //    adds, deletes or renames a tag
    searchTags = 22,         // <>
    lockSegment = 23,        //    keeps a record file from being overwritten
    lockSegments = 24,       // <> the same for a list
    unlockSegments = 25,     // <>
    thumbnails = 27,         // <> pictures for the bar under the playback
    searchChannelBits = 28,  // <> which channels have records at all
    snapshot = 30,           // b  stores what a tile shows
    picturesLong = 31,       // <  stored pictures, the long form
    segmentsLong = 32,       // <
    cropCapture = 33,        // d  a part of what a tile shows
    liveToPlayback = 35,     //    announces playback from the live view
    backupDevices = 36,      // <> the targets of a backup
    backupDeviceInfo = 37,   // <
    backupState = 38,        // <
    backupTask = 39,         //    starts or continues a backup
    backupProgress = 40,     // <
    backupSpan = 41,         //    backup of a time span
    fileListChanged = 42,    // <> operations on chosen files
    openExternalFile = 43,   // <> a file of a storage stick
    playExternalFile = 44,   // <>
    externalFileSpeed = 46,  //
    fileOperation = 48,      //    operations on chosen files
    externalFileState = 49,  // <
    externalFileEnded = 52,  // <
    aiBackup = 53,           // <> backup of search hits
    sliceBitmap = 54,        // b  minutes of a day with records
    sliceSearch = 55,        // <> slices around hits
};
} // namespace AppPlayback

namespace AppRecording
{
// All carry a PtzCommand.
enum Type : uint16_t {
    ptzOpen = 0, // opens a channel's session; the channel's bit of parameter 17 is changed first
    ptzClose = 1,
    ptzAutoScanOn = 2,
    ptzAutoScanOff = 3,
    ptzStop = 4, // whatever moves
    ptzRight = 5,
    ptzRightDown = 6,
    ptzDown = 7,
    ptzLeftDown = 8,
    ptzLeft = 9,
    ptzLeftUp = 10,
    ptzUp = 11,
    ptzRightUp = 12,
    ptzLens1Second = 13,
    ptzLens1First = 14,
    ptzLens2Second = 15,
    ptzLens2First = 16,
    ptzLens3Second = 17,
    ptzLens3First = 18,
    ptzPresetSet = 19,
    ptzPresetClear = 20,
    ptzPresetGoTo = 21, // the argument is the row of the preset table plus 1
    ptzLens4First = 23,
    ptzLens4Second = 24,
    ptzTwoWayLens1 = 26, // the argument is the direction: 0, 1, or 2 for stop
    ptzTwoWayLens2 = 28,
};
} // namespace AppRecording

namespace AppParameter
{
enum Type : uint16_t {
    paramAccess = 0,           // <> b to read, plain to write; from App, a parameter has changed
    exportParams = 1,          // <> parameters to a storage stick
    importParams = 2,          // <>
    getDefaultParams = 3,      // b  App's default parameter set
    setProfile = 4,            //    the device profile
    paramsReloaded = 6,        // <  a list of parameters has changed
    timeZone = 7,              // <  the zone as an environment value
    imageDefaults = 8,         // <> image settings of a channel
    stringTable = 9,           //    translated texts for what App paints itself
    setDefaultParams = 10,     //    the default parameter set, overlaid
    setColorDefaults = 11,     //    colour defaults of the analogue front end
    iotParams = 13,            // <>
    getSecondaryDefaults = 14, // b  the second part of App's defaults
    ruleConfig = 257,          // <  an intelligent rule was drawn
};
} // namespace AppParameter

namespace AppSystem
{
enum Type : uint16_t {
    uiRunning = 0,                //    the interface is up
    appRunning = 1,               // <  only its sum counts
    appInitDone = 3,              // <  only its sum counts
    uiProcessId = 4,              //
    shutdownMode = 7,             //    requests a power action
    mailTest = 8,                 // <>
    ddnsTest = 9,                 // <>
    ftpTest = 10,                 // <
    clockSetByServer = 11,        // <
    factoryReset = 13,            // <>
    paramAck = 14,                // <> App asks; the interface acknowledges
    upgrade = 16,                 // <>
    diskStates = 18,              // <  states of all disks
    channelStatusBits = 19,       // <  motion and alarm states of all channels
    diskList = 20,                // <> b  the disks; from App, that the list has changed
    formatProgress = 21,          // <>
    recordSearch = 22,            // <>
    deviceName = 24,              // b  name shown at login
    logSearch = 26,               // <>
    userStateChange = 27,         //    the user's context
    liveAddresses = 30,           // b  the network addresses in force
    getDeviceParams = 33,         // b  the device parameter block
    networkTest = 34,             // <>
    recordSearchMore = 36,        // <>
    pppoeTest = 38,               // <>
    currentUser = 41,             //    index less 1 of the user, 255 for none
    dualTalk = 43,                // <>
    powerButton = 44,             // <
    busyQuery = 45,               // <> is the user busy?
    settingsNotice = 46,          // <
    ledState = 47,                // <
    videoTypes = 48,              // <  analogue signal of each channel
    internetState = 49,           // <>
    ftpUpgradeInfo = 50,          // <>
    ftpUpgradeState = 51,         // <>
    ddnsState = 53,               // <
    waitNotice = 54,              // <
    channelCapabilities = 55,     // <
    connectStates = 56,           // <  of each channel
    coaxialUpgrade = 58,          // <>
    longChannelStatus = 59,       // <>
    camerasChanged = 60,          // <
    pageQuery62 = 62,             // b  these belong to pages without a name of their own
    notice = 64,                  // <>
    cameraInformation = 65,       // <>
    cameraNotice66 = 66,          // <
    cameraNotice67 = 67,          // <
    cameraEntries = 68,           // <  changed entries of the camera block
    cameraFactoryReset = 77,      // <>
    cameraReboot = 79,            // <>
    videoStatus = 80,             // <  of each channel
    captureChannel = 81,          //    takes a picture of a channel
    recordSearchEnd = 84,         // <>
    panelByte = 86,               // <
    viewMode = 88,                // <
    viewModeAll = 90,             // <
    recordStatus = 94,            // <  of each channel
    ptzLink = 97,                 //    link of a channel, before a start and behind a stop
    firstRun = 103,               // <  the first-run dialog
    getChipCode = 104,            // b  code of the analogue front end
    configDone = 105,             //
    busyState = 107,              //
    outputChanged = 108,          // <  the display output
    busyEnded = 109,              // <
    posText = 111,                // <>
    posList = 112,                // <>
    diskSmart = 113,              // <>
    netStatus = 116,              // <
    networkLinks = 117,           // <
    crossCount = 118,             // <
    servicePassword = 119,        // b
    pointerPosition = 134,        // <  handled by the link itself
    noticeTwo = 135,              // <
    batchResults = 136,           // <>
    restoreLiveConfig = 137,      //
    wifiJoin = 139,               // <
    wifiName = 140,               // <>
    noticeThree = 143,            // <
    wakeCamera = 145,             // <>
    taskBarStatus = 147,          // <
    workMode = 148,               // <>
    channelByte = 150,            // <
    interfaceReady = 151,         // <> from App, a change of resolution
    autoUpgrade = 152,            // <>
    autoUpgradeState = 155,       // <
    channelByteTwo = 156,         // <
    faceSearch = 157,             // d
    faceGet = 158,                // d
    faceCompare = 161,            // d
    faceAlarm = 163,              // <
    faceAdd = 164,                // d
    paramManage = 165,            // <>
    cloudStorage = 167,           // <>
    intelligentAlarm = 168,       // <
    liveAddressesIpv6 = 169,      // b
    cameraModelNotice = 170,      // <
    cameraDetails = 171,          // <
    networkResult = 172,          // <
    wirelessTest = 174,           // <>
    cameraField182 = 182,         // <
    featureUpdate = 183,          // <
    cameraModelReread = 184,      // <
    remoteKey = 186,              // <
    barcode = 189,                //    text from the barcode input
    faceGroupsChanged = 192,      // <
    storageNotice = 193,          // <
    developerMode = 194,          // <>
    developerModeState = 195,     // <>
    mobileTest = 196,             // <>
    deviceState = 197,            // <
    ipcFeature = 198,             // <
    continueQuestion = 199,       // <
    waitNoticeTwo = 200,          // <
    faceGroups = 202,             // d
    faceQuery203 = 203,           // d
    faceQuery204 = 204,           // d
    faceQuery205 = 205,           // d
    facePictures = 206,           // d
    faceBatchFirst = 208,         // d
    faceBatchSecond = 209,        // d
    facePage = 211,               // d
    faceEdit = 213,               // d
    faceRemove = 216,             // d
    faceInfo = 217,               // d
    faceImportCheck = 218,        // d
    defaultPasswordInForce = 219, // b
    cameraParamExport = 220,      // <>
    cameraParamImport = 221,      // <>
    formatRequest = 222,          // <
    raidCreateState = 223,        // <
    raidConfig = 224,             // <>
    raidOpen = 225,               // <
    raidQuery = 226,              // <> b
    raidState = 227,              // <>
    cameraField229 = 229,         // <
    mainViewNotice = 230,         // <
    pageQuery232 = 232,           // b
    objectQuery = 234,            // d
    objectQuery235 = 235,         // d
    objectPage = 236,             // d
    objectDetails = 237,          // d
    objectAlarm = 238,            // <
    analysisStart = 239,          // <>
    analysisStop = 240,           // <> d
    cameraField241 = 241,         // <
    mobileState = 247,            // b
    stickState = 251,             // <
    stickUpgrade = 252,           // <>
    stickDrawing = 253,           // <
    wirelessChannel = 256,        // <
    voicePromptList = 260,        // <>
    voicePromptAdd = 261,         // <>
    voicePromptRemove = 262,      // <>
    voicePromptPlay = 263,        // <>
    stickInfo = 265,              // <>
    cameraNames = 266,            // <
    storageEvent = 267,           // <
    smartHome = 268,              // <>
    pageQuery269 = 269,           // b
    stickUpgradeProgress = 270,   // <>
    aiNotice = 273,               // <>
    snapshotFirst = 275,          // d  four queries of stored snapshots
    snapshotSecond = 276,         // d
    snapshotThird = 277,          // d
    snapshotFourth = 278,         // d
    diskHealth = 279,             // <>
    diskPanel = 280,              // <
    shuttingDown = 281,           // <
    diskPanelState = 282,         // <> b
    pageQuery283 = 283,           // b
    standby = 284,                // <>
    cameraResults = 285,          // <
    channelPage = 287,            // <
    databaseChanged = 288,        // <
    channelCommand = 289,         //    command 43 of the live view
};
} // namespace AppSystem
