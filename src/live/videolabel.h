// A text on a cell: a real widget, child of the screen, that shows only while its cell does.
#pragma once

#include <zrlabel>

class Video;

class VideoLabel : public ZrLabel
{
    ZR_OBJECT(VideoLabel, ZrLabel)
public:
    VideoLabel(Video *owner, ZrWidget *screen);

    void setWanted(bool wanted);
    void setOwnerVisible(bool visible);
    // As large as the text, never wider than the cell less 3 pixels.
    void fitToText();

private:
    Video *owner_;
    bool wanted_ = false;
};
