// SPDX-License-Identifier: MIT
// One paint of a skinned button: surface, frame and caption by type, then the picture. Paints on an image
// in pixels of the design, whatever the image's density. The button decides when, this class how.
#pragma once

#include "ButtonLayout.h"
#include "ButtonPalette.h"

#include <QFont>
#include <QImage>
#include <QPainter>

namespace torvane {

/// All that the look of one paint depends on.
struct ButtonFace {
    int type = 2;
    PicturePlace place = PicturePlace::left;
    int specialEffect = 0; ///< 0 none, 1 raised, 2 engraved, 3 and above shadow
    bool customScheme = false;
    bool enabled = true;
    bool pressed = false;
    bool over = false;      ///< the mouse is over the button
    bool focusMark = false; ///< the focus mark is wanted and the button has the focus
    bool showFocusRect = false;
    bool isDefault = false; ///< the container marks the button as its default one
    bool softBevel = false;
    bool useGreyscale = false;
    bool useMaskColor = true;
    QString caption; ///< plain text; "&" marks the access key, "&&" is one ampersand
    QFont font;
    ButtonPalette colours;
    ButtonLayout layout;
    QImage normalPicture; ///< at the surface's density (see pictureAt); null without one
    QImage overPicture;
    QImage background; ///< what lies under the button; for type 11
};

/// The flags that captions are measured and drawn with.
constexpr int captionFlags = Qt::AlignTop | Qt::TextWordWrap | Qt::TextShowMnemonic;

class ButtonPainter {
public:
    /// The surface must be of the format RGB32, its device pixel ratio set, its size the client's.
    ButtonPainter(QImage& surface, const ButtonFace& face);
    void paint();

private:
    struct BevelColours {
        OleColour topLeftOuter;
        OleColour bottomRightOuter;
        OleColour topLeftInner = 0;
        OleColour bottomRightInner = 0;
    };
    enum class Depth { flat, full };
    enum class Branch { normal, pressed, disabled };
    enum Look {
        normal = 0,
        under = 1,
        down = 2,
        dead = 3,
        deadFlat = 4,
        deadWarm = 5,
        deadSmooth = 6,
        downSmooth = 7
    };

    // ButtonPainter.cpp: what all types share.
    void paintCaption(Look look);
    void paintCaptionEffect(const QRect& place);
    void paintText(const QRect& place, OleColour colour);
    void paintPicture(Branch branch);
    void paintPictureEffect(const QImage& picture, int offset);
    void paintDisabledPicture();
    void stencilPicture(const QImage& picture, QPoint offset, OleColour colour);
    void copyPicture(const QImage& picture, int offset, bool grey);
    void paintFocus();

    // ButtonStyles.cpp: the three branches of a paint, and what lies under and around the caption by type.
    void paintNormal();
    void paintPressed();
    void paintDisabled();
    void paintGround();
    void paintFrame(bool isDown);
    void paintBevel(const BevelColours& colours, int offset, Depth depth);
    void frameTwoTone(bool isDown);
    void frameThin(bool isDown);
    void frameClassic(bool isDown);
    void frameTwoLevel(bool isDown);
    void fillFlat();
    void fillEllipse();
    void fillSmooth();
    void frameSmooth();
    void pressSmooth();
    Look deadLook() const;

    // ButtonHandDrawn.cpp: types 3, 4 and 5.
    void paintRows(int topShift, int bottomShift);
    void fillHandDrawn();
    void frameHandDrawn();
    void frameWarm();
    void frameRound();
    void frameNotched();
    void paintRim(OleColour topLeft, OleColour bottomRight);

    // Primitives. As on the classic surface, a line leaves its last point out.
    void paintLine(QPoint from, QPoint to, OleColour colour);
    void paintPixel(int x, int y, OleColour colour);
    void fillOrFrame(const QRect& area, OleColour colour, bool frameOnly);
    OleColour shifted(OleColour colour, int amount, bool blueRule = false) const;
    QRect onSurface(const QRect& area) const; // in the surface's own pixels
    OleColour effectBase() const;

    QImage& m_surface;
    const ButtonFace& m_face;
    const ButtonPalette& m_colours;
    const int m_width;
    const int m_height;
    Look m_captionLook = normal;
    bool m_boldCaption = false;
    QPainter m_painter;
};

} // namespace torvane
