// SPDX-License-Identifier: MIT
// Captions of the skinned button: colours, effect passes and places, against text painted by hand.
#include "PaintedFace.h"

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
        face.isDefault = true;
        const QImage bold = paintedFace(face);
        QVERIFY(plain != bold);
        // A second line would stand here.
        const QRect below(10, 10 + size.height(), 120, 40 - 12 - size.height());
        QCOMPARE(bold.copy(below), plain.copy(below));
    }

    void markup_in_a_caption_is_text() {
        ButtonFace face = captioned(7, Indigo::face, 0);
        face.caption = QStringLiteral("<b>I</b>");
        const QImage tagged = insideOf(face);
        face.caption = QStringLiteral("I");
        QVERIFY(tagged != insideOf(face));
    }
};

QTEST_MAIN(ButtonCaptionsTest)
#include "ButtonCaptionsTest.moc"
