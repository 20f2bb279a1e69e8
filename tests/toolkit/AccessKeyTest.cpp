// SPDX-License-Identifier: MIT
// The search for the access key in a caption.
#include "toolkit/AccessKey.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace torvane;

class AccessKeyTest : public QObject {
    Q_OBJECT

private slots:
    void access_key_of_a_caption_data() {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("key");
        const auto row = [](const char* name, const char* caption, const char* key) {
            QTest::newRow(name) << QString::fromUtf8(caption) << QString::fromUtf8(key);
        };
        row("letter after the mark, in lower case", "&Salir", "s");
        row("mark inside the caption", "Guardar c&omo", "o");
        row("only the first mark counts", "&Uno &Dos", "u");
        row("letter outside of ASCII", "&Ñandú", "ñ");
        row("no mark", "Salir", "");
        row("mark at the end", "Salir&", "");
        row("one character is too short", "&", "");
        row("empty", "", "");
        row("two characters are enough", "&S", "s");
        row("doubled mark at the start without another", "&&Salir", "");
        row("A, doubled mark, B, mark, C", "A&&B&C", "c");
        row("doubled mark, then a mark at the end", "A&&B&", "");
        row("two doubled marks: there is no third search", "A&&B&&C&D", "");
        row("three marks in a row", "&&&Salir", "s");
    }

    void access_key_of_a_caption() {
        QFETCH(QString, caption);
        QFETCH(QString, key);
        const QChar found = accessKeyOf(caption);
        QCOMPARE(found.isNull() ? QString() : QString(found), key);
    }

    void caption_is_read_aloud_without_marks_and_with_single_ampersands() {
        QCOMPARE(withoutAccessMarks(QStringLiteral("&Copiar && pegar&")), QStringLiteral("Copiar & pegar"));
    }
};

TORVANE_APPLESS_TEST(AccessKeyTest)
#include "AccessKeyTest.moc"
