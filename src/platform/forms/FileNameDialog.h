// SPDX-License-Identifier: MIT
// Qt's file dialog for the name of one file, which may have any bytes.
#pragma once

#include "../base/Seams.h"

#include <QFileDialog>

namespace torvane {

/// The proposed name keeps its bytes unless the user changes the text in the name field: the field can't show
/// bytes that are no UTF-8. Quotes are part of a name, where Qt takes them for marks around several names.
class FileNameDialog : public QFileDialog {
    Q_OBJECT

public:
    FileNameDialog(QWidget* parent, const FileQuestion& question, AcceptMode mode);

    /// Shows the dialog and waits for the answer: the spelled path of the file, or an empty text without one.
    QString ask();

protected:
    /// Takes the name. In a save dialog asks before a file is replaced, unless only its folder is wanted; a
    /// folder is entered.
    void accept() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void propose(const QString& fileName);
    QByteArray literalPath() const;
    bool mayReplace(const QByteArray& path);

    bool m_asksToReplace;
    QByteArray m_proposed; // the bytes of the proposed name
    QString m_shown;       // what the name field shows for them
    QByteArray m_chosen;
};

} // namespace torvane
