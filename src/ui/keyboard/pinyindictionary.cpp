#include "ui/keyboard/pinyindictionary.h"

#include "link/startup.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <set>

namespace
{

constexpr std::streamoff MostBytes = 16 << 20; // no dictionary is larger
constexpr std::size_t Completions = 8;         // more would push the words for the beginning away

struct Weighted {
    std::string_view text;
    long weight;
};

// Calls `visit` for each word of a line until it returns false.
template <typename Visit>
void forEachWord(std::string_view line, Visit visit)
{
    std::size_t from = line.find('\t');
    while (from != std::string_view::npos) {
        const std::size_t next = line.find('\t', from + 1);
        const std::string_view entry = line.substr(from + 1, next - from - 1);
        const std::size_t space = entry.find(' ');
        const bool isWhole = space != std::string_view::npos && space > 0;
        // What follows is another entry or the line's end: the number ends there.
        if (isWhole && !visit(Weighted{entry.substr(0, space),
                                       std::strtol(entry.data() + space, nullptr, 10)}))
            return;
        from = next;
    }
}

class Found
{
public:
    explicit Found(std::size_t most) : most_(most) {}
    bool isFull() const { return words_.size() >= most_; }
    // False when there is no room for more.
    bool add(std::string_view text, int letters)
    {
        if (seen_.insert(text).second && !isFull())
            words_.push_back({ZrString(text.data(), int(text.size())), letters});
        return !isFull();
    }
    std::vector<PinyinWord> take() { return std::move(words_); }

private:
    std::size_t most_;
    std::set<std::string_view> seen_;
    std::vector<PinyinWord> words_;
};

} // namespace

PinyinDictionary::PinyinDictionary(const ZrString &path)
{
    std::ifstream file(path.toUtf8().constData(), std::ios::binary | std::ios::ate);
    const std::streamoff size = file.tellg();
    if (size <= 0 || size > MostBytes)
        return;
    content_.resize(std::size_t(size));
    file.seekg(0);
    file.read(&content_[0], size);
    content_.resize(std::size_t(std::max<std::streamsize>(0, file.gcount())));
    const std::string_view all = content_;
    for (std::size_t from = 0; from < all.size();) {
        const std::size_t end = std::min(all.find('\n', from), all.size());
        if (end > from)
            lines_.push_back(all.substr(from, end - from));
        from = end + 1;
    }
}

const PinyinDictionary &PinyinDictionary::instance()
{
    static const PinyinDictionary dictionary(resolveResourcePath(ZrString("input/pinyin.txt")));
    return dictionary;
}

std::string_view PinyinDictionary::spellingOf(std::size_t line) const
{
    return lines_[line].substr(0, lines_[line].find('\t'));
}

std::size_t PinyinDictionary::firstFrom(std::string_view letters) const
{
    std::size_t from = 0;
    std::size_t to = lines_.size();
    while (from < to) {
        const std::size_t middle = (from + to) / 2;
        if (spellingOf(middle) < letters)
            from = middle + 1;
        else
            to = middle;
    }
    return from;
}

std::vector<PinyinWord> PinyinDictionary::find(const std::string &letters, std::size_t most) const
{
    Found found(most);
    const int all = int(letters.size());
    std::size_t line = firstFrom(letters);
    if (line < lines_.size() && spellingOf(line) == letters)
        forEachWord(lines_[line++],
                    [&](const Weighted &word) { return found.add(word.text, all); });

    // The heaviest of those that go on; each line's first is its heaviest.
    std::vector<Weighted> longer;
    for (; line < lines_.size() && spellingOf(line).substr(0, letters.size()) == letters; ++line)
        forEachWord(lines_[line], [&](const Weighted &word) {
            longer.push_back(word);
            return false;
        });
    const std::size_t kept = std::min(Completions, longer.size());
    std::partial_sort(
        longer.begin(), longer.begin() + std::ptrdiff_t(kept), longer.end(),
        [](const Weighted &left, const Weighted &right) { return left.weight > right.weight; });
    for (std::size_t i = 0; i < kept && !found.isFull(); ++i)
        found.add(longer[i].text, all);

    for (std::size_t length = letters.size(); length-- > 1 && !found.isFull();) {
        const std::string_view head = std::string_view(letters).substr(0, length);
        const std::size_t at = firstFrom(head);
        if (at < lines_.size() && spellingOf(at) == head)
            forEachWord(lines_[at],
                        [&](const Weighted &word) { return found.add(word.text, int(length)); });
    }
    return found.take();
}
