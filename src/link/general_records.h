// Wire record of the general system settings: parameter kind 21. The offsets inside the record are
// ours to fix; bytes without a name pass through. Little-endian.
#pragma once

#include "link/wirereader.h"
#include "link/wirewriter.h"

struct GeneralParams {
    static constexpr int Kind = 21;
    static constexpr std::size_t Size = 168;
    static constexpr std::size_t OffsetDateFormat = 0, OffsetTimeFormat = 1, OffsetIdleTime = 2,
                                 OffsetLanguage = 4, OffsetLanguageMask = 8,
                                 OffsetExtendedLanguageMask = 12;

    std::uint8_t bytes[Size] = {}; // the whole record as App sent it
    std::uint8_t dateFormat = 0;   // 0 month first, 1 year first, 2 day first
    std::uint8_t timeFormat = 0;   // 0 by 24 hours, otherwise by 12
    std::uint8_t idleTime = 0;     // index of the automatic log-out time
    std::uint32_t language = 0;
    std::uint32_t languageMask = 0;
    std::uint32_t extendedLanguageMask = 0;

    static GeneralParams decode(const void *record, std::size_t size);
    // The named fields over the bytes that came.
    WireWriter encode() const;
};

// Blocks until App answers.
GeneralParams readGeneralParams();
void writeGeneralParams(const GeneralParams &params);
