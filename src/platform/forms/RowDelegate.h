// SPDX-License-Identifier: MIT
// How a row looks: ground, picture, text, and the line below it.
#pragma once

#include "Colours.h"

#include <QAbstractItemDelegate>

namespace torvane {

struct RowLook {
    int height;       ///< of a row in pixels
    int iconSize = 0; ///< of a row's picture in pixels; 0 for rows without
    OleColour fore = Colours::windowText;
    OleColour back = Colours::windowBack;
    OleColour line = Colours::windowBack; ///< below each row; the back colour for none
    OleColour selectedFore = Colours::system(14);
    OleColour selectedTop = Colours::system(13); ///< the ground of the current row, from top to bottom
    OleColour selectedBottom = Colours::system(13);
    bool hasShadow = false; ///< the text is drawn in black first, a pixel further right and down
};

/// The dark rows with large pictures of the game lists.
constexpr RowLook gameRowLook{.height = 33,
                              .iconSize = 32,
                              .fore = Colours::white,
                              .back = 0x4A3933,
                              .line = 0x5A4841,
                              .selectedFore = Colours::white,
                              .selectedTop = 0xB09A93,
                              .selectedBottom = 0x8A6F66,
                              .hasShadow = true};

class RowDelegate : public QAbstractItemDelegate {
    Q_OBJECT

public:
    explicit RowDelegate(const RowLook& look) : m_look(look) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void paintGround(QPainter& painter, const QRect& place, bool isSelected) const;
    void paintText(QPainter& painter, const QRect& place, QString text, bool isSelected) const;

    RowLook m_look;
};

} // namespace torvane
