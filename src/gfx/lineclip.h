// Cutting a line to a rectangle by outcodes, in whole pixels.
#pragma once

// The end points, cut in place. A line that misses the rectangle becomes all zero.
struct LineClip {
    int x1, y1, x2, y2;

    // Edges are inclusive.
    void clipTo(int left, int top, int right, int bottom);
    bool isZero() const { return (x1 | y1 | x2 | y2) == 0; }
};
