// SPDX-License-Identifier: MIT
// Property bags, and the keys and defaults of the skinned button in one.
#include "support/TestMain.h"
#include "toolkit/ButtonProperties.h"

#include <QtTest>

using namespace torvane;

namespace {
QString name(const char* text) { return QString::fromLatin1(text); }

QPixmap dot(int width = 1) {
    QPixmap picture(width, 1);
    picture.fill(Qt::red);
    return picture;
}
} // namespace

class PropertyBagTest : public QObject {
    Q_OBJECT

private slots:
    void names_keep_the_order_of_writing() {
        PropertyBag bag;
        for (const char* each : {"Z", "A", "M"}) bag.WriteProperty(name(each), 1);
        QCOMPARE(bag.names(), (QStringList{name("Z"), name("A"), name("M")}));
    }

    void a_second_write_replaces_the_value_in_its_place() {
        PropertyBag bag;
        bag.WriteProperty(name("A"), 1);
        bag.WriteProperty(name("B"), 2);
        bag.WriteProperty(name("A"), 3);
        QCOMPARE(bag.names(), (QStringList{name("A"), name("B")}));
        QCOMPARE(bag.ReadProperty(name("A"), 0), 3);
    }

    void a_value_equal_to_the_default_is_left_out() {
        PropertyBag bag;
        bag.WriteProperty(name("A"), 255, 255);
        bag.WriteProperty(name("B"), 254, 255);
        QVERIFY(!bag.contains(name("A")));
        QCOMPARE(bag.ReadProperty(name("B"), 255), 254);
    }

    void a_missing_value_reads_as_the_default() {
        QCOMPARE(PropertyBag().ReadProperty(name("A"), name("none")), name("none"));
    }

    void a_button_writes_every_key_but_absent_pictures_in_order() {
        PropertyBag bag;
        ButtonProperties().write(bag);
        QCOMPARE(bag.names().join(u' '), name("BTYPE TX ENAB FONT COLTYPE FOCUSR BCOL BCOLO FCOL FCOLO MCOL "
                                              "MPTR UMCOL SOFT PICPOS NGREY FX "
                                              "HAND CHECK VALUE"));
    }

    void a_button_with_pictures_writes_their_keys_between_pointer_and_mask_use() {
        ButtonProperties properties;
        properties.mouseIcon = properties.pictureNormal = properties.pictureOver = dot();
        PropertyBag bag;
        properties.write(bag);
        QCOMPARE(bag.names().mid(11, 5).join(u' '), name("MPTR MICON PICN PICH UMCOL"));
    }

    void an_empty_bag_gives_a_button_its_defaults() {
        const ButtonProperties read = ButtonProperties::read(PropertyBag(), Fonts::V9b);
        QCOMPARE(read.buttonType, 2);
        QCOMPARE(read.caption, QString());
        QVERIFY(read.enabled && read.showFocusRect && read.useMaskColor);
        QVERIFY(read.font == Fonts::V9b);
        QCOMPARE(read.colorScheme, 1);
        QCOMPARE(read.backColor, Colours::system(15));
        QCOMPARE(read.backOver, Colours::system(15));
        QCOMPARE(read.foreColor, Colours::system(18));
        QCOMPARE(read.foreOver, Colours::system(18));
        QCOMPARE(read.maskColor, OleColour(0xC0C0C0));
        QCOMPARE(read.mousePointer, 0);
        QVERIFY(read.mouseIcon.isNull() && read.pictureNormal.isNull() && read.pictureOver.isNull());
        QCOMPARE(read.picturePosition, 0);
        QCOMPARE(read.specialEffect, 0);
        QVERIFY(!read.softBevel && !read.useGreyscale && !read.handPointer && !read.checkBoxBehaviour &&
                !read.value);
    }

    void over_colours_default_to_the_colours_just_read() {
        PropertyBag bag;
        bag.WriteProperty(name("BCOL"), OleColour(0x123456));
        bag.WriteProperty(name("FCOL"), OleColour(0x654321));
        const ButtonProperties read = ButtonProperties::read(bag, {});
        QCOMPARE(read.backOver, OleColour(0x123456));
        QCOMPARE(read.foreOver, OleColour(0x654321));
    }

    void what_is_written_is_read_again() {
        const ButtonProperties written{.buttonType = 14,
                                       .caption = QStringLiteral("¿Sí?"),
                                       .enabled = false,
                                       .font = Fonts::T9u,
                                       .colorScheme = 3,
                                       .showFocusRect = false,
                                       .backColor = Colours::system(16),
                                       .backOver = 0x9FFFA5,
                                       .foreColor = 0x010203,
                                       .foreOver = 0x040506,
                                       .maskColor = 0xFF00FF,
                                       .mousePointer = 99,
                                       .mouseIcon = dot(2),
                                       .pictureNormal = dot(3),
                                       .pictureOver = dot(4),
                                       .useMaskColor = false,
                                       .softBevel = true,
                                       .picturePosition = 4,
                                       .useGreyscale = true,
                                       .specialEffect = 3,
                                       .handPointer = true,
                                       .checkBoxBehaviour = true,
                                       .value = true};
        PropertyBag bag;
        written.write(bag);
        const ButtonProperties read = ButtonProperties::read(bag, {});
        QCOMPARE(read.buttonType, 14);
        QCOMPARE(read.caption, QStringLiteral("¿Sí?"));
        QVERIFY(!read.enabled && !read.showFocusRect && !read.useMaskColor);
        QVERIFY(read.softBevel && read.useGreyscale && read.handPointer && read.checkBoxBehaviour);
        QVERIFY(read.value);
        QVERIFY(read.font == Fonts::T9u);
        QCOMPARE(read.colorScheme, 3);
        QCOMPARE(read.backColor, Colours::system(16));
        QCOMPARE(read.backOver, OleColour(0x9FFFA5));
        QCOMPARE(read.foreColor, OleColour(0x010203));
        QCOMPARE(read.foreOver, OleColour(0x040506));
        QCOMPARE(read.maskColor, OleColour(0xFF00FF));
        QCOMPARE(read.mousePointer, 99);
        QCOMPARE(read.mouseIcon.width(), 2);
        QCOMPARE(read.pictureNormal.width(), 3);
        QCOMPARE(read.pictureOver.width(), 4);
        QCOMPARE(read.picturePosition, 4);
        QCOMPARE(read.specialEffect, 3);
    }

    void each_value_stands_under_its_own_key() {
        PropertyBag bag;
        bag.WriteProperty(name("NGREY"), true);
        bag.WriteProperty(name("UMCOL"), false);
        bag.WriteProperty(name("PICPOS"), 1);
        bag.WriteProperty(name("COLTYPE"), 4);
        bag.WriteProperty(name("FX"), 2);
        bag.WriteProperty(name("MPTR"), 11);
        bag.WriteProperty(name("PICN"), dot(3));
        bag.WriteProperty(name("PICH"), dot(4));
        const ButtonProperties read = ButtonProperties::read(bag, {});
        QVERIFY(read.useGreyscale && !read.useMaskColor && !read.softBevel);
        QCOMPARE(read.picturePosition, 1);
        QCOMPARE(read.colorScheme, 4);
        QCOMPARE(read.specialEffect, 2);
        QCOMPARE(read.mousePointer, 11);
        QCOMPARE(read.pictureNormal.width(), 3);
        QCOMPARE(read.pictureOver.width(), 4);
    }
};

TORVANE_TEST(PropertyBagTest)
#include "PropertyBagTest.moc"
