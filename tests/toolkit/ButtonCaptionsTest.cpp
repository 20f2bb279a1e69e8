// SPDX-License-Identifier: MIT
// Captions of the skinned button: colours, effect passes and places, against text painted by hand.
#include "PaintedFace.h"
#include "support/TestMain.h"

#include <QPainter>

using namespace torvane;

namespace {
// The caption "Io" at a place, painted by one look: what a button must show inside its frame.
struct Text {
    OleColour colour;
    QPoint shift;
};

const QString caption = QStringLiteral("Io");
const QRect captionPlace(20, 8, 40, 14);

QImage textOn(OleColour ground, const QList<Text>& passes) {
    QImage image(80, 30, QImage::Format_RGB32);
    image.fill(Colours::toQColor(ground));
    QPainter painter(&image);
    painter.setFont(Fonts::of(Fonts::M8b));
    for (const Text& pass : passes) {
        painter.setPen(Colours::toQColor(pass.colour));
        painter.drawText(captionPlace.translated(pass.shift), Qt::AlignHCenter | Qt::AlignTop, caption);
    }
    painter.end();
    return image.copy(4, 6, 72, 20);
}

ButtonFace captioned(int type, OleColour back, int effect) {
    ButtonFace face = faceOf(type, back, {80, 30});
    face.caption = caption;
    face.layout.caption = captionPlace;
    face.layout.captionMoved = captionPlace.translated(1, 1);
    face.specialEffect = effect;
    return face;
}

QImage insideOf(const ButtonFace& face) { return paintedFace(face).copy(4, 6, 72, 20); }

// The same, with the passes painted by hand on the button's own ground.
QImage textOnGroundOf(ButtonFace face, const QList<Text>& passes) {
    face.caption.clear();
    QImage image = paintedFace(face);
    QPainter painter(&image);
    painter.setFont(face.font);
    for (const Text& pass : passes) {
        painter.setPen(Colours::toQColor(pass.colour));
        painter.drawText(captionPlace.translated(pass.shift), Qt::AlignHCenter | Qt::AlignTop, caption);
    }
    painter.end();
    return image.copy(4, 6, 72, 20);
}

// The last column that the caption reaches.
int lastColumnOf(ButtonFace face) {
    const QImage with = paintedFace(face);
    face.caption.clear();
    const QImage without = paintedFace(face);
    int x = with.width() - 1;
    while (x >= 0 && with.copy(x, 0, 1, with.height()) == without.copy(x, 0, 1, with.height())) --x;
    return x;
}

// A caption so high up that it reaches over the button's upper edge.
ButtonFace reachingOut(int type) {
    ButtonFace face = captioned(type, type == 14 ? Grey::face : Indigo::face, 0);
    face.caption = QStringLiteral("MMM");
    face.layout.caption = QRect(20, -4, 40, 14);
    face.layout.captionMoved = QRect(21, -3, 40, 14);
    return face;
}

bool captionShowsInRows(ButtonFace face, int rows) {
    const QImage with = paintedFace(face).copy(0, 0, 80, rows);
    face.caption.clear();
    return with != paintedFace(face).copy(0, 0, 80, rows);
}
} // namespace

class ButtonCaptionsTest : public QObject {
    Q_OBJECT

private slots:
    void caption_without_effect_is_plain_text_in_the_text_colour() {
        QCOMPARE(insideOf(captioned(7, Indigo::face, 0)), textOn(Indigo::face, {{0x00FFFF, {}}}));
    }

    void caption_under_the_mouse_takes_the_text_over_colour() {
        ButtonFace face = captioned(7, Indigo::face, 0);
        face.over = true;
        QCOMPARE(insideOf(face), textOn(Indigo::face, {{0x00C000, {}}}));
    }

    void raised_caption_has_its_dark_pass_below_and_its_light_pass_above() {
        QCOMPARE(
            insideOf(captioned(7, Indigo::face, 1)),
            textOn(Indigo::face, {{Indigo::sunken, {1, 1}}, {Indigo::raised, {-1, -1}}, {0x00FFFF, {}}}));
    }

