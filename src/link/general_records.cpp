#include "link/general_records.h"

#include "link/parameters.h"

GeneralParams GeneralParams::decode(const void *record, std::size_t size)
{
    WireReader reader(record, size);
    GeneralParams params;
    reader.bytes(0, params.bytes, Size);
    params.dateFormat = reader.u8(OffsetDateFormat);
    params.timeFormat = reader.u8(OffsetTimeFormat);
    params.idleTime = reader.u8(OffsetIdleTime);
    params.language = reader.u32(OffsetLanguage);
    params.languageMask = reader.u32(OffsetLanguageMask);
    params.extendedLanguageMask = reader.u32(OffsetExtendedLanguageMask);
    return params;
}

WireWriter GeneralParams::encode() const
{
    WireWriter record(Size);
    record.bytes(0, bytes, Size)
        .u8(OffsetDateFormat, dateFormat)
        .u8(OffsetTimeFormat, timeFormat)
        .u8(OffsetIdleTime, idleTime)
        .u32(OffsetLanguage, language)
        .u32(OffsetLanguageMask, languageMask)
        .u32(OffsetExtendedLanguageMask, extendedLanguageMask);
    return record;
}

GeneralParams readGeneralParams()
{
    std::uint8_t record[GeneralParams::Size];
    ZrGetParam(GeneralParams::Kind, record, sizeof record, false);
    return GeneralParams::decode(record, sizeof record);
}

void writeGeneralParams(const GeneralParams &params)
{
    const WireWriter record = params.encode();
    ZrSetParam(GeneralParams::Kind, record.data(), record.size());
}
