// Composers that change the letter before the cursor into another form of it.
#pragma once

#include "ui/keyboard/composer.h"

// The letter typed last, in any of its forms.
class LetterFormComposer : public Composer
{
public:
    ComposedEdit type(const ZrString &key) override;
    void reset() override { last_ = 0; }

protected:
    // The form of the letter that the key asks for; 0 when it has none. A key that is no form key
    // yields false.
    virtual bool isFormKey(ZrUcs2 key) const = 0;
    virtual ZrUcs2 form(ZrUcs2 letter, ZrUcs2 key) const = 0;

private:
    ZrUcs2 last_ = 0;
};

class VietnameseComposer : public LetterFormComposer
{
protected:
    bool isFormKey(ZrUcs2 key) const override;
    ZrUcs2 form(ZrUcs2 letter, ZrUcs2 key) const override;
};

class KanaComposer : public LetterFormComposer
{
protected:
    bool isFormKey(ZrUcs2 key) const override { return key == 0x309B; }
    ZrUcs2 form(ZrUcs2 letter, ZrUcs2 key) const override;
};
