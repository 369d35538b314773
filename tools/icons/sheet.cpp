#include "sheet.h"

#include "palette.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace
{

constexpr int Columns = 8;
constexpr int CellWidth = 200;
constexpr int CellHeight = 84;
constexpr int TallCell = 144;
constexpr int Margin = 8;
constexpr int LabelSize = 11;
constexpr int LargestShown = 120; // a side; larger pictures are shown smaller

struct Entry {
    std::string name;
    Picture picture;
};

std::vector<Entry> readFolder(const std::string &folder)
{
    std::vector<Entry> entries;
    for (const auto &file : std::filesystem::directory_iterator(folder)) {
        if (file.path().extension() == ".png")
            entries.push_back({file.path().stem().string(), Picture::load(file.path().string())});
    }
    std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) {
        const bool isTallA = a.picture.height() > 48, isTallB = b.picture.height() > 48;
        return isTallA != isTallB ? isTallB : a.name < b.name;
    });
    return entries;
}

int rowHeight(const Entry &first)
{
    return first.picture.height() > 48 ? TallCell : CellHeight;
}

// Where each picture's cell begins, and the height of all.
std::vector<Point> places(const std::vector<Entry> &entries, int &height)
{
    std::vector<Point> all;
    int column = 0, top = 0, row = 0;
    for (const Entry &entry : entries) {
        if (column == Columns || (row && rowHeight(entry) != row)) {
            column = 0;
            top += row;
        }
        row = rowHeight(entry);
        all.push_back({float(column++ * CellWidth), float(top)});
    }
    height = top + row;
    return all;
}

bool endsWith(const std::string &text, const std::string &ending)
{
    return text.size() >= ending.size() &&
           text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

void drawEntry(Picture &sheet, IconFont &labels, const Entry &entry, int left, int top)
{
    Picture large = entry.picture;
    const float shrink =
        std::min(1.0f, float(LargestShown) / float(std::max(large.width(), large.height())));
    if (shrink < 1)
        large =
            large.scaled(int(float(large.width()) * shrink), int(float(large.height()) * shrink));
    sheet.draw(left + Margin, top + Margin, large);
    const Picture small = entry.picture.scaled(large.width() * 2 / 3, large.height() * 2 / 3);
    if (!endsWith(entry.name, "-max") && large.width() * 5 / 3 < CellWidth - 3 * Margin)
        sheet.draw(left + 2 * Margin + large.width(), top + Margin, small);
    labels.drawText(sheet, entry.name, roleColor("dim", State::Normal), left + Margin,
                    top + rowHeight(entry) - Margin, LabelSize);
}

} // namespace

void makeSheet(IconFont &labels, const std::vector<std::string> &folders, const std::string &file)
{
    std::vector<Entry> entries;
    for (const std::string &folder : folders) {
        for (Entry &entry : readFolder(folder))
            entries.push_back(std::move(entry));
    }
    int height = 0;
    const std::vector<Point> cells = places(entries, height);
    Picture sheet(Columns * CellWidth, height + Margin);
    sheet.fill([](Point) { return -1.0f; }, roleColor("panel", State::Normal));
    for (std::size_t i = 0; i < entries.size(); ++i)
        drawEntry(sheet, labels, entries[i], int(cells[i].x), int(cells[i].y));
    if (!sheet.save(file))
        throw std::runtime_error("cannot write " + file);
}
