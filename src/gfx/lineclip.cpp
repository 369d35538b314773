#include "gfx/lineclip.h"

#include <cstdint>

namespace
{

enum Outcode { Inside = 0, Left = 1, Right = 2, Bottom = 4, Top = 8 };

struct Box {
    int left, top, right, bottom;

    int outcode(int x, int y) const
    {
        int code = Inside;
        if (x < left)
            code |= Left;
        else if (x > right)
            code |= Right;
        if (y > bottom)
            code |= Bottom;
        else if (y < top)
            code |= Top;
        return code;
    }
};

// Where a line that passes (a1, b1) and (a2, b2) has its b, for an a between a1 and a2.
int crossing(int a, int a1, int b1, int a2, int b2)
{
    return b1 + int((int64_t(b2) - b1) * (int64_t(a) - a1) / (int64_t(a2) - a1));
}

} // namespace

void LineClip::clipTo(int left, int top, int right, int bottom)
{
    const Box box{left, top, right, bottom};
    int first = box.outcode(x1, y1), second = box.outcode(x2, y2);
    while ((first | second) != Inside) {
        if (first & second) {
            *this = {0, 0, 0, 0};
            return;
        }
        const int out = first != Inside ? first : second;
        int x, y;
        if (out & (Top | Bottom)) {
            y = out & Top ? top : bottom;
            x = crossing(y, y1, x1, y2, x2);
        } else {
            x = out & Left ? left : right;
            y = crossing(x, x1, y1, x2, y2);
        }
        if (out == first) {
            x1 = x, y1 = y;
            first = box.outcode(x1, y1);
        } else {
            x2 = x, y2 = y;
            second = box.outcode(x2, y2);
        }
    }
}
