// What pops up from a control of a page: keyboards, calendars, drop boxes, menus.
#pragma once

#include "gallerypage.h"

struct PopupKind {
    const char *page;    // its name
    const char *name;    // of its picture files
    const char *control; // object name of the control on the page that opens it
};

extern const PopupKind Popups[];
extern const int PopupCount;

// Opens it as a person would; false when the page has no such control, or it does not open. The
// popup is the active one until closePopup().
bool openPopup(const GalleryPage &page, const PopupKind &kind);
void closePopup();
