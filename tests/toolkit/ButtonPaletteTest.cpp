// SPDX-License-Identifier: MIT
// Colour arithmetic and the four schemes of the skinned button, against values worked out by hand.
#include "toolkit/ButtonPalette.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace torvane;

class ButtonPaletteTest : public QObject {
    Q_OBJECT

private slots:
    void shift_adds_to_each_channel() { QCOMPARE(ShiftRgb(0x644D4E, 31), OleColour(0x836C6D)); }
    void shift_of_minus_192_turns_darker_colours_black() { QCOMPARE(ShiftRgb(0xBF1080, -192), OleColour(0)); }
    void shift_of_minus_192_leaves_what_lies_above() {
        QCOMPARE(ShiftRgb(0xC5C0FF, -192), OleColour(0x05003F));
    }
    void shift_stops_at_white() { QCOMPARE(ShiftRgb(0xF0E0D0, 47), OleColour(0xFFFFFF)); }

    void blue_rule_moves_blue_by_its_own_share() {
        // Blue 100: 100 x 48 / 192 = 25.
        QCOMPARE(ShiftRgb(0x640A14, 48, true), OleColour(0x7D3A44));
        // Blue 101 x -104 / 192 = -54.7, cut towards zero.
        QCOMPARE(ShiftRgb(0x65FFFF, -104, true), OleColour(0x2F9797));
    }

    void soft_bevel_halves_the_amount_and_cuts_it_towards_zero() {
        QCOMPARE(softened(31, true), 15);
        QCOMPARE(softened(-9, true), -4);
        QCOMPARE(softened(31, false), 31);
    }

    void lightening_moves_towards_white() {
        // (255 - 176) x 120 / 255 = 37, and 176 is 213; 0 gives 176; 255 stays.
        QCOMPARE(LightenRgb(0xFF0078, 176), OleColour(0xFFB0D5));
    }

    void gradient_uses_the_full_58_at_the_bottom_row() { QCOMPARE(gradientShift(23, 23), -58); }
    void gradient_begins_at_almost_nothing() { QCOMPARE(gradientShift(1, 100), -1); }
    void gradient_rounds_to_the_nearest() {
        QCOMPARE(gradientShift(10, 20), -29);
        QCOMPARE(gradientShift(6, 20), -17); // 17.4
        QCOMPARE(gradientShift(8, 20), -23); // 23.2
        QCOMPARE(gradientShift(4, 20), -12); // 11.6
    }
    void gradient_rounds_an_exact_half_to_even() {
        QCOMPARE(gradientShift(1, 116), 0);  // 0.5
        QCOMPARE(gradientShift(3, 116), -2); // 1.5
    }

    void custom_scheme_derives_its_edges_from_the_back_colour() {
        PaletteSource source;
        source.colorScheme = 2;
        source.back = 0x644D4E;
        source.backOver = 0x123456;
        source.fore = 0x00C000;
        source.foreOver = 0x808080;
        source.mask = 0xC0C0C0;
        const ButtonPalette palette = ApplyColorScheme(source);
        QCOMPARE(palette.face, OleColour(0x644D4E));
        QCOMPARE(palette.faceOver, OleColour(0x123456));
        QCOMPARE(palette.text, OleColour(0x00C000));
        QCOMPARE(palette.textOver, OleColour(0x808080));
        QCOMPARE(palette.shadow, OleColour(0x240D0E));
        QCOMPARE(palette.light, OleColour(0x836C6D));
        QCOMPARE(palette.highlight, OleColour(0x937C7D));
        QCOMPARE(palette.darkShadow, OleColour(0x000000));
        QCOMPARE(palette.accent, OleColour(0x000000));
        QCOMPARE(palette.accentLight, OleColour(0x644D4E));
        QCOMPARE(palette.mask, OleColour(0xC0C0C0));
        QCOMPARE(palette.deepFace, OleColour(0x947D7E));
    }

    void soft_bevel_takes_15_for_31_and_halves_the_other_edges() {
        PaletteSource source;
        source.colorScheme = 2;
        source.back = 0x808080;
        source.softBevel = true;
        const ButtonPalette palette = ApplyColorScheme(source);
        QCOMPARE(palette.light, OleColour(0x8F8F8F));
        QCOMPARE(palette.highlight, OleColour(0x979797));
        QCOMPARE(palette.shadow, OleColour(0x606060));
        QCOMPARE(palette.darkShadow, OleColour(0x202020));
        QCOMPARE(palette.deepFace, OleColour(0x989898));
        QCOMPARE(palette.accent, OleColour(0x404040)); // 128 - 64
    }

