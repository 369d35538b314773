#include <zrevent>

ZrEvent::~ZrEvent() = default;

CEvent::~CEvent()
{
    delete[] data_;
}

unsigned char *CEvent::takeData()
{
    unsigned char *data = data_;
    data_ = nullptr;
    return data;
}
