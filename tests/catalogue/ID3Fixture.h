// SPDX-License-Identifier: MIT
// Shared by the tests of tags: a folder, a tag module with its own language and message boxes, and a record
// of what a read displays.
#pragma once

#include "catalogue/ID3.h"
#include "support/FakeWorld.h"

#include <memory>

namespace torvane {

// Records what a read displays.
struct PanelRecord : GamePanel {
    QString title, company, date, info, format;
    bool tagged = false;
    void showTag(const RomTagRecord& tag) override {
        tagged = true;
        title = tag.Title;
        company = tag.Company;
        date = tag.Date;
        info = tag.Info;
    }
    void showNoTag(const QString& missing) override {
        tagged = false;
        title = info = missing;
        company.clear();
        date.clear();
    }
    void showFormat(const QString& text) override { format = text; }
};

inline QByteArray image(qsizetype size) { return QByteArray(size, 'r'); }

inline QByteArray tagLine(const QByteArray& size, const QByteArray& company = "Acme") {
    return "ID3TAG\xA7" + company +
           "\xA7Title\xA7"
           "1/2/03\xA7Info\xA7" +
           size + "\xA7\r\n";
}

class ID3Fixture : public QObject {
    Q_OBJECT

protected:
    explicit ID3Fixture(const QString& parent = QDir::tempPath()) : folder(parent) {}

    TestFolder folder;
    TestFolder languageFolder; // separate, so that the folder of games holds nothing else
    FakeMessages messages;
    Globals globals;
    LanguageTables language{globals};
    std::unique_ptr<ID3> id3;
    PanelRecord panel;

    QString file(const QByteArray& bytes, const QString& name = QStringLiteral("game.gb")) {
        return folder.write(name, bytes);
    }
    void fillNew(const char* company = "Acme", const char* title = "Title", const char* info = "Info") {
        id3->NewCompany = QString::fromUtf8(company);
        id3->NewTitle = QString::fromUtf8(title);
        id3->NewInfo = QString::fromUtf8(info);
        id3->NewDate = QStringLiteral("21/11/26");
    }

protected slots:
    void init() {
        for (const auto& left : std::filesystem::directory_iterator(folder.path().toStdString())) {
            std::filesystem::remove_all(left);
        }
        globals.AppPath = folder.path();
        globals.LanguageFile =
            languageFolder.write(QStringLiteral("lang.tvl"), "[globals]\r\nnodisp=globals/nodisp\r\n");
        id3 = std::make_unique<ID3>(globals, language, messages);
        panel = {};
        messages.boxes.clear();
    }
};

} // namespace torvane
