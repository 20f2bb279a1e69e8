// SPDX-License-Identifier: MIT
// Shared by the tests of the gallery: the program, its folder of screenshots, and the two windows.
#pragma once

#include "Failing.h"
#include "OpenedProgram.h"
#include "PictureBytes.h"

namespace torvane {

class OpenedGallery : public QObject {
protected:
    std::unique_ptr<OpenedProgram> opened;

    void start() {
        opened = std::make_unique<OpenedProgram>();
        opened->games(1);
        opened->world.folder.makeFolder(shots);
    }
    void end() { opened.reset(); }

    /// The folder, relative to that of the program.
    static inline const QString shots = QStringLiteral("roms/data/screenshots");
    QString shot(const QString& name) const { return shots + QLatin1Char('/') + name; }
    /// Writes a picture into the folder; gives its path.
    QString picture(const QString& name, const QByteArray& bytes = bmpBytes()) const {
        return opened->world.folder.write(shot(name), bytes);
    }
    QStringList files() const { return opened->world.folder.entries(shots); }

    MainFrm& main() const { return opened->main(); }
    template <typename W>
    W* loaded() const {
        return opened->program->loaded<W>();
    }
    Compartir& window() const { return *loaded<Compartir>(); }
    AmpliCaptura& view() const { return *loaded<AmpliCaptura>(); }
    FakeMessages& messages() const { return opened->world.messages; }
    FakePrinter& printer() const { return opened->world.printer; }

    /// Opens the program and, with the button of the main window, the gallery.
    void openGallery() {
        opened->open();
        clickGallery();
    }
    void clickGallery() {
        click(main().chameleonButton4);
        QVERIFY(QTest::qWaitForWindowActive(loaded<Compartir>()));
    }
    /// Opens the enlarged view of the picture that is shown.
    void enlarge() {
        click(window().ChameleonButton8);
        QVERIFY(loaded<AmpliCaptura>() != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(loaded<AmpliCaptura>()));
    }

    QString text(const char* key) const { return opened->text("Gallery", key); }
    /// Texts of the list, row by row.
    QStringList rows() const {
        QStringList texts;
        const RowModel& model = window().Snap.model();
        for (int row = 0; row < model.rowCount(); ++row) texts += model.index(row, 0).data().toString();
        return texts;
    }
    void chooseRow(int row) const { click(window().Snap, window().Snap.rowRect(row).center()); }
    void next() const { click(window().ChameleonButton7); }
    void previous() const { click(window().ChameleonButton6); }
    /// The row that is marked, and the one that the buttons act on: the same, if all is well.
    int row() const {
        return window().Snap.currentRow() == window().Capturas.ListIndex() ? window().Snap.currentRow() : -2;
    }
    /// Format, dimensions and weight.
    QStringList labels() const {
        return {window().Format.Caption(), window().Dimension.Caption(), window().Tamany.Caption()};
    }
    QByteArray shownBytes() const { return window().Image1.source().bytes(); }
    QByteArray stockBytes() const {
        return Pictures::bytesOf(QString::fromLatin1(CompartirDesign::stockPicture));
    }
    bool hasNotice() const { return window().Image1.notice() == text("unreadable"); }
};

} // namespace torvane
