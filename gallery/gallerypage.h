// One page of the gallery, filled row by row: a caption, and controls beside it.
#pragma once

#include <zrlabel>
#include <zrwidget>

// How a control is shown: as it is, or as it would be with the pointer over it or the keys on it.
enum class Pose { AsItIs, Hovered, Focused, Disabled };

class GalleryPage : public ZrWidget
{
    ZR_OBJECT(GalleryPage, ZrWidget)
public:
    explicit GalleryPage(ZrWidget *parent);

    // A new row; sizes in units of the design canvas.
    void beginRow(int captionText, float height = 40);
    // The same for a control that needs the page's whole width.
    void beginWideRow(float height);
    static constexpr float WideWidth = 968;
    // Puts the control into the row, which takes it over.
    template <typename Control>
    Control *add(Control *control, float width, Pose pose = Pose::AsItIs)
    {
        place(control, width, pose);
        return control;
    }
    // The same with an object name, by which others find it.
    template <typename Control>
    Control *add(Control *control, float width, const char *name)
    {
        control->setObjectName(ZrString(name));
        return add(control, width);
    }
    // Null when there is none.
    ZrWidget *named(const char *name) const;
    void addGap(float units) { nextX_ += units; }
    // How high the page has become.
    float contentHeight() const { return nextY_ + rowHeight_; }

    // Poses last until the pointer or the keys come by. To be called once the page is shown.
    void strikePoses();

private:
    void place(ZrWidget *control, float width, Pose pose);

    struct Posed {
        ZrWidget *control;
        Pose pose;
    };
    ZrList<Posed> posed_;
    float nextX_ = 0;
    float nextY_ = 0;
    float rowHeight_ = 0;
};
