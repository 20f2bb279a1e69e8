// SPDX-License-Identifier: MIT
// The layout of the picture sheet: small buttons on the left; wide ones on the right, above the lists, signs,
// icons and cursors; at the bottom the backgrounds whose parts change.
#include "PictureSheet.h"

#include <QDir>
#include <QIcon>
#include <QPainter>
#include <algorithm>

namespace torvane {

namespace {
constexpr int captionWidth = 124;
constexpr int smallStep = 44;
constexpr int wideStep = 208;
constexpr int rowGap = 6;
constexpr int rightColumn = 366;
constexpr int widestSmallButton = 40;
constexpr int backgroundsTop = 770;
const QColor paleList(0x93, 0x9A, 0xB0);
const QColor lightPanel(0xEC, 0xEC, 0xE8);
const QColor darkPanel(0x20, 0x20, 0x24);

constexpr FormDesign sheetDesign{.name = "PictureSheet",
                                 .title = "Pictures",
                                 .clientSize = {1552, 2030},
                                 .border = FormDesign::fixedDialog,
                                 .start = FormDesign::systemDefault,
                                 .backColour = slate,
                                 .inTaskBar = true};

// One row for each picture of the list.
struct AllIcons : RowSource {
    int count() const override { return 5; }
    QString text(int row, int) const override { return QStringLiteral("Game %1").arg(row + 1); }
    int icon(int row) const override { return row + 1; }
};

QStringList resources(const QString& pattern) {
    QStringList names = QDir(QStringLiteral(":/art")).entryList({pattern});
    names.removeIf([](const QString& name) { return name.contains(QLatin1Char('@')); });
    return names;
}
} // namespace

PictureSheet::PictureSheet(Runtime& runtime)
    : Form(runtime, sheetDesign), m_main(runtime), m_message(runtime) {
    addButtons();
    addLists();
    addImages();
    addTraySigns();
    addWindowIcons();
    addCursors();
    addSmallConsoles();
    addBackgrounds();
}

void PictureSheet::addButtons() {
    QList<chameleonButton*> originals = m_main.findChildren<chameleonButton*>();
    originals += m_message.findChildren<chameleonButton*>();
    int nextSmall = 10;
    int nextWide = 10;
    for (const chameleonButton* original : originals) {
        if (original->PictureNormal().isNull()) continue;
        const bool isSmall = original->width() <= widestSmallButton;
        int& next = isSmall ? nextSmall : nextWide;
        addButtonRow(*original, {isSmall ? 10 : rightColumn, next}, isSmall ? smallStep : wideStep);
        next += original->height() + rowGap;
    }
}

void PictureSheet::addButtonRow(const chameleonButton& original, QPoint place, int step) {
    using Pose = StillButton::Hold;
    caption({place, QSize(captionWidth, original.height())}, original.objectName());
    place.rx() += captionWidth;
    for (const Pose pose : {Pose::rest, Pose::over, Pose::pressed, Pose::disabled}) {
        m_controls.push_back(std::make_unique<StillButton>(*this, original, place, pose));
        place.rx() += step;
    }
    m_pictures.push_back({place, original.PictureNormal()});
}

// Each picture on a plain row and on a selected one.
void PictureSheet::addLists() {
    const auto rows = std::make_shared<AllIcons>();
    for (int selected = 0; selected < rows->count(); ++selected) {
        const DesignRect place{double(rightColumn + selected * 120), 320, 112, 166};
        auto panel = std::make_unique<Panel>(*this, "Lists", place, Panel::Look{slate});
        // The panel owns its controls.
        auto* list = new ListView(*panel, "List", {0, 0, place.width, place.height}, m_listIcons);
        list->setItems(rows);
        list->setCurrentRow(selected);
        m_controls.push_back(std::move(panel));
    }
}

void PictureSheet::addImages() {
    QPoint place(rightColumn + 620, 320);
    QList<Image*> images = m_main.findChildren<Image*>();
    images += m_message.findChildren<Image*>();
    for (const Image* image : images) {
        if (image->Picture().isNull() || image->width() > widestSmallButton) continue;
        m_pictures.push_back({place, image->Picture()});
        place.rx() += 32;
    }
}

// As a desktop shows them: the program passes one picture on, and Qt scales it to the tray's size.
void PictureSheet::addTraySigns() {
    TrayIcon sign(*this, "TrayIcon", "");
    int top = 360;
    for (const QColor& ground : {lightPanel, darkPanel}) {
        const QRect strip(rightColumn + 620, top, 400, 36);
        m_grounds.emplace_back(strip, ground);
        QPoint place = strip.topLeft() + QPoint(8, 7);
        for (const int size : {16, 22}) {
            for (int number = 0; number <= 6; ++number) {
                sign.setPicture(QStringLiteral(TORVANE_ART_TREE_DIR "\\data\\tray\\%1.dat").arg(number));
                m_pictures.push_back(
                    {place, QIcon(sign.picture()).pixmap(QSize(size, size), devicePixelRatioF())});
                place.rx() += size + 8;
            }
            place.rx() += 16;
        }
        top += 40;
    }
}

void PictureSheet::addWindowIcons() {
    QList<QPixmap> icons;
    for (const QString& name : resources(QStringLiteral("torvane-*.png")))
        icons.append(Pictures::load(name, devicePixelRatioF()));
    std::ranges::sort(icons, {}, [](const QPixmap& icon) { return icon.width(); });
    QPoint place(rightColumn, 500);
    for (const QPixmap& icon : std::as_const(icons)) {
        m_pictures.push_back({place, icon});
        place.rx() += qRound(icon.deviceIndependentSize().width()) + 10;
    }
}

void PictureSheet::addCursors() {
    QPoint place(rightColumn + 720, 500);
    for (const QString& name : resources(QStringLiteral("cursor-*.png"))) {
        m_grounds.emplace_back(QRect(place + QPoint(0, 44), QSize(36, 36)), lightPanel);
        for (const int down : {2, 46})
            m_pictures.push_back({place + QPoint(2, down), Pictures::load(name, devicePixelRatioF())});
        place.rx() += 50;
    }
}

// The consoles of the database list, on its ground and on that of a dark list.
void PictureSheet::addSmallConsoles() {
    constexpr int cell = 24;
    QPoint place(rightColumn + 860, 500);
    for (const QString& name : resources(QStringLiteral("console-*-16.png"))) {
        m_grounds.emplace_back(QRect(place, QSize(cell, cell)), paleList);
        for (const int down : {4, 4 + cell})
            m_pictures.push_back({place + QPoint(4, down), Pictures::load(name, devicePixelRatioF())});
        place.rx() += cell;
    }
}

// The pages of the assistant, the ZIP window with its wait panel over it, and the windows of the database.
void PictureSheet::addBackgrounds() {
    const auto add = [this](int left, int down, const char* name) {
        const QPixmap picture = Pictures::load(QLatin1String(name), devicePixelRatioF());
        m_pictures.push_back({{left, backgroundsTop + down}, picture});
    };
    add(10, 0, "NewAssistant-One.jpg");
    add(500, 0, "NewAssistant-Two.jpg");
    add(10, 330, "NewAssistant-Three.jpg");
    add(500, 330, "NewAssistant-Four.jpg");
    add(990, 0, "ZIP_Viewer.jpg");
    add(1144, 188, "ZIP_Viewer-Mensaje.jpg");
    add(10, 660, "EditDB.jpg");
    add(750, 660, "DB_Info.jpg");
    add(750, 984, "Form2.jpg");
}

void PictureSheet::paintEvent(QPaintEvent* event) {
    Form::paintEvent(event);
    QPainter painter(this);
    painter.setPen(Qt::white);
    for (const Caption& caption : m_captions)
        painter.drawText(caption.place, Qt::AlignVCenter | Qt::AlignLeft, caption.text);
    for (const auto& [place, colour] : m_grounds) painter.fillRect(place, colour);
    for (const Picture& picture : m_pictures) painter.drawPixmap(picture.place, picture.pixmap);
}

} // namespace torvane
