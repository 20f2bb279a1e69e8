// SPDX-License-Identifier: MIT
// Property bags, and the keys and defaults of the skinned button in one.
#include "toolkit/ButtonProperties.h"

#include <QtTest>

using namespace torvane;

namespace {
QString name(const char* text) { return QString::fromLatin1(text); }

QPixmap dot() {
    QPixmap picture(1, 1);
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
        ButtonProperties properties;
        properties.buttonType = 14;
        properties.caption = QStringLiteral("¿Sí?");
        properties.enabled = false;
        properties.font = Fonts::T9u;
        properties.backColor = Colours::system(15);
        properties.backOver = 0x9FFFA5;
        properties.pictureOver = dot();
        properties.specialEffect = 3;
        properties.value = true;
        PropertyBag bag;
        properties.write(bag);
        const ButtonProperties read = ButtonProperties::read(bag, {});
        QCOMPARE(read.buttonType, 14);
        QCOMPARE(read.caption, QStringLiteral("¿Sí?"));
        QVERIFY(!read.enabled && read.value);
        QVERIFY(read.font == Fonts::T9u);
        QCOMPARE(read.backColor, Colours::system(15));
        QCOMPARE(read.backOver, OleColour(0x9FFFA5));
        QVERIFY(read.pictureNormal.isNull() && !read.pictureOver.isNull());
        QCOMPARE(read.specialEffect, 3);
    }
};

QTEST_MAIN(PropertyBagTest)
#include "PropertyBagTest.moc"
