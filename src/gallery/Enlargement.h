// SPDX-License-Identifier: MIT
// The size and place of an enlarged picture within its window, in twips of single precision.
#pragma once

#include <QString>

namespace torvane {

class Enlargement {
public:
    struct Room {
        float width;       ///< of the window
        float height;      ///< of the window
        float titleHeight; ///< of what lies above the picture
    };
    struct Bounds {
        float left = 0;
        float top = 0;
        float width = 0;
        float height = 0;

        bool operator==(const Bounds&) const = default;
    };

    explicit Enlargement(const Room& room) : m_room(room) {}

    const Bounds& place() const { return m_place; }
    /// Begins anew with a picture's own size. Width and height are cut to the window's, each by itself: a
    /// larger picture changes its proportions. The result can be halved once, and no further.
    void show(float width, float height);
    /// Doubles the size unless it would outgrow the window.
    void zoomIn();
    /// Halves the size down to half of what `show` made.
    void zoomOut();

private:
    void resize(float width, float height);

    Room m_room;
    Bounds m_place;
    float m_minHeight = 0;
    QString m_minWidth = QStringLiteral("0"); // the text of a number, which has seven digits only
};

} // namespace torvane
