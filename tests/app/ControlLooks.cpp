// SPDX-License-Identifier: MIT
// Compares single controls with the notes of their rows.
#include "ControlLooks.h"
#include "platform/forms/FileImage.h"
#include "platform/forms/FileList.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/Panel.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"
#include "platform/forms/ToggleControl.h"
#include "platform/forms/TrayIcon.h"
#include "toolkit/TVLabel.h"
#include "toolkit/chameleonButton.h"
#include "toolkit/vbwHyperlink.h"

#include <QtTest>

namespace torvane {

using namespace Qt::StringLiterals;

#define COMPARE_COLOUR(actual, noted, usual)                                                                 \
    QVERIFY2(isColour(actual, noted, usual),                                                                 \
             qPrintable(colourWord(actual) + u" instead of "_s + colourWord((noted).value_or(usual))))
#define COMPARE_FONT(actual, expected) QCOMPARE(described(actual), described(expected))

namespace {
// The name of a font in failure messages.
QString described(const FontSpec& font) {
    return QString::fromLatin1(Fonts::standIn(font.face).designFace) + u" %1"_s.arg(font.points) +
           (font.bold ? u" bold"_s : QString());
}

QString colourWord(OleColour colour) { return u"0x"_s + QString::number(colour, 16); }

// Whether a colour is exactly the noted one; without a note, whether it looks like the usual one.
bool isColour(OleColour actual, std::optional<OleColour> noted, OleColour usual) {
    return noted ? actual == *noted : Colours::translate(actual) == Colours::translate(usual);
}
void compareLabel(const Label& label, CatalogueNotes& notes) {
    QVERIFY(!label.isShadow());
    COMPARE_FONT(label.fontSpec(), notes.takeFont().value_or(Fonts::M8));
    COMPARE_COLOUR(label.ForeColor(), notes.takeColours(u"fore"_s).plain, Colours::black);
    COMPARE_COLOUR(label.backColour(), notes.takeColours(u"back"_s).plain, Colours::buttonFace);
    QCOMPARE(label.isTransparent(), notes.take(u"transparent"_s));
    const Qt::Alignment expected = notes.take(u"centre"_s)  ? Qt::AlignHCenter
                                   : notes.take(u"right"_s) ? Qt::AlignRight
                                                            : Qt::AlignLeft;
    QCOMPARE(label.alignment(), expected);
}

void compareButton(const chameleonButton& button, CatalogueNotes& notes) {
    const QString type = notes.takeAfter(u"type"_s).value_or(QString());
    QCOMPARE(u"%1 fx %2"_s.arg(button.ButtonType()).arg(button.SpecialEffect()), type);
    const auto back = notes.takeColours(u"back"_s);
    const auto fore = notes.takeColours(u"fore"_s);
    QVERIFY(back.plain && fore.plain);
    COMPARE_COLOUR(button.BackColor(), back.plain, 0);
    COMPARE_COLOUR(button.BackOver(), back.over, *back.plain);
    COMPARE_COLOUR(button.ForeColor(), fore.plain, 0);
    COMPARE_COLOUR(button.ForeOver(), fore.over, *fore.plain);
    COMPARE_COLOUR(button.MaskColor(), notes.takeColours(u"mask"_s).plain, 0xC0C0C0);
    COMPARE_FONT(button.Font(), notes.takeFont().value_or(Fonts::M8b));

    const QSize icon = notes.takeSize(u"icon"_s);
    const QSize hoverIcon = notes.takeSize(u"hover icon"_s);
    while (notes.take(u"24-bit"_s) || notes.take(u"8-bit"_s)) {
    } // the colour depth of picture files is not compared
    QCOMPARE(button.PictureNormal().deviceIndependentSize().toSize(), icon.isValid() ? icon : QSize(0, 0));
    QCOMPARE(button.PictureOver().deviceIndependentSize().toSize(),
             hoverIcon.isValid() ? hoverIcon : QSize(0, 0));

    QCOMPARE(button.ShowFocusRect(), notes.take(u"focus rectangle"_s));
    QCOMPARE(button.SoftBevel(), notes.take(u"soft bevel"_s));
    QCOMPARE(button.UseGreyscale(), !notes.take(u"normal picture in colour"_s));
    QCOMPARE(button.ColorScheme(), 2);
    QCOMPARE(button.PicturePosition(), 0);
    QCOMPARE(button.MousePointer(), 1);
    QVERIFY(button.UseMaskColor());
    QVERIFY(!button.HandPointer());
    QVERIFY(!button.CheckBoxBehaviour());
    QVERIFY(!button.Value());
}

void compareTextBox(const TextBox& box, CatalogueNotes& notes) {
    COMPARE_FONT(box.fontSpec(), notes.takeFont().value_or(Fonts::M8));
    COMPARE_COLOUR(box.foreColour(), notes.takeColours(u"fore"_s).plain, Colours::windowText);
    COMPARE_COLOUR(box.backColour(), notes.takeColours(u"back"_s).plain, Colours::windowBack);
}

// Without a noted back colour the ground shows through: captions would be white on the system's light grey.
void compareToggle(const ToggleControl& toggle, CatalogueNotes& notes) {
    COMPARE_FONT(toggle.fontSpec(), notes.takeFont().value_or(Fonts::M8));
    COMPARE_COLOUR(toggle.foreColour(), notes.takeColours(u"fore"_s).plain, Colours::black);
    const std::optional<OleColour> back = notes.takeColours(u"back"_s).plain;
    QCOMPARE(toggle.backColour().has_value(), back.has_value());
    QCOMPARE(toggle.backColour().value_or(0), back.value_or(0));
    QCOMPARE(toggle.isChecked(), notes.take(u"checked"_s));
}

void compareFileList(const FileList& list, CatalogueNotes& notes) {
    COMPARE_FONT(list.fontSpec(), notes.takeFont().value_or(Fonts::M8));
    COMPARE_COLOUR(list.look().fore, notes.takeColours(u"fore"_s).plain, Colours::windowText);
    COMPARE_COLOUR(list.look().back, notes.takeColours(u"back"_s).plain, Colours::windowBack);
    const QString pattern = notes.takeQuoted(u"pattern"_s);
    QCOMPARE(list.Pattern(), pattern.isEmpty() ? u"*.*"_s : pattern);
}

void compareListBox(const ListBox& list, CatalogueNotes& notes) {
    COMPARE_FONT(list.fontSpec(), notes.takeFont().value_or(Fonts::M8));
    COMPARE_COLOUR(list.look().fore, notes.takeColours(u"fore"_s).plain, Colours::windowText);
    COMPARE_COLOUR(list.look().back, notes.takeColours(u"back"_s).plain, Colours::windowBack);
}

void compareImage(const Image& image, CatalogueNotes& notes) {
    const QSize icon = notes.takeSize(u"icon"_s);
    const QSize jpeg = notes.takeSize(u"JPEG"_s);
    const QSize bitmap = notes.takeSize(u"bitmap"_s);
    for (const QString& depth : {u"24-bit"_s, u"8-bit"_s}) notes.take(depth); // that of the file
    // The mouse never reaches an image, so its pointer has no picture.
    notes.take(u"hand cursor icon"_s);
    const bool isStretched = notes.take(u"stretched"_s);
    if (const auto* file = qobject_cast<const FileImage*>(&image)) {
        QCOMPARE(file->sizing() == FileImage::stretched, isStretched);
    } else {
        QVERIFY(!isStretched);
    }
    const QSize expected = icon.isValid()     ? icon
                           : jpeg.isValid()   ? jpeg
                           : bitmap.isValid() ? bitmap
                                              : QSize(0, 0);
    QCOMPARE(image.Picture().deviceIndependentSize().toSize(), expected);
}

void compareFew(const QObject& part, CatalogueNotes& notes) {
    if (const auto* panel = qobject_cast<const Panel*>(&part)) {
        COMPARE_COLOUR(panel->backColour(), notes.takeColours(u"back"_s).plain, Colours::buttonFace);
        const QSize jpeg = notes.takeSize(u"JPEG"_s);
        QCOMPARE(panel->Picture().deviceIndependentSize().toSize(), jpeg.isValid() ? jpeg : QSize(0, 0));
    } else if (const auto* timer = qobject_cast<const Timer*>(&part)) {
        QCOMPARE(timer->Interval(), notes.takeNumber(u"interval"_s));
        QCOMPARE(timer->Enabled(), !notes.take(u"off at start"_s));
    } else if (const auto* tray = qobject_cast<const TrayIcon*>(&part)) {
        QCOMPARE(tray->toolTip(), notes.takeQuoted(u"tip"_s));
    } else if (const auto* skin = qobject_cast<const TVLabel*>(&part)) {
        COMPARE_FONT(skin->Font(), notes.takeFont().value_or(Fonts::M8));
    } else if (const auto* link = qobject_cast<const vbwHyperlink*>(&part)) {
        COMPARE_FONT(link->Font(), notes.takeFont().value_or(Fonts::M8));
    }
}
} // namespace

void compareLook(const QObject& part, CatalogueNotes& notes) {
    if (const auto* label = qobject_cast<const Label*>(&part)) {
        compareLabel(*label, notes);
    } else if (const auto* button = qobject_cast<const chameleonButton*>(&part)) {
        compareButton(*button, notes);
    } else if (const auto* box = qobject_cast<const TextBox*>(&part)) {
        compareTextBox(*box, notes);
    } else if (const auto* toggle = qobject_cast<const ToggleControl*>(&part)) {
        compareToggle(*toggle, notes);
    } else if (const auto* list = qobject_cast<const FileList*>(&part)) {
        compareFileList(*list, notes);
    } else if (const auto* items = qobject_cast<const ListBox*>(&part)) {
        compareListBox(*items, notes);
    } else if (const auto* image = qobject_cast<const Image*>(&part)) {
        compareImage(*image, notes);
    } else {
        compareFew(part, notes);
    }
}

void compareShadow(const QObject& shadow, const QString& sourceName) {
    const auto* shadowLabel = qobject_cast<const Label*>(&shadow);
    QVERIFY(shadowLabel != nullptr);
    const Label& label = *shadowLabel;
    const auto* source = label.window()->findChild<Label*>(sourceName);
    QVERIFY2(source != nullptr, qPrintable(sourceName));
    QVERIFY(label.isShadow());
    QVERIFY(label.isTransparent());
    QCOMPARE(colourWord(label.ForeColor()), colourWord(Colours::black));
    COMPARE_FONT(label.fontSpec(), source->fontSpec());
    QCOMPARE(label.alignment(), source->alignment());
    QCOMPARE(label.Caption(), source->Caption());
    QCOMPARE(label.parent(), source->parent());
    const QObjectList& siblings = label.parent()->children();
    QVERIFY2(siblings.indexOf(&label) < siblings.indexOf(source), "the shadow lies over its source");
}

} // namespace torvane
