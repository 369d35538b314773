// The texts that App paints itself, in the user's language: message 600/9.
#pragma once

#include <vector>
#include <zrlist>
#include <zrstring>

constexpr int StringTableEntries = 71;

// 71 offsets of 32 bits, little-endian, each from the start of the texts behind them; the texts in
// UTF-8, each with its zero.
std::vector<unsigned char> encodeStringTable(const ZrList<ZrString> &texts);
void sendStringTable();
