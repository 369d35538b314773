// Chinese words by their spelling in Latin letters, from the file that the build makes.
//
// Lines sorted by spelling: the letters, then, heaviest first, a tab, a word, a space and its
// weight. The file is read when the first word is asked for. Widget thread only.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <zrstring>

struct PinyinWord {
    ZrString text;
    int letters; // of what was typed that it stands for
};

class PinyinDictionary
{
public:
    // A file that is not there or not sorted gives what can be found in it, which may be nothing.
    explicit PinyinDictionary(const ZrString &path);
    // The one of the resources.
    static const PinyinDictionary &instance();

    bool isEmpty() const { return lines_.empty(); }
    // For what was typed, at most `most`: words spelt so; then words whose spelling goes on; then
    // words for its beginning, the longest first.
    std::vector<PinyinWord> find(const std::string &letters, std::size_t most) const;

private:
    std::string_view spellingOf(std::size_t line) const;
    std::size_t firstFrom(std::string_view letters) const;

    std::string content_;
    std::vector<std::string_view> lines_; // into content_
};
