#include <zrguard>

void ZrGuardLink::attach(ZrObject *object)
{
    if (!object)
        return;
    object_ = object;
    place_ = &object->guards_;
    next_ = object->guards_;
    if (next_)
        next_->place_ = &next_;
    object->guards_ = this;
}

void ZrGuardLink::detach()
{
    if (!object_)
        return;
    *place_ = next_;
    if (next_)
        next_->place_ = place_;
    object_ = nullptr;
}
