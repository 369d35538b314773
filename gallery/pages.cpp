#include "pages.h"

#include "ui/text_ids.h"

const PageKind Pages[] = {
    {"buttons", Text::GalleryButtons, fillButtons},
    {"choices", Text::GalleryChoices, fillChoices},
    {"entry", Text::GalleryEntry, fillEntry},
    {"keyboards", Text::GalleryKeyboards, fillKeyboards},
    {"numbers", Text::GalleryNumbers, fillNumbers},
    {"lists", Text::GalleryLists, fillLists},
    {"sliders", Text::GallerySliders, fillSliders},
    {"tabs", Text::GalleryTabs, fillTabs},
    {"tables", Text::GalleryTables, fillTables},
    {"labels", Text::GalleryLabels, fillLabels},
    {"dialogs", Text::GalleryDialogs, fillDialogs},
};
const int PageCount = int(sizeof Pages / sizeof *Pages);
