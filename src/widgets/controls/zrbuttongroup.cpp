#include <zrbuttongroup>

#include <zrabstractbutton>
#include <zrguard>

ZrButtonGroup::~ZrButtonGroup()
{
    for (const Member &member : members_)
        member.button->group_ = nullptr;
}

void ZrButtonGroup::addButton(ZrAbstractButton *button, int id)
{
    if (!button || button->group_ == this)
        return;
    if (button->group_)
        button->group_->removeButton(button);
    if (id < 0) {
        id = 0;
        while (this->button(id))
            ++id;
    }
    members_.append({button, id});
    button->group_ = this;
    if (button->isChecked())
        checkedChanged(button);
}

void ZrButtonGroup::removeButton(ZrAbstractButton *button)
{
    for (int i = 0; i < members_.size(); ++i) {
        if (members_.at(i).button != button)
            continue;
        members_.removeAt(i);
        button->group_ = nullptr;
        if (checked_ == button)
            checked_ = nullptr;
        if (clickedButton_ == button)
            clickedButton_ = nullptr;
        return;
    }
}

ZrAbstractButton *ZrButtonGroup::button(int id) const
{
    for (const Member &member : members_)
        if (member.id == id)
            return member.button;
    return nullptr;
}

int ZrButtonGroup::id(const ZrAbstractButton *button) const
{
    for (const Member &member : members_)
        if (member.button == button)
            return member.id;
    return -1;
}

void ZrButtonGroup::checkedChanged(ZrAbstractButton *button)
{
    if (!button->isChecked()) {
        if (checked_ == button)
            checked_ = nullptr;
        return;
    }
    ZrAbstractButton *before = checked_;
    checked_ = button; // before the other is unchecked, which it may be only now
    if (exclusive_ && before && before != button)
        before->setChecked(false);
}

void ZrButtonGroup::wasClicked(ZrAbstractButton *button)
{
    clickedButton_ = button;
    emit(this, &buttonClicked);
}
