// Wire records of the live view: main type 100 and the preview and view parameters. Little-endian;
// offsets in bytes.
#pragma once

#include "link/wirereader.h"
#include "link/wirewriter.h"

#include <zrrect>

namespace live
{

// x, y, width and height of 16 bits each.
struct WireRect {
    static constexpr std::size_t Size = 8;
    std::uint16_t x = 0, y = 0, width = 0, height = 0;

    static WireRect of(const ZrRect &rect);
    ZrRect toRect() const { return ZrRect(x, y, width, height); }
    static WireRect decode(WireReader &record, std::size_t base);
    void encode(WireWriter &record, std::size_t base) const;
};

// The whole picture on the reference that crops are given on.
constexpr int CropWidth = 704;
constexpr int CropHeight = 576;

// The set of pictures on the screen: 100/0, 100/1, 100/3 and 100/7.
struct PreviewRecord {
    static constexpr std::size_t Size = 820;
    static constexpr int Places = 32;
    static constexpr std::size_t OffsetCount = 0, OffsetChannel = 12, OffsetInstantPlayback = 140,
                                 OffsetRect = 268, OffsetCrop = 524, OffsetWheelZoomed = 780,
                                 OffsetPreviewDialogOpen = 812, OffsetCellCount = 816;
    struct Picture {
        std::uint32_t channel = 0;
        bool instantPlayback = false;
        WireRect rect; // display-output pixels
        WireRect crop{0, 0, CropWidth, CropHeight};
        bool wheelZoomed = false;
    };

    std::uint32_t count = 0;
    Picture pictures[Places];
    bool previewDialogOpen = false;
    std::uint32_t cellCount = 0;

    // False when all places are taken.
    bool append(const Picture &picture);
    // A count above the places is cut to them.
    static PreviewRecord decode(WireReader record);
    WireWriter encode() const;
};

// 100/8: sound of the selected channel.
struct AudioRecord {
    static constexpr std::size_t Size = 8;
    std::uint32_t channel = 0;
    std::uint8_t audioChannelParam = 0;
    bool on = false;
    std::uint8_t volume = 0;
    std::uint8_t source = 0; // 0 analogue, 1 IP, 2 instant playback

    WireWriter encode() const;
};

// Parameter kind 12. Only the fields that the live view uses have names; the rest passes through.
struct PreviewParam {
    static constexpr int Kind = 12;
    static constexpr std::size_t Size = 352;
    static constexpr std::size_t OffsetChannels = 0, MaximumSlots = 48;
    static constexpr std::size_t OffsetSequenceDwell = 48, OffsetSequenceMode = 52, OffsetMode = 53,
                                 OffsetPage = 54, OffsetSelectedCell = 55, OffsetFullScreen = 56,
                                 OffsetExtraAudio = 324, OffsetAudioChannel = 330,
                                 OffsetSequenceOn = 333, OffsetAudioVolume = 335,
                                 OffsetPreviewOption = 337, OffsetFlag341 = 341, OffsetMute = 345;
};

// Parameter kind 24: pairs of bytes, a flag is on when both of its pair are.
struct ViewParam {
    static constexpr int Kind = 24;
    static constexpr std::size_t Size = 252;
    static constexpr std::size_t OffsetNoVideoHint = 12, OffsetOverlay4 = 48, OffsetOverlay3 = 84;
};

} // namespace live
