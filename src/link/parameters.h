// Reading and writing App's parameters, whole records by kind. Widget thread.
//
// A page reads a record on entry, edits a copy, and writes it on save if it differs:
//
//     ParamRecord record(ParamKind::general);
//     record.read();
//     ... edit record.writer() ...
//     record.writeIfChanged();
#pragma once

#include "link/wirereader.h"
#include "link/wirewriter.h"

#include <cstdint>
#include <vector>

// Request of a parameter, and head of a write.
struct ParamRequest {
    static constexpr size_t Size = 12;
    static constexpr size_t OffsetKind = 0;       // u32
    static constexpr size_t OffsetSize = 4;       // u32: of the record
    static constexpr size_t OffsetUseDefault = 8; // u8: 1 asks for the factory default
    static constexpr size_t OffsetIsRead = 9;     // u8: 1 on read, 0 on write
    // Two reserved bytes, not assigned.
};

// Blocks until App has answered. The record is zeroed first; a longer answer is cut to it, behind a
// shorter one it stays zero.
void ZrGetParam(uint32_t kind, void *record, uint32_t size, bool useDefault = false);
// Sends the record and does not wait. Null prints a line and sends nothing.
void ZrSetParam(uint32_t kind, const void *record, uint32_t size);
// Writes `now` if it differs from `before`, both of the given size. Whether it did.
bool writeIfChanged(uint32_t kind, const void *before, const void *now, uint32_t size);

// A record of a kind, as it was read and as it stands now. The kind must be one of paramkinds.h.
class ParamRecord
{
public:
    explicit ParamRecord(uint32_t kind);

    enum class Values { Current, FactoryDefault };
    // Reads from App. Factory defaults are only shown: they count as a change until they are saved,
    // so a current record must have been read before them.
    void read(Values values = Values::Current);
    bool isChanged() const { return now_ != before_; }
    // Writes if changed; what was written then counts as read.
    bool writeIfChanged();

    size_t size() const { return now_.size(); }
    WireReader reader() const { return WireReader(now_.data(), now_.size()); }
    WireWriter writer() { return WireWriter(now_.data(), now_.size()); }

private:
    uint32_t kind_;
    std::vector<uint8_t> before_;
    std::vector<uint8_t> now_;
};
