// SPDX-License-Identifier: MIT
// Examines a language file for its translator: what is missing, what nobody asks for, what breaks the form,
// and which texts their controls would cut. The windows are made as they are designed; none of their handlers
// runs.
#pragma once

#include "platform/forms/Form.h"
#include "support/FakeDesktop.h"

#include <QHash>
#include <map>
#include <memory>

namespace torvane {

class LanguageCheck {
public:
    /// Reads the tables of the keys and of the captions. Needs an application with a screen.
    LanguageCheck();
    ~LanguageCheck();

    /// One sentence for each fault of a file with these bytes; none if all is well.
    QStringList faultsOf(const QByteArray& bytes);

    /// A caption of the table: texts of the file in braces, {section/key}, and what the window adds to them.
    struct Caption {
        QString window;
        QString control; ///< with "#2" at its end, the third heading of a list
        QString words;
    };
    const QList<Caption>& captions() const { return m_captions; }

private:
    using Texts = QHash<QString, QString>; // by section, "/" and key in lower case

    static QStringList formFaults(const QByteArray& bytes);
    Texts textsOf(const QByteArray& bytes, QStringList& faults) const;
    QStringList tooLong(const Texts& texts);
    bool isWhole(const Caption& caption, const QString& words);
    bool measure(const Caption& caption, const QString& words);

    FakeDesktop m_desktop;
    std::map<QString, std::unique_ptr<Form>> m_forms;
    QHash<QString, QString> m_names; // the keys that windows ask for, as they spell them, by those of Texts
    QList<Caption> m_captions;
    QHash<QStringList, bool> m_whole; // what has been measured: by window, control and words
};

} // namespace torvane
