// The keyboard for text: letters of the interface's language, or of another one that is chosen on
// it, signs, and for Chinese a row of words to choose from.
#pragma once

#include "ui/keyboard/composer.h"
#include "ui/keyboard/keyboard.h"
#include "ui/keyboard/pinyinentry.h"

class TextKeyboard : public Keyboard
{
    ZR_OBJECT(TextKeyboard, Keyboard)
public:
    // What the field shows of what is typed.
    enum Secrecy {
        Open,
        Secret // begins with Latin letters, and offers no words
    };
    TextKeyboard(ZrWidget *target, Secrecy secrecy);

    int layout() const { return layout_; }
    // An index of keyboardLayouts(). One that is chosen by its key is where the next keyboard
    // begins.
    void setLayout(int layout);

protected:
    void act(const KeyboardKey &key) override;
    void typed(const ZrString &text) override;
    void erase() override;

private:
    enum PageNumber { Letters, Symbols, Languages };
    enum ShiftState { Off, Once, Locked };

    void rebuild();
    void addLetters(std::vector<KeyboardRow> &rows) const;
    void addSymbols(std::vector<KeyboardRow> &rows) const;
    void addLanguages(std::vector<KeyboardRow> &rows) const;
    KeyboardRow candidateRow() const;
    KeyboardRow bottomRow() const;
    void frameLastRow(KeyboardRow &row) const;
    float columns() const;
    bool spells() const { return spelling_ && page_ == Letters; }
    bool typedInSpelling(const ZrString &text);
    void chooseWord(std::size_t index);
    void turnCandidates(int pages);
    int candidatesFrom(std::size_t first) const;
    void nextShift();
    void showPage(PageNumber page);
    void forgetComposition();

    int layout_;
    Secrecy secrecy_;
    PageNumber page_ = Letters;
    ShiftState shift_ = Off;
    std::unique_ptr<Composer> composer_;
    std::unique_ptr<PinyinEntry> spelling_;
    std::size_t firstCandidate_ = 0;
};
