#include "ui/keyboard/pinyinentry.h"

bool PinyinEntry::type(const ZrString &letter)
{
    const bool isLetter = letter.size() == 1 && letter.at(0) >= 'a' && letter.at(0) <= 'z';
    if (!isLetter || letters_.size() == MostLetters)
        return false;
    letters_ += char(letter.at(0));
    search();
    return true;
}

bool PinyinEntry::erase()
{
    if (letters_.empty())
        return false;
    letters_.pop_back();
    search();
    return true;
}

void PinyinEntry::clear()
{
    letters_.clear();
    words_.clear();
}

ZrString PinyinEntry::choose(std::size_t index)
{
    if (index >= words_.size())
        return ZrString();
    const PinyinWord word = words_[index];
    letters_.erase(0, std::size_t(word.letters));
    search();
    return word.text;
}

void PinyinEntry::search()
{
    words_.clear();
    if (!letters_.empty())
        words_ = dictionary_.find(letters_, MostWords);
}
