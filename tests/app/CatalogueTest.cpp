// SPDX-License-Identifier: MIT
// Compares every window as designed, before any handler has run, with the catalogue of windows and controls.
#include "ControlLooks.h"
#include "app/Windows.h"
#include "art/ArtResources.h"
#include "platform/forms/ToggleControl.h"
#include "support/CatalogueTable.h"
#include "support/FakeWorld.h"
#include "support/TestMain.h"

#include <QDirIterator>

using namespace torvane;
using namespace Qt::StringLiterals;

using Row = QMap<QString, QString>;

namespace {
using Makers = QMap<QString, std::unique_ptr<Form> (*)(Runtime&)>;

// Makers of the designs in the program's list of windows, by window name.
const Makers makers = [] {
    Makers result;
    Windows::forEach([&]<typename W>() {
        const QString className = QString::fromLatin1(W::staticMetaObject.className());
        result.insert(className.section(u"::"_s, -1), [](Runtime& runtime) -> std::unique_ptr<Form> {
            return std::make_unique<typename W::Design>(runtime);
        });
    });
    return result;
}();

// This window holds nothing but the menu, which has a table of its own (see MenuingTest).
const QStringList withoutControls{u"Menuing"_s};

// The catalogue pairs this label with a label of another panel, below which it cannot be. In the design it is
// the shadow of the label 2 pixels away.
const QMap<QString, QString> otherSource{{u"MainFrm/Label35 of Label10"_s, u"GameTitle"_s}};

bool wasHidden(const QWidget& widget) {
    return widget.testAttribute(Qt::WA_WState_ExplicitShowHide) && widget.testAttribute(Qt::WA_WState_Hidden);
}
} // namespace

class CatalogueTest : public QObject {
    Q_OBJECT

    FakeWorld world;
    std::map<QString, std::unique_ptr<Form>> forms;
    QList<Row> windowRows;
    QList<Row> controlRows;

    Form& form() {
        QFETCH(Row, row);
        return *forms.at(row[u"window"_s]);
    }
    QObject* part() {
        QFETCH(Row, row);
        return form().findChild<QObject*>(row[u"control"_s]);
    }
    Control* control() { return qobject_cast<Control*>(part()); }
    static QString kindOf(const QObject* part) {
        if (const auto* control = qobject_cast<const Control*>(part)) return control->kind();
        const auto* component = qobject_cast<const Component*>(part);
        return component ? component->kind() : QString();
    }
    static QObjectList partsOf(const Form& window) {
        QObjectList parts;
        for (QObject* part : window.findChildren<QObject*>()) {
            if (!kindOf(part).isEmpty()) parts.append(part);
        }
        return parts;
    }
    QList<Row> rowsOf(const QString& window) const {
        QList<Row> rows;
        for (const Row& row : controlRows) {
            if (row[u"window"_s] == window) rows.append(row);
        }
        return rows;
    }
    void addControlRows() {
        QTest::addColumn<Row>("row");
        for (const Row& row : controlRows) {
            QTest::newRow(qPrintable(row[u"window"_s] + u'/' + row[u"control"_s])) << row;
        }
    }
    void addWindowRows(bool alsoThoseWithoutControls) {
        QTest::addColumn<Row>("row");
        for (const Row& row : windowRows) {
            const QString window = row[u"window"_s];
            if (!alsoThoseWithoutControls && withoutControls.contains(window)) continue;
            QTest::newRow(qPrintable(window)) << row;
        }
    }

private slots:
    void initTestCase();

    void every_design_is_compared();
    void a_window_matches_the_catalogue_data() { addWindowRows(true); }
    void a_window_matches_the_catalogue();
    void a_window_has_as_many_controls_of_each_kind_as_the_catalogue_counts_data() { addWindowRows(false); }
    void a_window_has_as_many_controls_of_each_kind_as_the_catalogue_counts();
    void a_window_has_no_control_that_the_catalogue_lacks_data() { addWindowRows(false); }
    void a_window_has_no_control_that_the_catalogue_lacks();
    void the_tab_key_follows_the_tab_order_data() { addWindowRows(false); }
    void the_tab_key_follows_the_tab_order();

    void a_control_has_its_name_and_kind_data() { addControlRows(); }
    void a_control_has_its_name_and_kind();
    void a_control_is_where_the_catalogue_puts_it_data() { addControlRows(); }
    void a_control_is_where_the_catalogue_puts_it();
    void a_control_has_its_place_in_the_tab_order_data() { addControlRows(); }
    void a_control_has_its_place_in_the_tab_order();
    void a_control_has_its_caption_data() { addControlRows(); }
    void a_control_has_its_caption();
    void a_control_is_hidden_disabled_and_explained_as_noted_data() { addControlRows(); }
    void a_control_is_hidden_disabled_and_explained_as_noted();
    void a_control_looks_as_noted_data() { addControlRows(); }
    void a_control_looks_as_noted();
};

