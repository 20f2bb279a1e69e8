// SPDX-License-Identifier: MIT
// The checks, from the form of a file to the width of each text.
#include "LanguageCheck.h"
#include "app/Windows.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/IniFile.h"
#include "support/CatalogueTable.h"
#include "support/WholeCaption.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>

namespace torvane {

namespace {
const auto tableFolder = QStringLiteral(TORVANE_TESTS_DIR "/tree/");
const QRegularExpression placeholder(QStringLiteral("\\{([^}]+)\\}"));

// "About/report" as a language file has it: "[About] report".
QString inFile(const QString& name) {
    return QStringLiteral("[%1] %2").arg(name.section(QLatin1Char('/'), 0, 0),
                                         name.section(QLatin1Char('/'), 1));
}

// A text is too long for a label, never too high: that is a matter of the font, which the window sees to.
void giveLinesRoom(const QWidget& form) {
    for (Label* label : form.findChildren<Label*>()) {
        QRect place = label->geometry();
        place.setTop(std::min(place.top(), place.bottom() + 1 - QFontMetrics(label->font()).height()));
        label->setGeometry(place);
    }
}
} // namespace

LanguageCheck::LanguageCheck() {
    QFile keys(tableFolder + QStringLiteral("language_keys.tsv"));
    if (!keys.open(QIODevice::ReadOnly)) qFatal("no table of the keys");
    for (const QByteArray& row : keys.readAll().trimmed().split('\n')) {
        const QString name = QString::fromLatin1(row).replace(QLatin1Char('\t'), QLatin1Char('/'));
        m_names.insert(name.toLower(), name);
    }
    for (const auto& row : tableRows(tableFolder + QStringLiteral("captions.tsv"))) {
        m_captions.append(
            {row[QStringLiteral("window")], row[QStringLiteral("control")],
             QString(row[QStringLiteral("caption")]).replace(QStringLiteral("\\n"), QStringLiteral("\r\n"))});
    }
    Windows::forEach([this]<typename W>() {
        auto form = std::make_unique<typename W::Design>(m_desktop.runtime);
        giveLinesRoom(*form);
        m_forms[form->objectName()] = std::move(form);
    });
}

LanguageCheck::~LanguageCheck() = default;

QStringList LanguageCheck::faultsOf(const QByteArray& bytes) {
    if (bytes.size() > IniFile::largestFile) {
        return {QStringLiteral("form: the file is larger than 4 MiB, and the program reads nothing of it")};
    }
    QStringList faults = formFaults(bytes);
    const Texts texts = textsOf(bytes, faults);
    QStringList missing;
    for (auto name = m_names.begin(); name != m_names.end(); ++name) {
        if (texts.value(name.key()).isEmpty()) missing += QStringLiteral("missing: ") + inFile(name.value());
    }
    missing.sort();
    return faults + missing + tooLong(texts);
}

QStringList LanguageCheck::formFaults(const QByteArray& bytes) {
    QStringList faults;
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString asUtf8 = utf8(bytes);
    if (!utf8.hasError() && asUtf8.size() != bytes.size()) {
        faults += QStringLiteral("form: this is UTF-8; save the file in code page 1252 (Windows-1252)");
    }
    const qsizetype ends = bytes.count("\r\n");
    if (ends != bytes.count('\n') || ends != bytes.count('\r')) {
        faults += QStringLiteral("form: end each line with CR LF");
    }
    return faults;
}

// Of a key that occurs twice the last text counts, as for the program.
LanguageCheck::Texts LanguageCheck::textsOf(const QByteArray& bytes, QStringList& faults) const {
    Texts texts;
    QString section;
    int number = 0;
    for (const QByteArray& raw : bytes.split('\n')) {
        const QString line = CodePage1252::fromBytes(raw).trimmed();
        const QString where = QStringLiteral("line %1: ").arg(++number);
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (line.isEmpty() || line.startsWith(QLatin1Char(';'))) continue;
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            section = line.sliced(1).chopped(1);
            continue;
        }
        if (equals <= 0 || section.isEmpty()) {
            faults += where + QStringLiteral("neither a section nor a text: ") + line;
            continue;
        }
        const QString name = section + QLatin1Char('/') + line.first(equals).trimmed();
        if (!m_names.contains(name.toLower())) {
            faults += where + QStringLiteral("surplus: ") + inFile(name);
        } else if (texts.contains(name.toLower())) {
            faults += where + QStringLiteral("a second time: ") + inFile(name);
        }
        texts.insert(name.toLower(), line.sliced(equals + 1).trimmed());
    }
    return texts;
}

QStringList LanguageCheck::tooLong(const Texts& texts) {
    QStringList faults;
    for (const Caption& caption : m_captions) {
        QString words = caption.words;
        QStringList names;
        bool isKnown = true;
        for (auto found = placeholder.match(words); found.hasMatch(); found = placeholder.match(words)) {
            const QString name = found.captured(1);
            const QString text = texts.value(name.toLower());
            isKnown = isKnown && !text.isEmpty();
            words.replace(found.capturedStart(), found.capturedLength(),
                          QString(text).remove(QLatin1Char('{')));
            names += inFile(m_names.value(name.toLower(), name));
        }
        if (!isKnown || isWhole(caption, words)) continue;
        faults += QStringLiteral("too long: %1 for %2 of %3: “%4”")
                      .arg(names.join(QStringLiteral(" + ")), caption.control, caption.window, words);
    }
    return faults;
}

// Two files of one language differ in few texts.
bool LanguageCheck::isWhole(const Caption& caption, const QString& words) {
    const QStringList key{caption.window, caption.control, words};
    const auto known = m_whole.constFind(key);
    return known != m_whole.constEnd() ? *known : *m_whole.insert(key, measure(caption, words));
}

bool LanguageCheck::measure(const Caption& caption, const QString& words) {
    const auto form = m_forms.find(caption.window);
    if (form == m_forms.end()) qFatal("no such window: %s", qPrintable(caption.window));
    auto* part = form->second->findChild<QWidget*>(caption.control.section(QLatin1Char('#'), 0, 0));
    if (auto* label = qobject_cast<Label*>(part)) {
        label->setCaption(words);
        return WholeCaption::isWhole(*label);
    }
    if (auto* skin = qobject_cast<TVLabel*>(part)) {
        skin->setCaption(words);
        return WholeCaption::isWhole(*skin);
    }
    if (auto* button = qobject_cast<chameleonButton*>(part)) {
        button->setCaption(words);
        return WholeCaption::isWhole(*button);
    }
    if (auto* toggle = qobject_cast<ToggleControl*>(part)) {
        toggle->setCaption(words);
        return WholeCaption::isWhole(*toggle);
    }
    if (auto* list = qobject_cast<ColumnListView*>(part)) {
        const int column = caption.control.section(QLatin1Char('#'), 1).toInt();
        list->setHeader(column, words);
        list->window()->show(); // a list has its headings only from then on
        return WholeCaption::isWhole(*list->findChild<QTableView*>()->horizontalHeader(), column);
    }
    qFatal("no such control: %s of %s", qPrintable(caption.control), qPrintable(caption.window));
}

} // namespace torvane
