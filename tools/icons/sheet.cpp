#include "sheet.h"

#include "palette.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <utility>

namespace
{

constexpr int Width = 1600;
constexpr int Margin = 8;
constexpr int LabelSize = 12;
constexpr int LabelHeight = 20;
constexpr int LargestShown = 120; // a side; larger pictures are shown smaller

struct Entry {
    std::string name; // of the picture without the ending of a twin
    std::string ending;
    Picture picture;
};

// A picture with its twins.
struct Group {
    std::string name;
    std::vector<Picture> pictures;
};

Entry readEntry(const std::filesystem::path &path)
{
    Entry entry{path.stem().string(), "", Picture::load(path.string())};
    const std::size_t last = entry.name.find_last_of("-_");
    if (last == std::string::npos || !isTwin(entry.name.substr(last)))
        return entry;
    entry.ending = entry.name.substr(last);
    entry.name.resize(last);
    return entry;
}

std::vector<Group> readFolder(const std::string &folder)
{
    std::vector<Entry> entries;
    for (const auto &file : std::filesystem::directory_iterator(folder)) {
        if (file.path().extension() == ".png")
            entries.push_back(readEntry(file.path()));
    }
    std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) {
        return a.name != b.name ? a.name < b.name : a.ending < b.ending;
    });
    std::vector<Group> groups;
    for (Entry &entry : entries) {
        if (groups.empty() || groups.back().name != entry.name)
            groups.push_back({entry.name, {}});
        groups.back().pictures.push_back(std::move(entry.picture));
    }
    std::stable_sort(groups.begin(), groups.end(), [](const Group &a, const Group &b) {
        return a.pictures[0].height() < b.pictures[0].height();
    });
    return groups;
}

// The pictures side by side above their name: each as a screen of 1920 shows it, and behind them
// the first as one of 1280 does.
Picture drawGroup(const Group &group, IconFont &labels)
{
    std::vector<Picture> pictures = group.pictures;
    for (Picture &picture : pictures) {
        const int longest = std::max(picture.width(), picture.height());
        if (longest > LargestShown)
            picture = picture.scaled(picture.width() * LargestShown / longest,
                                     picture.height() * LargestShown / longest);
    }
    pictures.push_back(
        pictures[0].scaled(pictures[0].width() * 2 / 3, pictures[0].height() * 2 / 3));
    int width = Margin, height = 0;
    for (const Picture &picture : pictures) {
        width += picture.width() + Margin;
        height = std::max(height, picture.height());
    }
    Picture unused(1, 1);
    const Color ink = roleColor("dim", State::Normal);
    const int label = labels.drawText(unused, group.name, ink, 0, 0, LabelSize);
    Picture cell(std::max(width, label + 2 * Margin), height + LabelHeight + Margin);
    int x = Margin;
    for (const Picture &picture : pictures) {
        cell.draw(x, Margin, picture);
        x += picture.width() + Margin;
    }
    labels.drawText(cell, group.name, ink, Margin, height + LabelHeight, LabelSize);
    return cell;
}

} // namespace

void makeSheet(IconFont &labels, const std::vector<std::string> &folders, const std::string &file)
{
    struct Placed {
        int x, y;
        Picture picture;
    };
    std::vector<Placed> placed;
    int x = 0, y = 0, row = 0;
    for (const std::string &folder : folders) {
        for (const Group &group : readFolder(folder)) {
            Picture cell = drawGroup(group, labels);
            if (x + cell.width() > Width) {
                x = 0;
                y += std::exchange(row, 0);
            }
            row = std::max(row, cell.height());
            placed.push_back({x, y, cell});
            x += cell.width();
        }
    }
    Picture sheet(Width, y + row + Margin);
    sheet.fill([](Point) { return -1.0f; }, roleColor("panel", State::Normal));
    for (const Placed &cell : placed)
        sheet.draw(cell.x, cell.y, cell.picture);
    if (!sheet.saveAsShown(file))
        throw std::runtime_error("cannot write " + file);
}
