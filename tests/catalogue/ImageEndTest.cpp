// SPDX-License-Identifier: MIT
// Where images end: at their tags, and before the line ends of saves.
#include "catalogue/ImageEnd.h"
#include "catalogue/TagLine.h"
#include "support/TestMain.h"

using namespace torvane;

class ImageEndTest : public QObject {
    Q_OBJECT

    static QByteArray tag(qint64 size) {
        return TagLine::build({"Company", "Title", "Date", "Info", QByteArray::number(size)});
    }
    static QByteArray tagged(const QByteArray& body) { return body + tag(body.size()); }
    static QByteArray image(qsizetype size) { return QByteArray(size, 'x'); }
    static ImageEnd endOf(const QByteArray& file) {
        return ImageEnd::of(QByteArrayView(file).last(std::min<qsizetype>(file.size(), ImageEnd::tailSize)),
                            file.size());
    }

private slots:
    void the_length_is_that_of_the_image_data() {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<qint64>("length");
        const auto add = [](const char* name, const QByteArray& file, qint64 length) {
            QTest::newRow(name) << file << length;
        };
        const QByteArray end = TagLine::lineEnd;
        add("no tag", image(32768), 32768);
        add("empty", "", 0);
        add("first tag", tagged(image(32768)), 32768);
        add("large", tagged(image(1 << 20)), 1 << 20);
        add("below the length that a selection reads", tagged(image(1024)), 1024);
        add("first tag of another length", tagged(image(3001)), 3001);
        add("saved again", tagged(image(32768) + end), 32768);
        add("saved 200 times", tagged(image(32768) + end.repeated(200)), 32768);
        add("removed", image(32768) + end, 32768);
        add("removed twice", image(32768) + end.repeated(2), 32768);
        add("ends in a line end of its own", image(32766) + end, 32768);
        add("the same with a tag", tagged(image(32766) + end), 32768);
        add("the same saved again", tagged(image(32766) + end + end), 32768);
        add("ends in many of its own", image(32768 - 1024) + end.repeated(512), 32768);
        add("line ends and nothing else", end.repeated(100), 200);
        add("another length", image(3000) + end, 3002);
        add("an odd number", image(32769) + end, 32771);
        add("not only line ends", image(32768) + "x\n" + end, 32772);
        add("half a line end", image(32768) + "\n" + end, 32771);
        add("line ends in the other order", image(32768) + "\n\r", 32770);
        add("Size below the marker", image(32768) + "rest" + tag(32768), 32768);
        add("Size above the marker", image(32768) + tag(99999), 32768);
        add("two tags", tagged(tagged(image(32768))), 32768);
        add("a marker and no tag", image(32768) + TagLine::marker + "x", 32776);
        add("a marker before the tag", image(32761) + TagLine::marker + tag(32768), 32768);
        add("Size that is no number",
            image(32768) + "ID3TAG\xA7"
                           "a\xA7"
                           "b\xA7"
                           "c\xA7"
                           "d\xA7"
                           "e\xA7\r\n",
            32768 + 19);
        add("shifted form",
            image(32768) + "ID3TAG\xA7V\xF6\xA7R\xE4N\xA7t\xA7"
                           "d\xA7i\xA7"
                           "32768\xA7\r\n",
            32768);
        add("a tag far before the end", tagged(image(32768)) + QByteArray(20000, 'x'),
            tagged(image(32768)).size() + 20000);
    }
    void the_length_is_that_of_the_image() {
        QFETCH(QByteArray, file);
        QFETCH(qint64, length);
        QCOMPARE(endOf(file).length(), length);
    }
    void no_image_of_whole_kib_is_ever_shortened() {
        for (int kib = 1; kib < 70; ++kib) {
            for (const int lineEnds : {0, 1, 2, 511, 512}) {
                const QByteArray plain =
                    image(kib * 1024 - 2 * lineEnds) + TagLine::lineEnd.repeated(lineEnds);
                QCOMPARE(endOf(plain).length(), plain.size());
                QCOMPARE(endOf(tagged(plain)).length(), plain.size());
            }
        }
    }
    void an_image_may_be_shorter_by_its_line_ends() {
        const ImageEnd end = endOf(tagged(image(3000) + "\r\n\r\n"));
        QCOMPARE(end.length(), 3004);
        QVERIFY(end.mayBe(3004) && end.mayBe(3002) && end.mayBe(3000));
        QVERIFY(!end.mayBe(3003) && !end.mayBe(2998) && !end.mayBe(3006));
    }
};

TORVANE_APPLESS_TEST(ImageEndTest)
#include "ImageEndTest.moc"
