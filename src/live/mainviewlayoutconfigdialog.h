// Edits which channel stands in which cell of the live view: the split mode drawn as it is, with a
// drop box in each cell. A channel stands in one cell at the most.
#pragma once

#include "live/zrvideoscreen.h"
#include "ui/dialogs/dialogcontentbase.h"

#include <cstdint>
#include <zrlist>
#include <zrvector>

class ComboBox;
class IconButton;
class ZrLabel;

class MainViewLayoutConfigDialog : public DialogContentBase
{
    ZR_OBJECT(MainViewLayoutConfigDialog, DialogContentBase)
public:
    struct Choice {
        ZrString name;
        std::uint8_t channel;
    };

    // `order` has the channel of each cell of all pages, or ZrVideoScreen::NoChannel. The layout
    // outlives the dialog.
    MainViewLayoutConfigDialog(const ZrVideoScreenLayout &layout,
                               const ZrVector<std::uint8_t> &order, const ZrList<Choice> &choices);

    // Lets the user edit the screen's order; true when it was taken over.
    static bool run(ZrVideoScreen &screen);

    const ZrVector<std::uint8_t> &order() const { return order_; }
    // Null for a cell that is not on the page.
    ComboBox *boxOf(int cell) const;
    int page() const { return page_; }
    int pageCount() const;
    void setPage(int page);

    ZrSize preferredSize() const override;
    void layoutForScale() override;

protected:
    void paintEvent(ZrPaintEvent *event) override;

private:
    // A cell of the page, in positions of the layout's matrix.
    struct Place {
        int row, column, span;
    };

    void makeBoxes(const ZrList<Choice> &choices);
    void makePager();
    void showOrder();
    void chosen(ZrObject *box);
    void previousPage() { setPage(page_ - 1); }
    void nextPage() { setPage(page_ + 1); }
    ZrRect cellRect(const Place &place) const;
    bool isUsed(int box) const { return firstCell() + box < order_.size(); }
    int firstCell() const { return page_ * places_.size(); }

    ZrVector<std::uint8_t> order_;
    ZrVector<Place> places_;
    ZrVector<ComboBox *> boxes_; // children, one for each place
    IconButton *previous_ = nullptr;
    IconButton *next_ = nullptr;
    ZrLabel *pageLabel_ = nullptr;
    int rows_ = 1;
    int columns_ = 1;
    int page_ = 0;
    ZrColor ground_;
    ZrColor line_;
};
