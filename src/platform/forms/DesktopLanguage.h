// SPDX-License-Identifier: MIT
// The language of Qt's own texts: buttons of message boxes, file dialogs, menus of text fields.
#pragma once

#include <QString>
#include <functional>
#include <memory>

class QTranslator;

namespace torvane {

/// Loads nothing until the first dialog asks, and again only if the language is another one by then.
class DesktopLanguage {
public:
    /// Where the language comes from; each function is asked whenever it is needed.
    struct Source {
        std::function<QString()> locale; ///< a name such as "es" or "pt_BR"; any other text means English
        /// A text for a key, where Qt has no translation: "ok", "yes", "no", "cancel", "open", "save" or
        /// "folder". Empty if there is none.
        std::function<QString(const char*)> text;
    };

    DesktopLanguage();
    ~DesktopLanguage();
    DesktopLanguage(const DesktopLanguage&) = delete;
    DesktopLanguage& operator=(const DesktopLanguage&) = delete;

    /// Without a source nothing is loaded at all.
    void setSource(Source source) { m_source = std::move(source); }
    /// From now on Qt's texts are in the source's language. To be called before a dialog is made.
    void follow();

private:
    class KeyedTexts;

    Source m_source;
    QString m_locale; // of what is loaded
    std::unique_ptr<KeyedTexts> m_keyed;
    std::unique_ptr<QTranslator> m_qt;
};

} // namespace torvane