    void engraved_caption_has_its_light_pass_below_and_its_dark_pass_above() {
        QCOMPARE(
            insideOf(captioned(6, Indigo::face, 2)),
            textOn(Indigo::face, {{Indigo::raised, {1, 1}}, {Indigo::sunken, {-1, -1}}, {0x00FFFF, {}}}));
    }

    void shadow_effect_has_one_dark_pass_for_3_and_above() {
        const QImage expected = textOn(Indigo::face, {{Indigo::sunken, {1, 1}}, {0x00FFFF, {}}});
        QCOMPARE(insideOf(captioned(6, Indigo::face, 3)), expected);
        QCOMPARE(insideOf(captioned(6, Indigo::face, 7)), expected);
    }

    void pressed_caption_moves_with_its_effect_and_takes_the_text_over_colour() {
        ButtonFace face = captioned(6, Indigo::face, 2);
        face.pressed = true;
        QCOMPARE(
            insideOf(face),
            textOn(Indigo::face, {{Indigo::raised, {2, 2}}, {Indigo::sunken, {0, 0}}, {0x00C000, {1, 1}}}));
    }

    void disabled_caption_of_type_7_is_highlight_under_shadow() {
        ButtonFace face = captioned(7, Indigo::face, 2);
        face.enabled = false;
        QCOMPARE(insideOf(face), textOn(Indigo::face, {{Indigo::highlight, {1, 1}}, {Indigo::shadow, {}}}));
    }

    void disabled_caption_of_type_6_is_shadow_over_its_effect() {
        ButtonFace face = captioned(6, Indigo::face, 3);
        face.enabled = false;
        QCOMPARE(insideOf(face), textOn(Indigo::face, {{Indigo::sunken, {1, 1}}, {Indigo::shadow, {}}}));
    }

    void pressed_caption_of_type_14_is_highlight_over_a_dark_shadow() {
        ButtonFace face = captioned(14, Grey::face, 2);
        face.pressed = true;
        QCOMPARE(insideOf(face), textOn(Grey::inner, {{Grey::edge, {1, 1}}, {Grey::highlight, {}}}));
    }

    void disabled_caption_of_type_14_is_face_over_highlight_without_effect() {
        ButtonFace face = captioned(14, Grey::face, 2);
        face.enabled = false;
        QCOMPARE(insideOf(face), textOnGroundOf(face, {{0xFFFFFF, {1, 1}}, {Grey::face, {}}}));
    }

    void disabled_caption_of_type_3_is_a_dark_shade_of_its_deep_face() {
        ButtonFace face = captioned(3, Indigo::face, 2);
        face.enabled = false;
        // Deep face: red 78 + 48, green 77 + 48, blue 100 + 25. Red 126 - 104 = 22, green 125 - 104 = 21,
        // blue 125 - 125 x 104 / 192 = 125 - 67 = 58.
        QCOMPARE(insideOf(face), textOnGroundOf(face, {{0x3A1516, {}}}));
    }

    void disabled_caption_of_the_other_types_is_highlight_under_shadow() {
        for (const int type : {1, 2, 4, 5, 8, 9, 10, 12, 13}) {
            ButtonFace face = captioned(type, Indigo::face, 2);
            face.enabled = false;
            QCOMPARE(insideOf(face),
                     textOnGroundOf(face, {{Indigo::highlight, {1, 1}}, {Indigo::shadow, {}}}));
        }
    }

    void pressed_caption_of_type_4_is_light_on_its_dark_ground() {
        ButtonFace face = captioned(4, Indigo::face, 0);
        face.pressed = true;
        QCOMPARE(insideOf(face), textOnGroundOf(face, {{0x836C6D, {1, 1}}})); // face + 31
    }

