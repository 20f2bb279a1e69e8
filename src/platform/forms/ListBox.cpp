// SPDX-License-Identifier: MIT
// The current item of a list box.
#include "ListBox.h"
#include "../base/RuntimeFailure.h"

namespace torvane {

namespace {
RowLook rowLookOf(const ListBox::Look& look) {
    return {.height = Fonts::of(look.font).pixelSize() + 4,
            .fore = look.fore,
            .back = look.back,
            .line = look.back};
}
} // namespace

ListBox::ListBox(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : RowList(parent, name, rect, rowLookOf(look), nullptr), m_look(look) {
    setFontSpec(look.font);
    connect(this, &RowList::rowClicked, this, &ListBox::Click);
    connect(this, &RowList::rowDoubleClicked, this, &ListBox::DblClick);
}

void ListBox::setListIndex(int index) {
    if (index < -1 || index >= ListCount()) throw RuntimeFailure(RuntimeFailure::invalidProperty);
    setCurrentRow(index);
    if (index >= 0) emit Click();
}

QString ListBox::Text() const { return model().index(currentRow(), 0).data().toString(); }

} // namespace torvane
