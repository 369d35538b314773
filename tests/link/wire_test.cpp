#include "link/wirereader.h"
#include "link/wirewriter.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace
{

TEST(WireReader, YieldsZeroAndMarksItselfShortWhereverARecordEnds)
{
    const uint8_t record[] = {1, 2, 3, 4, 5, 6, 7, 8};
    // Every width at every offset, inside and outside, must agree with whether it fits.
    for (size_t size = 0; size <= sizeof record; ++size) {
        for (size_t offset = 0; offset <= sizeof record + 1; ++offset) {
            for (size_t width : {1, 2, 4, 8}) {
                WireReader reader(record, size);
                const uint64_t value = width == 1   ? reader.u8(offset)
                                       : width == 2 ? reader.u16(offset)
                                       : width == 4 ? reader.u32(offset)
                                                    : reader.u64(offset);
                EXPECT_EQ(value != 0, offset + width <= size);
                EXPECT_EQ(reader.isShort(), offset + width > size);
            }
        }
    }
    WireReader reader(record, sizeof record);
    EXPECT_EQ(reader.u32(2), 0x06050403u);
    EXPECT_EQ(reader.u64(0), 0x0807060504030201u);
    EXPECT_FALSE(reader.isShort());
    EXPECT_EQ(reader.u32(SIZE_MAX - 1), 0u);
    EXPECT_TRUE(reader.isShort());
}

TEST(WireReader, CutsBytesTextAndPartsToTheRecord)
{
    const char record[] = {'a', 'b', 0, 'c', 'd', 'e'};
    WireReader reader(record, sizeof record);
    EXPECT_EQ(reader.text(0, 3), ZrString("ab"));
    EXPECT_EQ(reader.text(3, 3), ZrString("cde")); // a field may be full
    EXPECT_FALSE(reader.isShort());
    uint8_t out[5];
    memset(out, 0xEE, sizeof out);
    reader.bytes(4, out, sizeof out);
    EXPECT_EQ(memcmp(out, "de\0\0\0", 5), 0);
    EXPECT_TRUE(reader.isShort());
    EXPECT_TRUE(WireReader(record, sizeof record).text(4, 3).isEmpty());
    EXPECT_EQ(reader.part(4, 10).size(), 2u);
    EXPECT_EQ(reader.part(9, 1).size(), 0u);
    EXPECT_EQ(reader.entriesBehind(1, 2), 2u);
    EXPECT_EQ(reader.entriesBehind(7, 1), 0u);
    EXPECT_EQ(reader.entriesBehind(0, 0), 0u);
    EXPECT_EQ(WireReader(nullptr, 40).size(), 0u);
}

TEST(WireWriter, LeavesOutWhatDoesNotFitAndNeverWritesBehind)
{
    uint8_t memory[6];
    memset(memory, 0xEE, sizeof memory);
    WireWriter writer(memory, 4);
    writer.u16(0, 0x1234).u8(2, 0x56);
    EXPECT_FALSE(writer.isShort());
    writer.u16(3, 0xFFFF).u32(1, 0xFFFFFFFF).bytes(2, "xyz", 3).fill(4, 0, 1);
    EXPECT_TRUE(writer.isShort());
    EXPECT_EQ(memcmp(memory, "\x34\x12\x56\xEE\xEE\xEE", 6), 0);
}

TEST(WireWriter, CutsTextBetweenCharacters)
{
    struct {
        const char *text;
        size_t field;
        std::string bytes;
    } const rows[] = {
        {"ab", 4, std::string("ab\0\0", 4)},
        {"abcd", 4, "abcd"},
        {"abcde", 4, "abcd"},
        {"abc\u00e9", 4, std::string("abc\0", 4)},
        {"ab\u00e9", 4, "ab\u00e9"},
        {"\u20ac\u20ac", 4, std::string("\u20ac\0", 4)},
        {"", 2, std::string("\0\0", 2)},
        {"x", 0, ""},
    };
    for (const auto &row : rows) {
        WireWriter writer(row.field);
        writer.text(0, row.field, ZrString(row.text));
        EXPECT_EQ(std::string(reinterpret_cast<char *>(writer.data()), row.field), row.bytes);
        EXPECT_FALSE(writer.isShort());
    }
}

} // namespace
