// SPDX-License-Identifier: MIT
// The rows of the sheet.
#include "ButtonSheet.h"

#include <array>

namespace torvane {

namespace {
// Colours of the program's windows.
constexpr OleColour indigo = 0x644D4E;
constexpr OleColour lilac = 0xA37774;
constexpr OleColour darkPanel = 0x4A3933;
constexpr OleColour titleBand = 0x1A1A1A;
constexpr OleColour cream = 0xD8E9EC;
constexpr OleColour navy = 0x800000;
constexpr OleColour green = 0x00C000;

constexpr QSize smallCell(76, 34);
constexpr const char* shortCaption = "&Jugar";

ButtonSetup plain(int type) {
    ButtonSetup setup;
    setup.look.type = type;
    setup.look.back = indigo;
    setup.look.backOver = lilac;
    setup.look.fore = Colours::white;
    setup.look.foreOver = green;
    setup.look.showFocusRect = true;
    return setup;
}

ButtonSetup with(ButtonSetup setup, int picture, const char* caption) {
    setup.picture = picture;
    setup.look.caption = caption;
    return setup;
}

ButtonSetup full(int type) { return with(plain(type), 16, shortCaption); }

template <typename Change>
ButtonSetup changed(ButtonSetup setup, const Change& change) {
    change(setup);
    return setup;
}

SheetGroup typeGroup(int type) {
    static constexpr std::array kinds{
        "classic", "two levels",    "warm",        "round",
        "notched", "flat two-tone", "thin",        "thin, edged under the mouse",
        "flat",    "plain",         "see-through", "two levels under the mouse",
        "ellipse", "gradient"};
    const QString kind = QString::fromLatin1(kinds.at(static_cast<std::size_t>(type) - 1));
    return {QStringLiteral("type-%1").arg(type, 2, 10, QLatin1Char('0')),
            QStringLiteral("Type %1: %2").arg(type).arg(kind),
            smallCell,
            {{QStringLiteral("nothing"), plain(type)},
             {QStringLiteral("picture"), with(plain(type), 16, "")},
             {QStringLiteral("caption"), with(plain(type), 0, shortCaption)},
             {QStringLiteral("both"), full(type)}}};
}

SheetGroup schemesGroup() {
    SheetGroup group{QStringLiteral("schemes"), QStringLiteral("Colour schemes"), smallCell, {}};
    for (const int type : {6, 7, 14, 2}) {
        for (const int scheme : {1, 2, 3, 4}) {
            group.rows.push_back({QStringLiteral("type %1, scheme %2").arg(type).arg(scheme),
                                  changed(full(type), [&](auto& s) { s.colorScheme = scheme; })});
        }
    }
    return group;
}

SheetGroup effectsGroup(int type) {
    SheetGroup group{QStringLiteral("effects-%1").arg(type, 2, 10, QLatin1Char('0')),
                     QStringLiteral("Effects of type %1").arg(type),
                     smallCell,
                     {}};
    for (const bool hasPicture : {true, false}) {
        for (const int effect : {0, 1, 2, 3}) {
            const auto content = hasPicture ? QStringLiteral("picture") : QStringLiteral("caption");
            ButtonSetup setup = with(plain(type), hasPicture ? 16 : 0, hasPicture ? "" : shortCaption);
            setup.look.fx = effect;
            group.rows.push_back({QStringLiteral("effect %1, %2").arg(effect).arg(content), setup});
        }
    }
    return group;
}

SheetGroup placesGroup() {
    SheetGroup group{QStringLiteral("places"), QStringLiteral("Places of the picture"), {76, 58}, {}};
    const auto add = [&](const QString& label, int place, const char* caption, int effect) {
        ButtonSetup setup = with(plain(7), 16, caption);
        setup.size = QSize(68, 50);
        setup.picturePosition = place;
        setup.look.fx = effect;
        group.rows.push_back({label, setup});
    };
    for (const int place : {0, 1, 2, 3, 4}) {
        add(QStringLiteral("place %1").arg(place), place, shortCaption, 0);
    }
    add(QStringLiteral("two lines"), 2, "Copiar la ROM", 0);
    add(QStringLiteral("place 4, raised"), 4, shortCaption, 1);
    return group;
}

SheetGroup optionsGroup() {
    SheetGroup group{QStringLiteral("options"), QStringLiteral("Options"), smallCell, {}};
    const auto add = [&](const char* label, int type, const auto& change) {
        group.rows.push_back({QString::fromLatin1(label), changed(full(type), change)});
    };
    add("not grey", 7, [](auto& s) { s.look.useGreyscale = false; });
    add("no mask", 7, [](auto& s) { s.useMaskColor = false; });
    add("no mask, shadow", 7, [](auto& s) {
        s.useMaskColor = false;
        s.look.fx = 3;
    });
    add("second picture", 7, [](auto& s) { s.changesPicture = true; });
    add("the same, type 9", 9, [](auto& s) { s.changesPicture = true; });
    add("picture too large", 7, [](auto& s) { s = with(s, 32, ""); });
    for (const int type : {2, 6, 7, 14}) {
        group.rows.push_back({QStringLiteral("soft, type %1").arg(type),
                              changed(full(type), [](auto& s) { s.look.softBevel = true; })});
    }
    return group;
}

SheetGroup marksGroup() {
    SheetGroup group{QStringLiteral("marks"), QStringLiteral("Default and focus marks"), smallCell, {}};
    const auto add = [&](const QString& label, ButtonSetup setup, const auto& change) {
        group.rows.push_back({label, changed(setup, change)});
    };
    const auto markDefault = [](auto& s) { s.isDefault = true; };
    add(QStringLiteral("default, type 2"), full(2), markDefault);
    add(QStringLiteral("the same, no focus"), full(2), [](auto& s) {
        s.isDefault = true;
        s.look.showFocusRect = false;
    });
    // In a light font, so that the bold of the mark shows.
    const auto lightDefault = [](auto& s) {
        s.isDefault = true;
        s.look.font = Fonts::M8;
    };
    add(QStringLiteral("default, type 14"), full(14), lightDefault);
    add(QStringLiteral("the same, caption"), with(plain(14), 0, shortCaption), lightDefault);
    add(QStringLiteral("the same, place 4"), full(14), [&](auto& s) {
        lightDefault(s);
        s.picturePosition = 4;
    });
    for (const int type : {2, 6, 7, 8, 14}) {
        add(QStringLiteral("has focus, type %1").arg(type), with(plain(type), 0, shortCaption),
            [](auto& s) { s.keepsFocus = true; });
    }
    return group;
}

SheetRow windowRow(const char* label, QSize size, int picture, const chameleonButton::Look& look) {
    ButtonSetup setup;
    setup.look = look;
    setup.size = size;
    setup.picture = picture;
    return {QString::fromLatin1(label), setup};
}

SheetGroup windowsGroup() {
    using Look = chameleonButton::Look;
    const Look title{.type = 6, .fx = 2, .back = titleBand};
    const Look tool{.type = 6, .fx = 3, .back = darkPanel, .mask = Colours::black};
    const Look word{.type = 6,
                    .fx = 3,
                    .back = indigo,
                    .fore = 0x808080,
                    .foreOver = green,
                    .mask = Colours::black,
                    .caption = "TAG",
                    .font = Fonts::V8b};
    const Look large{.type = 6, .fx = 2, .back = indigo, .mask = Colours::black};
    const Look action{.type = 7,
                      .fx = 2,
                      .back = indigo,
                      .fore = Colours::white,
                      .mask = Colours::black,
                      .caption = "Copiar la ROM"};
    const Look choice{.type = 7,
                      .fx = 2,
                      .back = darkPanel,
                      .fore = Colours::white,
                      .mask = Colours::black,
                      .caption = "Cancelar"};
    const Look answer{.type = 6,
                      .fx = 3,
                      .back = indigo,
                      .backOver = 0x9FFFA5,
                      .caption = "sí",
                      .font = Fonts::V9b,
                      .showFocusRect = true,
                      .useGreyscale = false};
    const Look back{.type = 14,
                    .fx = 2,
                    .back = Colours::buttonFace,
                    .fore = navy,
                    .caption = "Volver",
                    .softBevel = true};
    const Look page{
        .type = 14, .fx = 2, .back = cream, .fore = navy, .caption = "General", .softBevel = true};
    SheetGroup group{QStringLiteral("windows"), QStringLiteral("As in the windows"), {122, 51}, {}};
    group.rows = {
        windowRow("title bar", {22, 21}, 16, title), windowRow("tool", {23, 23}, 16, tool),
        windowRow("word", {40, 23}, 0, word),        windowRow("large, 2 pictures", {37, 36}, 24, large),
        windowRow("action", {114, 26}, 16, action),  windowRow("choice", {106, 26}, 0, choice),
        windowRow("answer", {114, 27}, 0, answer),   windowRow("back", {91, 27}, 16, back),
        windowRow("page", {114, 43}, 32, page)};
    group.rows[3].setup.changesPicture = true;
    return group;
}

std::vector<SheetGroup> makeSheet() {
    std::vector<SheetGroup> groups;
    for (int type = 1; type <= 14; ++type) groups.push_back(typeGroup(type));
    groups.push_back(schemesGroup());
    for (const int type : {6, 7, 14}) groups.push_back(effectsGroup(type));
    groups.push_back(placesGroup());
    groups.push_back(optionsGroup());
    groups.push_back(marksGroup());
    groups.push_back(windowsGroup());
    return groups;
}
} // namespace

QString nameOf(ButtonState state) {
    static constexpr std::array names{"normal", "over", "pressed", "disabled", "focused", "checked"};
    return QString::fromLatin1(names.at(static_cast<std::size_t>(state)));
}

QSize SheetGroup::size() const {
    return {stateCount * cell.width(), static_cast<int>(rows.size()) * cell.height()};
}

QRect SheetGroup::cellAt(int row, int column) const {
    return {QPoint(column * cell.width(), row * cell.height()), cell};
}

QRect SheetGroup::buttonIn(int row) const {
    const QSize button = rows.at(static_cast<std::size_t>(row)).setup.size;
    return {QPoint((cell.width() - button.width()) / 2, (cell.height() - button.height()) / 2), button};
}

const std::vector<SheetGroup>& buttonSheet() {
    static const std::vector<SheetGroup> groups = makeSheet();
    return groups;
}

} // namespace torvane