void CatalogueTest::initTestCase() {
    initArtResources();
    windowRows = tableRows(QStringLiteral(TORVANE_TESTS_DIR "/catalogue/windows.tsv"));
    controlRows = tableRows(QStringLiteral(TORVANE_TESTS_DIR "/catalogue/controls.tsv"));
    QCOMPARE(windowRows.size(), 21);
    QCOMPARE(controlRows.size(), 420);
    for (auto maker = makers.begin(); maker != makers.end(); ++maker) {
        forms[maker.key()] = maker.value()(world.runtime);
    }
}

void CatalogueTest::every_design_is_compared() {
    QDirIterator designs(QStringLiteral(TORVANE_TESTS_DIR "/../src"), {u"*.design.h"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
    int count = 0;
    for (; designs.hasNext(); ++count) {
        designs.next();
        const QString window = designs.fileName().section(u'.', 0, 0);
        QVERIFY2(makers.contains(window), qPrintable(window));
    }
    QCOMPARE(count, 21);
}

// Windows

void CatalogueTest::a_window_matches_the_catalogue() {
    QFETCH(Row, row);
    const FormDesign& design = form().design();
    QCOMPARE(form().objectName(), row[u"window"_s]);
    QCOMPARE(form().windowTitle(), row[u"title"_s]);
    QCOMPARE(form().size(), QSize(row[u"width"_s].toInt(), row[u"height"_s].toInt()));
    QVERIFY(form().isWindow());

    const QMap<QString, FormDesign::Border> borders{{u"none"_s, FormDesign::none},
                                                    {u"fixed dialog"_s, FormDesign::fixedDialog},
                                                    {u"sizable"_s, FormDesign::sizable}};
    QVERIFY(borders.contains(row[u"border"_s]));
    QCOMPARE(design.border, borders[row[u"border"_s]]);
    QCOMPARE(form().windowFlags().testFlag(Qt::FramelessWindowHint), row[u"border"_s] == u"none"_s);
    QCOMPARE(form().minimumSize() == form().maximumSize(), row[u"border"_s] != u"sizable"_s);

    QCOMPARE(design.start == FormDesign::centreOfScreen, row[u"start position"_s] == u"centre of screen"_s);
    QCOMPARE(design.unit == FormDesign::twips, row[u"unit"_s] == u"twips"_s);
    QCOMPARE(design.inTaskBar, row[u"in task bar"_s] == u"yes"_s);
    QCOMPARE(form().windowType() == Qt::Window, row[u"in task bar"_s] == u"yes"_s);

    const QString back = row[u"back colour"_s];
    QCOMPARE(Colours::toQColor(design.backColour),
             Colours::toQColor(back == u"default"_s ? Colours::buttonFace : back.toUInt(nullptr, 16)));

    CatalogueNotes picture(row[u"background picture"_s]);
    const QSize jpeg = picture.takeSize(u"JPEG"_s);
    const QSize bitmap = picture.takeSize(u"bitmap"_s);
    const QSize size = jpeg.isValid() ? jpeg : bitmap.isValid() ? bitmap : QSize(0, 0);
    QCOMPARE(form().picture().deviceIndependentSize().toSize(), size);
    QCOMPARE(QByteArray(design.picture).endsWith(".jpg"), jpeg.isValid());
    QCOMPARE(QByteArray(design.picture).endsWith(".bmp"), bitmap.isValid());
}

void CatalogueTest::a_window_has_as_many_controls_of_each_kind_as_the_catalogue_counts() {
    QFETCH(Row, row);
    QMap<QString, int> expected;
    for (const QString& count : row[u"controls"_s].split(u", "_s)) {
        expected[count.section(u' ', 1)] = count.section(u' ', 0, 0).toInt();
    }
    QMap<QString, int> counted;
    for (const QObject* part : partsOf(form())) ++counted[kindOf(part)];
    QCOMPARE(counted, expected);
}

void CatalogueTest::a_window_has_no_control_that_the_catalogue_lacks() {
    QFETCH(Row, row);
    QStringList expected;
    for (const Row& known : rowsOf(row[u"window"_s])) expected.append(known[u"control"_s]);
    QStringList present;
    for (const QObject* part : partsOf(form())) present.append(part->objectName());
    expected.sort();
    present.sort();
    QCOMPARE(present, expected);
}

void CatalogueTest::the_tab_key_follows_the_tab_order() {
    QList<int> places;
    for (QWidget* next = form().nextInFocusChain(); next != &form(); next = next->nextInFocusChain()) {
        const auto* control = qobject_cast<Control*>(next);
        if (control && control->tabIndex() >= 0) places.append(control->tabIndex());
    }
    QVERIFY(!places.isEmpty());
    for (int position = 0; position < places.size(); ++position) QCOMPARE(places[position], position);
}

// Controls

void CatalogueTest::a_control_has_its_name_and_kind() {
    QFETCH(Row, row);
    QVERIFY2(part() != nullptr, "there is no control of that name");
    QCOMPARE(kindOf(part()), row[u"kind"_s]);
}

void CatalogueTest::a_control_is_where_the_catalogue_puts_it() {
    QFETCH(Row, row);
    QCOMPARE(control() == nullptr, row[u"left"_s].isEmpty());
    if (control() == nullptr) return;
    const DesignRect expected{row[u"left"_s].toDouble(), row[u"top"_s].toDouble(), row[u"width"_s].toDouble(),
                              row[u"height"_s].toDouble()};
    const DesignRect& actual = control()->designRect();
    QCOMPARE(QRectF(actual.left, actual.top, actual.width, actual.height),
             QRectF(expected.left, expected.top, expected.width, expected.height));
    const QPoint corner(qRound(expected.left), qRound(expected.top));
    // A link is as large as its caption.
    if (row[u"kind"_s] == u"link"_s) {
        QCOMPARE(control()->pos(), corner);
    } else {
        QCOMPARE(control()->geometry(),
                 QRect(corner, QSize(qRound(expected.width), qRound(expected.height))));
    }
}

void CatalogueTest::a_control_has_its_place_in_the_tab_order() {
    QFETCH(Row, row);
    const QString tab = row[u"tab"_s];
    QCOMPARE(control() ? control()->tabIndex() : -1, tab.isEmpty() ? -1 : tab.toInt());
}

void CatalogueTest::a_control_has_its_caption() {
    QFETCH(Row, row);
    const QString caption = row[u"caption"_s];
    if (const auto* label = qobject_cast<Label*>(part())) {
        QCOMPARE(label->Caption(), caption);
    } else if (const auto* button = qobject_cast<chameleonButton*>(part())) {
        QCOMPARE(button->Caption(), caption);
    } else if (const auto* skin = qobject_cast<TVLabel*>(part())) {
        QCOMPARE(skin->Caption(), caption);
    } else if (const auto* box = qobject_cast<TextBox*>(part())) {
        QCOMPARE(box->Text(), caption);
    } else if (const auto* toggle = qobject_cast<ToggleControl*>(part())) {
        QCOMPARE(toggle->Caption(), caption);
    } else {
        QCOMPARE(caption, QString());
    }
}

void CatalogueTest::a_control_is_hidden_disabled_and_explained_as_noted() {
    QFETCH(Row, row);
    if (control() == nullptr) return;
    CatalogueNotes notes(row[u"notes"_s]);
    QCOMPARE(wasHidden(*control()), notes.take(u"hidden"_s));
    const bool disabled = notes.take(u"disabled"_s);
    if (const auto* button = qobject_cast<chameleonButton*>(part())) {
        QCOMPARE(button->Enabled(), !disabled);
    } else {
        QCOMPARE(control()->isEnabled(), !disabled);
    }
    QCOMPARE(control()->toolTip(), notes.takeQuoted(u"tip"_s));
}

void CatalogueTest::a_control_looks_as_noted() {
    QFETCH(Row, row);
    QVERIFY(part() != nullptr);
    CatalogueNotes notes(row[u"notes"_s]);
    // Other tests compare these.
    notes.take(u"hidden"_s);
    notes.take(u"disabled"_s);
    if (row[u"kind"_s] == u"button"_s) notes.takeQuoted(u"tip"_s);
    const QString noted = notes.takeAfter(u"shadow of"_s).value_or(QString());
    if (noted.isEmpty()) {
        compareLook(*part(), notes);
    } else {
        compareShadow(*part(), otherSource.value(
                                   QString::fromUtf8(QTest::currentDataTag()) + u" of "_s + noted, noted));
    }
    QVERIFY2(notes.rest().isEmpty(), qPrintable(u"not compared: "_s + notes.rest()));
}

TORVANE_TEST(CatalogueTest)
#include "CatalogueTest.moc"
