// What is being spelt on the pinyin keyboard, and the words that it may mean.
#pragma once

#include "ui/keyboard/pinyindictionary.h"

class PinyinEntry
{
public:
    static constexpr std::size_t MostLetters = 40;
    static constexpr std::size_t MostWords = 120;

    explicit PinyinEntry(const PinyinDictionary &dictionary) : dictionary_(dictionary) {}

    bool isEmpty() const { return letters_.empty(); }
    const std::string &letters() const { return letters_; }
    const std::vector<PinyinWord> &words() const { return words_; }

    // False for what is no letter, or one too many.
    bool type(const ZrString &letter);
    // Takes the last letter back; false when there was none.
    bool erase();
    void clear();
    // The word, which leaves the letters that it does not stand for; empty when there is no such
    // one.
    ZrString choose(std::size_t index);

private:
    void search();

    const PinyinDictionary &dictionary_;
    std::string letters_;
    std::vector<PinyinWord> words_;
};
