#include "widgets/table/naturalorder.h"

namespace
{

bool isDigit(ZrUcs2 unit)
{
    return unit >= '0' && unit <= '9';
}

// A run of digits without its leading zeros.
struct Run {
    int start;
    int end;
    int length() const { return end - start; }
};

Run digitsFrom(const ZrString &text, int at)
{
    Run run{at, at};
    while (run.end < text.size() && isDigit(text.at(run.end)))
        ++run.end;
    while (run.start < run.end - 1 && text.at(run.start) == '0')
        ++run.start;
    return run;
}

// Below, at or above 0.
int compareRuns(const ZrString &left, Run one, const ZrString &right, Run two)
{
    // Of equal length, values order as their digits do.
    if (one.length() != two.length())
        return one.length() - two.length();
    for (int i = 0; i < one.length(); ++i)
        if (const int difference = left.at(one.start + i) - right.at(two.start + i))
            return difference;
    return 0;
}

} // namespace

bool naturallyBefore(const ZrString &left, const ZrString &right)
{
    const ZrString one = left.toLower();
    const ZrString two = right.toLower();
    int i = 0;
    int j = 0;
    while (i < one.size() && j < two.size()) {
        if (isDigit(one.at(i)) && isDigit(two.at(j))) {
            const Run first = digitsFrom(one, i);
            const Run second = digitsFrom(two, j);
            if (const int difference = compareRuns(one, first, two, second))
                return difference < 0;
            i = first.end;
            j = second.end;
        } else if (one.at(i) != two.at(j)) {
            return one.at(i) < two.at(j);
        } else {
            ++i;
            ++j;
        }
    }
    return one.size() - i < two.size() - j;
}
