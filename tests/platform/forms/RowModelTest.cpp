// SPDX-License-Identifier: MIT
// The rows of a list as views and other code see them: texts, pictures, keys, headers.
#include "platform/forms/RowModel.h"
#include "art/ArtResources.h"
#include "platform/forms/ImageList.h"
#include "support/FakeWorld.h"
#include "support/NotedRows.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class RowModelTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<ImageList> icons;
    std::unique_ptr<RowModel> model;

private slots:
    void initTestCase() { initArtResources(); }
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<TestForm>(world->runtime);
        icons = std::make_unique<ImageList>(
            *form, "icons",
            std::initializer_list<const char*>{"console-advance-32.png", "console-gameboy-32.png"});
        model = std::make_unique<RowModel>(3, icons.get());
    }
    void cleanup() {
        model.reset();
        icons.reset();
        form.reset();
    }

    void it_keeps_the_rules_of_models() {
        const QAbstractItemModelTester tester(model.get(),
                                              QAbstractItemModelTester::FailureReportingMode::QtTest);
        model->setRows(std::make_shared<NotedRows>(5));
        model->setHeader(1, u"Company"_s);
        model->setRows(nullptr);
        model->setRows(std::make_shared<NotedRows>(2));
    }
    void each_row_has_a_text_in_each_column() {
        model->setRows(std::make_shared<NotedRows>(4));
        QCOMPARE(model->rowCount(), 4);
        QCOMPARE(model->columnCount(), 3);
        QCOMPARE(model->index(3, 0).data().toString(), u"Game 3"_s);
        QCOMPARE(model->index(3, 2).data().toString(), u"Game 3**"_s);
    }
    void each_row_has_its_key_in_every_column() {
        model->setRows(std::make_shared<NotedRows>(4));
        QCOMPARE(model->index(0, 0).data(RowModel::KeyRole).toString(), u"key0"_s);
        QCOMPARE(model->index(3, 2).data(RowModel::KeyRole).toString(), u"key3"_s);
    }
    void rows_have_no_keys_unless_their_source_gives_some() {
        struct PlainRows : RowSource {
            int count() const override { return 1; }
            QString text(int, int) const override { return u"x"_s; }
            int icon(int) const override { return 0; }
        };
        model->setRows(std::make_shared<PlainRows>());
        QCOMPARE(model->index(0, 0).data(RowModel::KeyRole).toString(), QString());
    }
    void a_row_has_its_picture_in_the_first_column_only() {
        model->setRows(std::make_shared<NotedRows>(4));
        const auto picture = [this](int row, int column) {
            return model->index(row, column).data(Qt::DecorationRole).value<QPixmap>();
        };
        QVERIFY(picture(0, 0).isNull());
        QCOMPARE(picture(1, 0).cacheKey(), icons->picture(1).cacheKey());
        QCOMPARE(picture(2, 0).cacheKey(), icons->picture(2).cacheKey());
        QVERIFY(picture(3, 0).isNull());
        QVERIFY(picture(1, 1).isNull());
    }
    void other_rows_replace_the_old_ones_at_once() {
        model->setRows(std::make_shared<NotedRows>(4));
        const QSignalSpy resets(model.get(), &RowModel::modelReset);
        model->setRows(std::make_shared<NotedRows>(2));
        QCOMPARE(model->rowCount(), 2);
        model->setRows(nullptr);
        QCOMPARE(model->rowCount(), 0);
        QCOMPARE(resets.size(), 2);
    }
    void headers_are_announced_to_whoever_shows_them() {
        const QSignalSpy changes(model.get(), &RowModel::headerDataChanged);
        model->setHeader(2, u"Author"_s);
        QCOMPARE(model->headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), u"Author"_s);
        QCOMPARE(model->headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QString());
        QCOMPARE(changes.size(), 1);
        QCOMPARE(changes[0][1].toInt(), 2);
    }
};

TORVANE_TEST(RowModelTest)
#include "RowModelTest.moc"
