// SPDX-License-Identifier: MIT
// Every archive of tests/archives: the folder then holds what the list beside them says, each file complete
// and with ordinary permissions; nothing around the folder has changed, and the reason why no game came out
// is right.
#include "support/TestMain.h"
#include "support/UnZipFixture.h"

#include <array>

using namespace torvane;

class UnZipCorpusTest : public UnZipFixture {
    Q_OBJECT

    static QString archives() { return QStringLiteral(TORVANE_TESTS_DIR "/archives/"); }
    // The lines of the list after its headings: name, what is wrong, what comes out, why no game does.
    static QList<QStringList> list() {
        QFile file(archives() + QStringLiteral("expected.tsv"));
        if (!file.open(QIODevice::ReadOnly)) return {};
        QList<QStringList> rows;
        const QString text = QString::fromUtf8(file.readAll());
        for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            rows << line.split(QLatin1Char('\t'));
        }
        return rows.mid(1);
    }
    // Each correct result, together with what was there before.
    static QList<FolderTree> answersIn(const QString& cell, const FolderTree& before) {
        QList<FolderTree> trees;
        for (const QString& answer : cell.split(QLatin1Char('|'))) {
            FolderTree& tree = trees.emplaceBack(before);
            for (const QString& pair : answer.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
                const QList<QByteArray> pieces = pair.toLatin1().split('=');
                tree["target/" + QByteArray::fromPercentEncoding(pieces[0])] =
                    fileWith(QByteArray::fromPercentEncoding(pieces[1]));
            }
        }
        return trees;
    }
    static QString nameOf(UnZip::Reason reason) {
        constexpr std::array names = {"none",      "nothingWanted", "inSubfolders", "noRoom",
                                      "encrypted", "unknownMethod", "damaged"};
        return QLatin1String(names.at(static_cast<size_t>(reason)));
    }

private slots:
    void initTestCase() { umask(022); }
    void init() { renewTarget(); }

    void the_right_files_come_out_and_nothing_else_changes_data() {
        QTest::addColumn<QString>("wrong");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<QString>("reasons");
        for (const QStringList& row : list()) QTest::newRow(qPrintable(row[0])) << row[1] << row[2] << row[3];
    }
    void the_right_files_come_out_and_nothing_else_changes() {
        QFETCH(QString, wrong);
        QFETCH(QString, expected);
        QFETCH(QString, reasons);
        const QString archive = archives() + QLatin1String(QTest::currentDataTag()) + QStringLiteral(".zip");
        QVERIFY2(QFile::exists(archive), qPrintable(wrong));
        const FolderTree before = wholeTree();
        const UnZip::Reason reason = extract(archive);
        const FolderTree tree = wholeTree();
        const QList<FolderTree> answers = answersIn(expected, before);
        if (!answers.contains(tree)) QCOMPARE(tree, answers.first());
        QCOMPARE(nameOf(reason), reasons.split(QLatin1Char('|')).at(answers.indexOf(tree)));
        // Once more over the same files, as after a program that was killed meanwhile.
        extract(archive);
        QCOMPARE(wholeTree(), tree);
    }
    void every_archive_is_in_the_list() {
        QStringList listed;
        for (const QStringList& row : list()) listed << row[0] + QStringLiteral(".zip");
        QStringList there = QDir(archives()).entryList({QStringLiteral("*.zip")});
        std::sort(listed.begin(), listed.end());
        std::sort(there.begin(), there.end());
        QCOMPARE(there, listed);
        QVERIFY(there.size() > 70);
    }
};

TORVANE_APPLESS_TEST(UnZipCorpusTest)
#include "UnZipCorpusTest.moc"
