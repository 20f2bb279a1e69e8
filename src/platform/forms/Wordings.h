// SPDX-License-Identifier: MIT
// The texts of a window that follow the language although no handler sets them: its tool tips, and the names
// by which assistive tools call what shows no words of its own. Where the texts come from is not known here.
#pragma once

#include <QList>
#include <QString>
#include <functional>

class QWidget;

namespace torvane {

/// A text as the design has it, and where a language file may have it in its own language.
struct Wording {
    const char* section = "";
    const char* key = "";
    const char* text = ""; ///< UTF-8; stands in where the file lacks the key
};

class Wordings {
public:
    /// Gives the text of a section's key; empty for a missing one.
    using Reader = std::function<QString(const QString& section, const QString& key)>;

    /// The widget is called so from now on, at first in the design's words.
    void addName(QWidget& widget, const Wording& name);
    /// The same for its tool tip; nothing happens if the design has none.
    void addToolTip(QWidget& widget, const Wording& tip);
    /// Takes all of them from the reader.
    void follow(const Reader& read) const;

private:
    using Setter = void (*)(QWidget&, const QString&);
    struct Entry {
        QWidget* widget;
        Wording wording;
        Setter set;
    };
    void add(const Entry& entry);

    QList<Entry> m_entries;
};

/// Gives a widget its name for assistive tools. What it holds within itself, such as a text box its editor,
/// is called the same.
void setSpokenName(QWidget& widget, const QString& name);

} // namespace torvane
