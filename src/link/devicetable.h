// Every field of the device parameter block that the interface asks for: the one source of its
// getters (deviceparams.h), of their offsets, and of docs/device-parameters.md.
//
// FIELD(getter, offset, profile key, meaning). WORD: u32. TEXT: a field of 12 bytes. NUMBER: a
// byte. SWITCH: a byte, true when it is not 0. LIVE: a switch for which App is asked again each
// time. The profile key says from which line of the device profile App fills the field; where it is
// empty App knows by itself. A new field takes a byte below 304 that no other has.
#pragma once

// clang-format off
#define ZR_DEVICE_PARAMS(WORD, TEXT, NUMBER, SWITCH, LIVE) \
    WORD(displayWidth, 20, "", "width of the display output in pixels") \
    WORD(displayHeight, 24, "", "height of the display output in pixels") \
    WORD(deviceModelCode, 28, "", "model of the recorder") \
    WORD(boardValue, 32, "DevInfo/DevType", "board of the recorder, low word; tells the kind of front panel") \
    TEXT(framebufferNode, 48, "FbConfig/VgaFbDevNode", "framebuffer device, 12 bytes") \
    NUMBER(channelCount, 72, "", "all channels; the size of every per-channel array") \
    NUMBER(audioCount, 73, "NumberSetting/AudioNum", "audio inputs; the volume control is offered above 0") \
    NUMBER(ipChannelCount, 74, "", "IP channels; they follow the analogue ones") \
    NUMBER(diskSlots, 75, "DiskConfig/MaxDiskNum", "internal disks") \
    NUMBER(extraDiskSlots, 76, "DiskConfig/MaxUsbNum", "disks on storage sticks") \
    NUMBER(alarmInputCount, 77, "NumberSetting/AlarmInputNum", "alarm inputs") \
    NUMBER(alarmOutputCount, 78, "NumberSetting/AlarmOutputNum", "alarm outputs") \
    NUMBER(videoPosAlign, 79, "", "multiple to which the video hardware wants positions, in output pixels") \
    NUMBER(videoSizeAlign, 80, "", "multiple to which the video hardware wants sizes, in output pixels") \
    NUMBER(boardKind, 81, "", "kind of board; how many stripes a schedule cell has") \
    NUMBER(maxPreviewCount, 82, "DevInfo/MaxPreviewNum", "pictures that the live view can show at once, 0 for no limit") \
    NUMBER(videoCoverCount, 83, "DevInfo/VideoCoverNum", "masks of a channel") \
    NUMBER(motionMode, 84, "DevInfo/MotionMode", "form of the motion settings") \
    NUMBER(raidDiskLimit, 85, "", "disks that a RAID can have") \
    NUMBER(subStreamMin, 86, "DevInfo/SubStreamMin", "smallest sub stream resolution") \
    NUMBER(subStreamMax, 87, "DevInfo/SubStreamMax", "largest sub stream resolution") \
    NUMBER(decodeCount, 88, "NumberSetting/DecodeNum", "channels that can be played back at once") \
    NUMBER(playbackTimeRange, 89, "PlayBack/TimeRange", "time span that a playback search begins with") \
    NUMBER(intelligentAlarmNaming, 90, "", "how intelligent alarms are called") \
    NUMBER(preRecordTimeMode, 91, "CustomFuncs/PreRecordTimeMode", "choice of times before an event") \
    NUMBER(recordDelayTimeMode, 92, "CustomFuncs/RecordDelayTimeMode", "choice of times behind an event") \
    NUMBER(resolutionMode, 93, "FPS/SupportResolutionMode", "choice of stream resolutions") \
    NUMBER(colorMode, 94, "DisplaySenceDef/ColorMode", "form of the picture settings") \
    NUMBER(analyzeChannelCount, 95, "DevInfo/AIAnalyzeChannels", "channels that can be analysed at once") \
    NUMBER(spotDevice, 96, "CustomFuncs/VSpotDevice", "device of the spot output") \
    NUMBER(maxPictureScreenCount, 97, "NumberSetting/MaxPictureScreenNum", "pictures on one screen of search results") \
    NUMBER(talkInputChannel, 98, "NumberSetting/TalkAudioInputChnId", "audio input of a talk") \
    NUMBER(ieCustom, 99, "KeyPara/IECustom", "variant of the web page") \
    SWITCH(isShutdownEnabled, 100, "", "power can be switched off from the interface") \
    SWITCH(isFontCacheClearedWhenBusy, 101, "", "memory is short: the font cache goes before long work") \
    SWITCH(isScreenReopenedOnOutputChange, 102, "", "a change of the output needs the framebuffer opened again") \
    SWITCH(isResolutionSetByApp, 103, "", "App chooses the resolution once the interface is ready") \
    SWITCH(isFrontPanelEnabled, 104, "CustomFuncs/KeyBoardEnble", "a front panel is there") \
    SWITCH(isBarcodeInputEnabled, 105, "", "a barcode reader is there") \
    SWITCH(isPosOnRs485, 106, "", "points of sale are on the RS-485 line") \
    SWITCH(isSerialMultiplexerEnabled, 107, "", "the key serial line is behind a multiplexer") \
    SWITCH(isOneKeyPerSplitMode, 108, "", "the panel has a key for each split mode") \
    SWITCH(isPowerPasswordEnabled, 109, "CustomFuncs/EnablePowerPassword", "switching off asks for a password") \
    SWITCH(isServicePasswordEnabled, 110, "", "App knows a service password") \
    SWITCH(isPromptSystemEnabled, 111, "CustomFuncs/EnablePromptSystem", "hints are shown") \
    SWITCH(isDemoEnabled, 112, "CustomFuncs/EnableDemo", "the recorder runs in a shop") \
    SWITCH(isAlarmPanelEnabled, 113, "", "the live view has an alarm panel at its side") \
    SWITCH(isOverlayScaled, 114, "", "overlays scale from screen to output; the output is separate") \
    SWITCH(isToolBarShownOnFullScreen, 115, "", "the tool bar shows behind a double click") \
    SWITCH(isCameraManagementEnabled, 116, "", "cameras are managed in a list of slots") \
    SWITCH(isZoomInSplitEnabled, 117, "", "a wheel zoom lives on when its cell changes size") \
    SWITCH(isOneEightSequenceEnabled, 118, "", "the sequence of layouts is 1 and 8") \
    SWITCH(isSpotOutputEnabled, 119, "CustomFuncs/VspotEnable", "a spot output is there") \
    SWITCH(isSecondHdmiEnabled, 120, "", "a second HDMI output is there") \
    SWITCH(isPlaybackAnnounced, 121, "", "App is told of playback before it starts from the live view") \
    SWITCH(isAudioRightChecked, 122, "", "audio needs a right") \
    SWITCH(isToolBarKeptOnPreview, 123, "", "the tool bar stays when the preview starts anew") \
    SWITCH(isDirectLightControlEnabled, 124, "", "light and siren are switched without a dialog") \
    SWITCH(isInstantPlaybackEnabled, 125, "CustomFuncs/EnableInstantPlayback", "instant playback of a cell") \
    SWITCH(isNetworkStateShown, 126, "", "the task bar shows the state of the network") \
    SWITCH(isWirelessListEnabled, 127, "", "wireless cameras are listed") \
    SWITCH(isDigitalOnly, 128, "", "no analogue inputs by design") \
    SWITCH(isFloodlightEnabled, 129, "", "cameras with floodlights") \
    SWITCH(isBackupEnabled, 130, "", "backup to a storage stick") \
    SWITCH(isPreviewOff, 131, "DevInfo/PreviewOff", "the recorder shows no live pictures") \
    SWITCH(isSpotPollEnabled, 132, "CustomFuncs/EnableSpotPoll", "the spot output turns pages") \
    SWITCH(isVgaHdmiSame, 133, "CustomFuncs/EnableHdmiVgaHomol", "VGA and HDMI show the same") \
    SWITCH(isHdmiEnabled, 134, "CustomFuncs/HdmiEnable", "an HDMI output is there") \
    SWITCH(isVgaEnabled, 135, "CustomFuncs/VgaEnable", "a VGA output is there") \
    SWITCH(isCvbsEnabled, 136, "CustomFuncs/VoutEnable", "a composite output is there") \
    SWITCH(isInputDetectedAutomatically, 137, "CustomFuncs/EnableViDetectAuto", "analogue inputs tell their signal") \
    SWITCH(isCoaxEnabled, 138, "CustomFuncs/CoaxEnable", "cameras are controlled over their coaxial cable") \
    SWITCH(isSerialEnabled, 139, "CustomFuncs/EnableSerial", "a serial port is there") \
    SWITCH(isSharpnessEnabled, 140, "DisplaySenceDef/EnableSharpness", "sharpness among the picture settings") \
    SWITCH(usePersianDate, 141, "CustomFuncs/UsePersianDate", "dates are Persian") \
    SWITCH(isSmartSearchEnabled, 142, "CustomFuncs/EnableSmartSearch", "motion search in playback") \
    SWITCH(isRemoteStreamFlagEnabled, 143, "CustomFuncs/EnableRECflagForIE", "the web page shows what records") \
    SWITCH(isDigitalSideSet, 144, "", "the digital side is switched on, whatever the channels") \
    SWITCH(isAiEnabled, 145, "DevInfo/AIAnalyzeCap", "the recorder analyses pictures") \
    SWITCH(isProtocolPageEnabled, 146, "", "page of camera protocols") \
    SWITCH(isPoePageEnabled, 147, "", "page of power over Ethernet") \
    SWITCH(isImageControlPageEnabled, 148, "", "page of image control") \
    SWITCH(isPtzPageEnabled, 149, "", "page of PTZ settings") \
    SWITCH(isPirEnabled, 150, "", "cameras with motion sensors") \
    SWITCH(isFloodlightSchedulePageEnabled, 151, "", "page of floodlight schedules") \
    SWITCH(isSoundDetectionEnabled, 152, "", "intelligent page of sounds") \
    SWITCH(isOcclusionDetectionEnabled, 153, "", "intelligent page of covered lenses") \
    SWITCH(isCrossCountPageEnabled, 154, "", "intelligent page of counting") \
    SWITCH(isCrossCountStatisticsEnabled, 155, "", "page of count statistics") \
    SWITCH(isMobileStreamEnabled, 156, "", "a third stream for phones") \
    SWITCH(isCaptureEnabled, 157, "", "pages of captured pictures") \
    SWITCH(isFaceEnabled, 158, "", "faces are compared; the AI page of playback is named after it") \
    SWITCH(isStatisticsAlarmEnabled, 159, "", "alarms of statistics") \
    SWITCH(isAlarmLinkagePtzEnabled, 160, "CustomFuncs/AlarmLinkagePtzEnable", "an alarm can turn a camera") \
    SWITCH(isAlarmSchedulePageEnabled, 161, "", "page of alarm schedules") \
    SWITCH(isFaceAttendanceEnabled, 162, "", "attendance is kept by faces") \
    SWITCH(isMobileNetworkEnabled, 163, "FuncSwitch/Moudles3GEnable", "a mobile network module is there") \
    SWITCH(isPppoeEnabled, 164, "FuncSwitch/MoudlesPPoeEnable", "dial-up over Ethernet") \
    SWITCH(isSmartHomeEnabled, 165, "", "pages of smart homes") \
    SWITCH(isPosEnabled, 166, "", "pages of points of sale") \
    SWITCH(isSecondHdmiPageEnabled, 167, "", "page of the second output") \
    SWITCH(isStickUpgradePageEnabled, 168, "", "page of the AI stick's upgrade") \
    SWITCH(isCameraUpgradePageEnabled, 169, "", "cameras are upgraded from the recorder") \
    SWITCH(isExtraDiskWatchEnabled, 170, "", "the disk pages watch for changes") \
    SWITCH(isMaskOverlapChecked, 171, "", "masks of a channel must not overlap") \
    SWITCH(isCopyItem9Enabled, 172, "", "second form of the name setting, and its copy") \
    SWITCH(isCopyItem12Enabled, 173, "", "flicker setting, and its copy") \
    SWITCH(isAnalogAlarmEnabled, 174, "CustomFuncs/AlarmEnable", "alarm inputs and outputs are there") \
    SWITCH(isAlgorithmEnabled, 175, "CustomFuncs/EnableAlg", "intelligent rules of analogue channels") \
    SWITCH(isPushEnabled, 176, "CustomFuncs/PushSwitch", "notices to phones") \
    SWITCH(isP2pPushEnabled, 177, "P2pType/P2pPushEnable", "notices through the relay") \
    SWITCH(isRtspEnabled, 178, "FuncSwitch/RtspEnable", "streams for other players") \
    SWITCH(isFtpEnabled, 179, "FuncSwitch/FtpEnable", "pages of file transfer") \
    SWITCH(isFtpAutoUpgradeEnabled, 180, "FuncSwitch/FtpAutoUpgradeEnable", "upgrade from a server") \
    SWITCH(isEncodeEnabled, 181, "FuncSwitch/EncodeEnable", "page of stream settings") \
    SWITCH(isMailTestEnabled, 182, "FuncSwitch/EamilTestEnable", "a test mail can be sent") \
    SWITCH(isMailScheduleEnabled, 183, "FuncSwitch/EmailScheduleEnable", "page of mail schedules") \
    SWITCH(isMobileClientEnabled, 184, "FuncSwitch/HsMoblieCrlEnable", "control from phones") \
    SWITCH(isLogEnabled, 185, "FuncSwitch/LogEnable", "page of the log") \
    SWITCH(isHttpAlarmEnabled, 186, "FuncSwitch/LthttpAlarmEnable", "alarms over HTTP") \
    SWITCH(isCloudStorageEnabled, 187, "FuncSwitch/ZarelCloudStorage", "page of cloud storage") \
    SWITCH(isPolygonPirAreaEnabled, 188, "FuncSwitch/UsePolygonPirArea", "areas of motion sensors are polygons") \
    SWITCH(is960HEnabled, 189, "FuncSwitch/Support960HEnable", "the wider analogue resolution") \
    SWITCH(isBankFormEnabled, 190, "FuncSwitch/OrvaneBankEnable", "the form for banks") \
    SWITCH(isFrameFixed, 191, "DevInfo/ResolutioFrameFix", "frame rates are fixed by the resolution") \
    SWITCH(isSubStreamRestricted, 192, "DevInfo/SubStreamRestrict", "the sub stream follows the main stream") \
    SWITCH(isSubFpsLimited, 193, "SubStream/SubFpsLimitEnable", "the sub stream has a frame limit") \
    LIVE(isCameraUpgradeRunning, 194, "", "cameras are being upgraded; read anew each time") \
    SWITCH(isFpsSourceLimited, 195, "FPS/LimitFpsSourceEnable", "the source limits the frame rate") \
    SWITCH(isRealTime720Enabled, 196, "FPS/FpsReal720PEnable", "full frame rate at 720 lines") \
    SWITCH(isRealTime1080Enabled, 197, "FPS/FpsReal1080PEnable", "full frame rate at 1080 lines") \
    SWITCH(isRealTime3MpEnabled, 198, "FPS/FpsReal3mpEnable", "full frame rate at 3 megapixels") \
    SWITCH(isRealTime4MpEnabled, 199, "FPS/FpsReal4mpEnable", "full frame rate at 4 megapixels") \
    SWITCH(isOtherFpsEnabled, 200, "CustomFuncs/EnableNrahd20orOtherfps", "further frame rates") \
    SWITCH(isShortStreamEnabled, 201, "CustomFuncs/EnableSZStream", "the short form of the stream page") \
    SWITCH(isAutoFrameEnabled, 202, "VantorCustom/FrameAuto", "the frame rate follows the load") \
    SWITCH(isPicturePlaybackEnabled, 203, "", "search for stored pictures") \
    SWITCH(isSliceSearchEnabled, 204, "", "search by slices") \
    SWITCH(isMotionSearchEnabled, 205, "", "search for motion in an area") \
    SWITCH(isTagSearchEnabled, 206, "", "search by tags") \
    SWITCH(isExternalPlaybackEnabled, 207, "", "playback of files from a stick") \
    SWITCH(isAiPlaybackEnabled, 208, "", "search by faces and objects") \
    SWITCH(isFreeZoomEnabled, 209, "", "wheel zoom in every playback tile") \
    SWITCH(isZoomRestricted, 210, "", "wheel zoom in sub-period playback only") \
    SWITCH(isMotionFilterEnabled, 211, "", "motion records are filtered by target") \
    SWITCH(isPirRecordTypeEnabled, 212, "", "records of motion sensors") \
    SWITCH(isIntelligentRecordTypeEnabled, 213, "", "records of intelligent alarms") \
    SWITCH(isSensorRecordTypeEnabled, 214, "", "record type of bit 31") \
    SWITCH(isEventSearchEnabled, 215, "", "search for events") \
    SWITCH(isSubPeriodEnabled, 216, "", "playback by parts of a day") \
    SWITCH(isSnapshotEnabled, 217, "", "snapshots in playback") \
    SWITCH(isEsataEnabled, 218, "FuncSwitch/EsataEnable", "external disks, kind 2") \
    SWITCH(isNetworkDiskEnabled, 219, "", "network disks, kind 5") \
    SWITCH(isRaidEnabled, 220, "", "disks can form a RAID") \
    SWITCH(isDiskGroupEnabled, 221, "DiskConfig/DiskGroupEnable", "disks in groups") \
    SWITCH(isDiskHealthEnabled, 222, "", "page of disk health") \
    SWITCH(isSmartInfoEnabled, 223, "", "page of disk details") \
    SWITCH(isIpv6Enabled, 224, "", "IPv6 settings") \
    SWITCH(isWifiEnabled, 225, "", "a wireless network is there") \
    SWITCH(isInternalNetworkEnabled, 226, "", "cameras have a network of their own") \
    SWITCH(isSnmpEnabled, 227, "", "page of network management") \
    SWITCH(isNetworkAuthenticationEnabled, 228, "", "page of network authentication") \
    SWITCH(isAddressFilterEnabled, 229, "", "page of allowed addresses") \
    SWITCH(isRemoteMaintenanceEnabled, 230, "", "page of remote maintenance") \
    SWITCH(isDdnsEnabled, 231, "", "page of dynamic names") \
    SWITCH(isTimeServerEnabled, 232, "", "time from a server") \
    SWITCH(isDeveloperPageEnabled, 233, "", "page for developers") \
    SWITCH(isIotPageEnabled, 234, "", "page of connected devices") \
    SWITCH(isAutoRebootEnabled, 235, "", "restart by the clock") \
    SWITCH(isDelayShutdownEnabled, 236, "", "switching off late") \
    SWITCH(isVoicePromptEnabled, 237, "", "spoken alarms") \
    SWITCH(isFishEyeEnabled, 238, "", "fisheye cameras") \
    SWITCH(isDualTalkEnabled, 239, "", "talks with cameras") \
    SWITCH(isSleepEnabled, 240, "", "cameras can sleep") \
    SWITCH(isFirstRunDialogEnabled, 241, "", "a first-run dialog") \
    SWITCH(isDefaultPasswordWarned, 242, "", "the first password must be changed") \
    SWITCH(isPatternEnabled, 243, "", "login by an unlock pattern") \
    SWITCH(isForgetPasswordEnabled, 244, "", "a forgotten password can be reset") \
    SWITCH(isListOf40Enabled, 245, "", "lists of channels hold 40 and not 32") \
    SWITCH(isWatchdogOff, 246, "DebugFuncSwitch/NoWatchDogEnable", "no watchdog, for developers") \
    SWITCH(isNfsStart, 247, "DebugFuncSwitch/RunOnNfsEnable", "the recorder was started over the network") \
    SWITCH(isAiUsbStickEnabled, 248, "", "an AI stick can be plugged in")
// clang-format on
