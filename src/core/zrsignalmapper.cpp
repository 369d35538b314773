#include <zrsignalmapper>

#include <zrapplication>
#include <zrevent>
#include <zrobject>

namespace
{

// One entry of that sender, the newest first: connections that come and go stand at the end.
void removeOne(ZrList<ZrObject *> &senders, const ZrObject *sender)
{
    int index = senders.size() - 1;
    while (index >= 0 && senders.at(index) != sender)
        --index;
    if (index >= 0)
        senders.removeAt(index);
}

} // namespace

int ZrSlotList::indexOf(const ZrObject *receiver, ZrSlotFunction function) const
{
    for (int i = 0; i < slots.size(); ++i) {
        const ZrSlot &slot = slots.at(i);
        if (slot.receiver == receiver && slot.function == function)
            return i;
    }
    return -1;
}

void ZrSlotList::append(const ZrSlot &slot)
{
    slots.append(slot);
    ++changes;
}

void ZrSlotList::removeAt(int index)
{
    ++changes;
    if (depth == 0)
        slots.removeAt(index);
    else // an emit walks the list by index: the entry stays as a gap until the walk is over
        slots[index].receiver = nullptr;
}

void ZrSlotList::dropRemoved()
{
    for (int i = slots.size() - 1; i >= 0; --i) {
        if (!slots.at(i).receiver)
            slots.removeAt(i);
    }
}

ZrSignalMapper &ZrSignalMapper::of(ZrObject *object)
{
    return object->signalMapper_;
}

bool ZrSignalMapper::connect(ZrSignal *signal, ZrObject *receiver, ZrSlotFunction function,
                             int queued)
{
    if (!signal->slots_) {
        signal->slots_ = new ZrSlotList(selfPointer_); // owned by slotLists_
        slotLists_.insert(reinterpret_cast<std::uintptr_t>(signal), signal->slots_);
    }
    if (signal->slots_->indexOf(receiver, function) >= 0)
        return false;
    signal->slots_->append(ZrSlot{receiver, function, queued});
    of(receiver).senders_.append(selfPointer_);
    return true;
}

bool ZrSignalMapper::disconnect(ZrSignal *signal, ZrObject *receiver, ZrSlotFunction function)
{
    ZrSlotList *list = signal->slots_;
    const int index = list ? list->indexOf(receiver, function) : -1;
    if (index < 0)
        return false;
    // An emptied list stays for the next connection: what was listened to once usually is again.
    list->removeAt(index);
    removeOne(of(receiver).senders_, selfPointer_);
    return true;
}

int ZrSignalMapper::removeSlotsOf(const ZrObject *receiver)
{
    int count = 0;
    ZrList<ZrSlotList *> emptied;
    for (auto entry = slotLists_.begin(); entry != slotLists_.end(); ++entry) {
        ZrSlotList *list = entry.value();
        for (int i = list->slots.size() - 1; i >= 0; --i) {
            if (list->slots.at(i).receiver != receiver)
                continue;
            list->removeAt(i);
            ++count;
        }
        if (list->depth == 0 && list->slots.isEmpty())
            emptied.append(list);
    }
    for (ZrSlotList *list : emptied) {
        for (auto entry = slotLists_.begin(); entry != slotLists_.end(); ++entry) {
            if (entry.value() == list) {
                drop(reinterpret_cast<ZrSignal *>(entry.key()), list);
                break;
            }
        }
    }
    return count;
}

int ZrSignalMapper::disconnectReceiver(ZrObject *receiver)
{
    const int count = removeSlotsOf(receiver);
    for (int i = 0; i < count; ++i)
        removeOne(of(receiver).senders_, selfPointer_);
    return count;
}

void ZrSignalMapper::drop(ZrSignal *signal, ZrSlotList *list)
{
    signal->slots_ = nullptr;
    slotLists_.remove(reinterpret_cast<std::uintptr_t>(signal));
    delete list;
}

void ZrSignalMapper::postSlot(const ZrSlot &slot)
{
    selfPointer_->hasQueuedSignals_ = true;
    ZrApplication::postEvent(slot.receiver,
                             new ZrQueuedSignalEvent(selfPointer_, slot.receiver, slot.function));
}

void ZrSignalMapper::emitSignal(ZrSignal *signal)
{
    ZrSlotList *list = signal->slots_;
    ZrObject *sender = selfPointer_;
    const std::uint32_t before = list->changes;
    std::uint32_t seen = before;
    ++list->depth;
    auto slots = list->slots.constBegin();
    int count = list->slots.size();
    for (int i = 0; i < count; ++i) {
        const ZrSlot &slot = *(slots + i);
        if (!slot.receiver)
            continue;
        if (slot.queued)
            postSlot(slot);
        else
            slot.function(sender, slot.receiver, list);
        if (list->changes == seen)
            continue;
        // The slot connected, disconnected, or deleted the sender.
        if (!list->owner)
            break;
        seen = list->changes;
        slots = list->slots.constBegin();
        count = list->slots.size();
    }
    if (--list->depth > 0)
        return;
    if (!list->owner) { // the sender died in one of its slots and left the list to this walk
        delete list;
        return;
    }
    if (list->changes == before)
        return;
    list->dropRemoved();
    if (list->slots.isEmpty())
        drop(signal, list);
}

ZrSignalMapper::~ZrSignalMapper()
{
    for (auto entry = slotLists_.begin(); entry != slotLists_.end(); ++entry) {
        ZrSlotList *list = entry.value();
        for (const ZrSlot &slot : list->slots) {
            if (!slot.receiver)
                continue;
            removeOne(of(slot.receiver).senders_, selfPointer_);
        }
        if (list->depth == 0) {
            delete list;
            continue;
        }
        list->owner = nullptr;
        ++list->changes;
    }
    slotLists_.clear();
    while (!senders_.isEmpty()) {
        ZrObject *sender = senders_.last();
        of(sender).removeSlotsOf(selfPointer_);
        senders_.removeAll(sender);
    }
}