    void fixed_scheme_ignores_the_given_colours() {
        PaletteSource source;
        source.colorScheme = 3;
        source.back = 0x123456;
        source.fore = 0xFF0000;
        const ButtonPalette palette = ApplyColorScheme(source);
        const ButtonPalette expected{.face = 0xC0C0C0,
                                     .light = 0xDFDFDF,
                                     .highlight = 0xFFFFFF,
                                     .shadow = 0x808080,
                                     .darkShadow = 0,
                                     .text = 0,
                                     .textOver = 0,
                                     .faceOver = 0xC0C0C0,
                                     .accent = 0x800000,
                                     .accentLight = 0xD1ADAD,
                                     .mask = 0xC0C0C0,
                                     .deepFace = 0xF0F0F0};
        QVERIFY(palette == expected);
    }

    void container_scheme_takes_the_containers_colours() {
        PaletteSource source;
        source.colorScheme = 4;
        source.back = 0x123456;
        source.containerBack = 0x4A3933;
        source.containerText = 0x010203;
        const ButtonPalette palette = ApplyColorScheme(source);
        QCOMPARE(palette.face, OleColour(0x4A3933));
        QCOMPARE(palette.faceOver, OleColour(0x4A3933));
        QCOMPARE(palette.text, OleColour(0x010203));
        QCOMPARE(palette.light, OleColour(0x695852));
        QCOMPARE(palette.accent, Colours::translate(Colours::system(13)));
        QCOMPARE(palette.accentLight, LightenRgb(Colours::translate(Colours::system(13)), 176));
        QCOMPARE(palette.textOver, OleColour(0x010203));
    }

    void container_scheme_with_soft_bevel_halves_the_shifts_of_its_edges() {
        PaletteSource source;
        source.colorScheme = 4;
        source.softBevel = true;
        source.containerBack = 0x808080;
        const ButtonPalette palette = ApplyColorScheme(source);
        QCOMPARE(palette.light, OleColour(0x8F8F8F));      // 128 + 15
        QCOMPARE(palette.highlight, OleColour(0x979797));  // 128 + 23
        QCOMPARE(palette.shadow, OleColour(0x606060));     // 128 - 32
        QCOMPARE(palette.darkShadow, OleColour(0x202020)); // 128 - 96
    }

    void system_scheme_takes_its_accent_from_the_selection() {
        const ButtonPalette palette = ApplyColorScheme({});
        QCOMPARE(palette.textOver, OleColour(0x000000));
        QCOMPARE(palette.accent, OleColour(0xD77800));
        // Blue 79 x 215 / 255 + 176 = 66 + 176, green 79 x 120 / 255 + 176 = 37 + 176, red 0 + 176.
        QCOMPARE(palette.accentLight, OleColour(0xF2D5B0));
    }

    void any_other_scheme_is_the_systems_data() {
        QTest::addColumn<int>("scheme");
        for (const int scheme : {1, 0, 5, -3}) QTest::addRow("%d", scheme) << scheme;
    }

    void any_other_scheme_is_the_systems() {
        QFETCH(int, scheme);
        PaletteSource source;
        source.colorScheme = scheme;
        source.back = 0x123456;
        const ButtonPalette palette = ApplyColorScheme(source);
        const auto system = [](int index) { return Colours::translate(Colours::system(index)); };
        QCOMPARE(palette.face, system(15));
        QCOMPARE(palette.faceOver, system(15));
        QCOMPARE(palette.shadow, system(16));
        QCOMPARE(palette.light, system(22));
        QCOMPARE(palette.darkShadow, system(21));
        QCOMPARE(palette.highlight, system(20));
        QCOMPARE(palette.text, system(18));
    }

    void system_colours_are_translated_in_the_custom_scheme() {
        PaletteSource source;
        source.colorScheme = 2;
        source.back = Colours::system(15);
        source.mask = Colours::system(20);
        const ButtonPalette palette = ApplyColorScheme(source);
        QCOMPARE(palette.face, Colours::translate(Colours::system(15)));
        QCOMPARE(palette.mask, OleColour(0xFFFFFF));
        source.backOver = Colours::system(16);
        source.foreOver = Colours::system(17);
        QCOMPARE(ApplyColorScheme(source).faceOver, OleColour(0xA0A0A0));
        QCOMPARE(ApplyColorScheme(source).textOver, OleColour(0x6D6D6D));
    }

    void deep_face_of_type_3_follows_the_blue_rule() {
        PaletteSource source;
        source.colorScheme = 2;
        source.buttonType = 3;
        source.back = 0x644D4E;
        QCOMPARE(ApplyColorScheme(source).deepFace, OleColour(0x7D7D7E));
    }
};

TORVANE_APPLESS_TEST(ButtonPaletteTest)
#include "ButtonPaletteTest.moc"
