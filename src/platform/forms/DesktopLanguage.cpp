// SPDX-License-Identifier: MIT
// Qt's translations, and the texts that they lack.
#include "DesktopLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>
#include <array>

namespace torvane {

namespace {
struct KeyedText {
    const char* english; // as Qt has it, but for the "&"
    const char* key;
};

constexpr std::array table = {KeyedText{"OK", "ok"},        KeyedText{"Yes", "yes"},
                              KeyedText{"No", "no"},        KeyedText{"Cancel", "cancel"},
                              KeyedText{"Open", "open"},    KeyedText{"Save", "save"},
                              KeyedText{"Folder", "folder"}};

QString withoutMnemonic(QString text) { return text.remove(QLatin1Char('&')); }
} // namespace

/// What Qt's own translation lacks: it is asked second.
class DesktopLanguage::KeyedTexts : public QTranslator {
public:
    explicit KeyedTexts(const Source& source) : m_source(source) {}

    bool isEmpty() const override { return false; }
    // The program has no texts of its own that go through Qt, so that every one is Qt's.
    QString translate(const char*, const char* english, const char*, int) const override {
        const QString wanted = QString::fromUtf8(english);
        const auto* row = std::find_if(table.begin(), table.end(), [&](const KeyedText& text) {
            return withoutMnemonic(wanted) == QLatin1String(text.english);
        });
        if (row == table.end() || !m_source.text) return {};
        const QString text = m_source.text(row->key);
        return wanted.contains(QLatin1Char('&')) ? text : withoutMnemonic(text);
    }

private:
    const Source& m_source;
};

DesktopLanguage::DesktopLanguage() = default;
DesktopLanguage::~DesktopLanguage() = default;

void DesktopLanguage::follow() {
    if (!m_source.locale) return;
    const QString name = m_source.locale();
    if (m_keyed && name == m_locale) return;
    m_locale = name;
    const QLocale locale(name);
    QLocale::setDefault(locale); // for the kinds of files in a list of them
    m_qt = std::make_unique<QTranslator>();
    if (!m_keyed) {
        m_keyed = std::make_unique<KeyedTexts>(m_source);
        QCoreApplication::installTranslator(m_keyed.get());
    }
    if (m_qt->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                   QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(m_qt.get());
    }
}

} // namespace torvane