    void pressed_caption_of_the_other_types_is_text_over() {
        for (const int type : {1, 2, 3, 5, 7, 8, 9, 10, 12, 13}) {
            ButtonFace face = captioned(type, Indigo::face, 0);
            face.pressed = true;
            QCOMPARE(insideOf(face), textOnGroundOf(face, {{0x00C000, {1, 1}}}));
        }
    }

    void effect_with_soft_bevel_takes_half_of_its_shift() {
        ButtonFace face = faceOf(7, 0x808080, {80, 30}, true);
        face.caption = caption;
        face.layout.caption = captionPlace;
        face.specialEffect = 1;
        // 128 - 20 and 128 + 20.
        QCOMPARE(insideOf(face),
                 textOn(0x808080, {{0x6C6C6C, {1, 1}}, {0x949494, {-1, -1}}, {0x00FFFF, {}}}));
    }

    void a_frame_lies_over_a_caption_that_reaches_it() {
        for (const auto& [type, rows] : {std::pair(6, 2), std::pair(7, 1)}) {
            ButtonFace face = reachingOut(type);
            QVERIFY(!captionShowsInRows(face, rows));
            face.pressed = true;
            QVERIFY(!captionShowsInRows(face, rows));
            face.enabled = false;
            QVERIFY(!captionShowsInRows(face, rows));
        }
        QVERIFY(!captionShowsInRows(reachingOut(14), 4));
    }

    void caption_of_type_14_lies_over_its_frame_when_pressed_and_disabled() {
        ButtonFace face = reachingOut(14);
        face.pressed = true;
        QVERIFY(captionShowsInRows(face, 1));
        face.enabled = false;
        QVERIFY(captionShowsInRows(face, 1));
    }

    void effects_of_type_14_are_shades_of_its_deep_face() {
        ButtonFace face = captioned(14, 0xA0A0A0, 2);
        face.over = true; // a plain ground: 160 + 31
        QCOMPARE(insideOf(face),
                 textOn(0xBFBFBF, {{0xF8F8F8, {1, 1}}, {0xA8A8A8, {-1, -1}}, {0x00C000, {}}}));
    }

    void default_mark_makes_the_caption_of_type_14_bold_and_keeps_it_on_one_line() {
        ButtonFace face = captioned(14, Grey::face, 0);
        face.font = Fonts::of(Fonts::M8);
        face.caption = QStringLiteral("Ilimitado sin par");
        const QSize size =
            QFontMetrics(face.font).boundingRect(QRect(0, 0, 200, 0), captionFlags, face.caption).size();
        face.layout.client = {140, 40};
        face.layout.caption = QRect(QPoint((140 - size.width()) / 2, 10), size);
        const QImage plain = paintedFace(face);
        const int lastPlain = lastColumnOf(face);
        face.isDefault = true;
        QVERIFY(paintedFace(face) != plain);
        // Its last word is still there: bold letters are wider, on both sides of the middle.
        QVERIFY(lastColumnOf(face) > lastPlain);
    }

    void default_mark_makes_no_other_caption_bold() {
        for (const int type : {1, 6, 7, 8}) {
            ButtonFace face = captioned(type, Indigo::face, 0);
            face.font = Fonts::of(Fonts::M8);
            const QImage plain = paintedFace(face);
            face.isDefault = true;
            QCOMPARE(paintedFace(face), plain);
        }
        for (const bool enabled : {true, false}) {
            ButtonFace face = captioned(14, Grey::face, 0);
            face.font = Fonts::of(Fonts::M8);
            face.enabled = enabled;
            face.pressed = enabled;
            const QImage plain = paintedFace(face);
            face.isDefault = true;
            QCOMPARE(paintedFace(face), plain);
        }
    }

    void markup_in_a_caption_is_text() {
        ButtonFace face = captioned(7, Indigo::face, 0);
        face.caption = QStringLiteral("<b>I</b>");
        const QImage tagged = insideOf(face);
        face.caption = QStringLiteral("I");
        QVERIFY(tagged != insideOf(face));
    }
};

TORVANE_TEST(ButtonCaptionsTest)
#include "ButtonCaptionsTest.moc"
