// SPDX-License-Identifier: MIT
// Painting and comparison of golden images.
#include "GoldenImages.h"
#include "../PanelForm.h"
#include "CellButton.h"

#include <QFontDatabase>

namespace torvane {

namespace {
// A window for one button at a time. Something else has the focus while no button wants it.
struct CellForm : PanelForm {
    QWidget resting{this};

    CellForm() {
        resting.setFocusPolicy(Qt::StrongFocus);
        resting.setGeometry(399, 299, 1, 1);
        move(0, 0);
        show();
        activateWindow();
    }
    bool isReady() { return QTest::qWaitForWindowActive(this); }

    QImage painted(const SheetGroup& group, int row, ButtonState state) {
        QCursor::setPos(200, 390); // below the window
        resting.setFocus();
        QCoreApplication::processEvents();
        CellButton button(*this, group.buttonIn(row).topLeft(),
                          group.rows.at(static_cast<std::size_t>(row)).setup);
        button.show();
        if (!button.bring(state)) return {};
        QImage image = grab(QRect(QPoint(), group.cell)).toImage().convertToFormat(QImage::Format_RGB32);
        image.setDevicePixelRatio(1.0);
        return image;
    }
};

QRgb pale(QRgb colour) {
    const int grey = 160 + qGray(colour) / 4;
    return qRgb(grey, grey, grey);
}
} // namespace

void useFixedPlatform(const QByteArray& scaleFactor) {
    for (const char* name :
         {"QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "QT_FONT_DPI", "QT_USE_PHYSICAL_DPI",
          "QT_SCREEN_SCALE_FACTORS", "QT_SCALE_FACTOR_ROUNDING_POLICY"}) {
        qunsetenv(name);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", scaleFactor);
    qputenv("FONTCONFIG_FILE", TORVANE_SHEET_DIR "/fonts.conf");
    qputenv("FREETYPE_PROPERTIES", "truetype:interpreter-version=40 cff:no-stem-darkening=1");
}

QString missingFonts() {
    QStringList missing;
    for (const FontSpec& font : {Fonts::M8b, Fonts::V8b}) {
        const Fonts::StandIn standIn = Fonts::standIn(font.face);
        if (QFontDatabase::hasFamily(QString::fromLatin1(standIn.family))) continue;
        missing.append(QStringLiteral("the font %1 is missing (Debian package %2)")
                           .arg(QLatin1String(standIn.family), QLatin1String(standIn.debianPackage)));
    }
    return missing.join(QStringLiteral(", "));
}

QImage paintedGroup(const SheetGroup& group) {
    CellForm form;
    if (!form.isReady()) return {};
    const int ratio = qRound(form.devicePixelRatioF());
    QImage image(group.size() * ratio, QImage::Format_RGB32);
    QPainter painter(&image);
    for (int row = 0; row < static_cast<int>(group.rows.size()); ++row) {
        for (int column = 0; column < stateCount; ++column) {
            const QImage cell = form.painted(group, row, static_cast<ButtonState>(column));
            if (cell.isNull()) return {};
            painter.drawImage(group.cellAt(row, column).topLeft() * ratio, cell);
        }
    }
    return image;
}

PixelDifference differenceIn(const QRect& area, const QImage& wanted, const QImage& painted) {
    PixelDifference result;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (wanted.pixel(x, y) == painted.pixel(x, y)) continue;
            if (++result.count > 1) continue;
            result.first = QPoint(x, y) - area.topLeft();
            result.wanted = wanted.pixel(x, y);
            result.painted = painted.pixel(x, y);
        }
    }
    return result;
}

QImage differencePicture(const QImage& wanted, const QImage& painted) {
    QImage picture(painted.size(), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool isSame = wanted.valid(x, y) && wanted.pixel(x, y) == painted.pixel(x, y);
            picture.setPixel(x, y, isSame ? pale(painted.pixel(x, y)) : qRgb(220, 0, 0));
        }
    }
    return picture.scaled(4 * picture.size());
}

bool writeGoldenImages(const QString& folder) {
    for (const SheetGroup& group : buttonSheet()) {
        const QImage image = paintedGroup(group);
        if (!image.save(folder + QLatin1Char('/') + group.name + QStringLiteral(".png"))) return false;
    }
    return true;
}

} // namespace torvane
