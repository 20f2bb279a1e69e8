// SPDX-License-Identifier: MIT
// Proposing, reading and checking a file name.
#include "FileNameDialog.h"
#include "../base/NativeText.h"
#include "../base/Paths.h"
#include "DesktopDialogs.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <sys/stat.h>

namespace torvane {

namespace {
QLineEdit* nameField(const QFileDialog& dialog) {
    return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

QPushButton* acceptButton(const QFileDialog& dialog) {
    const auto kind =
        dialog.acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open;
    return dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(kind);
}

bool isThere(const QByteArray& path, bool& isFolder) {
    struct stat info {};
    const bool exists = stat(path.constData(), &info) == 0;
    isFolder = exists && S_ISDIR(info.st_mode);
    return exists;
}
} // namespace

FileNameDialog::FileNameDialog(QWidget* parent, const FileQuestion& question, AcceptMode mode)
    : QFileDialog(parent, question.title), m_asksToReplace(mode == AcceptSave && !question.isForFolder) {
    // A desktop's own dialog would follow the desktop's language, and carries names as UTF-8 alone.
    setOption(DontUseNativeDialog);
    setOption(DontConfirmOverwrite); // accept() asks, in plain text
    setAcceptMode(mode);
    setFileMode(mode == AcceptSave ? AnyFile : ExistingFile);
    const QStringList filters = DesktopFileDialogs::nameFilters(question.filter);
    setNameFilters(filters);
    if (question.filterIndex >= 1 && question.filterIndex <= filters.size()) {
        selectNameFilter(filters[question.filterIndex - 1]);
    }
    acceptButton(*this)->installEventFilter(this);
    if (!question.fileName.isEmpty()) propose(question.fileName);
}

bool FileNameDialog::eventFilter(QObject* watched, QEvent* event) {
    // Qt switches the button off where it finds no name between the quotes.
    auto* button = qobject_cast<QPushButton*>(watched);
    if (event->type() == QEvent::EnabledChange && !button->isEnabled() && !literalPath().isEmpty()) {
        button->setEnabled(true);
    }
    return QFileDialog::eventFilter(watched, event);
}

// A bare name is no path: it must not be looked up in the current folder.
void FileNameDialog::propose(const QString& fileName) {
    const QString name = Paths::bareName(fileName);
    const QString folder = fileName.chopped(name.size());
    if (!folder.isEmpty()) setDirectory(QFile::decodeName(Paths::real(folder)));
    m_proposed = NativeText::toNative(name);
    nameField(*this)->setText(QFile::decodeName(m_proposed));
    m_shown = nameField(*this)->text();
}

QString FileNameDialog::ask() { return exec() == Accepted ? Paths::spelled(m_chosen) : QString(); }

// The path that the name field stands for, where Qt would take it for several names or complete it; else
// empty.
QByteArray FileNameDialog::literalPath() const {
    QByteArray folder = QFile::encodeName(directory().absolutePath());
    if (!folder.endsWith('/')) folder += '/';
    const QString text = nameField(*this)->text();
    if (!m_proposed.isEmpty() && text == m_shown) return folder + m_proposed;
    if (!text.contains(QLatin1Char('"')) && !text.contains(QLatin1Char('/'))) return {};
    const QByteArray name = QFile::encodeName(text);
    if (name.startsWith("~/")) return QFile::encodeName(QDir::homePath()) + name.sliced(1);
    return name.startsWith('/') ? name : folder + name;
}

void FileNameDialog::accept() {
    const QByteArray literal = literalPath();
    const QByteArray path = literal.isEmpty() ? QFile::encodeName(selectedFiles().value(0)) : literal;
    bool isFolder = false;
    const bool exists = isThere(path, isFolder);
    if (exists && !isFolder && m_asksToReplace && !mayReplace(path)) return;
    m_chosen = path;
    if (literal.isEmpty() || (!exists && acceptMode() == AcceptOpen)) {
        QFileDialog::accept();
    } else if (isFolder) {
        setDirectory(QFile::decodeName(path));
    } else {
        QDialog::accept();
    }
}

bool FileNameDialog::mayReplace(const QByteArray& path) {
    QMessageBox box(this);
    box.setTextFormat(Qt::PlainText);
    box.setIcon(QMessageBox::Warning);
    box.setWindowTitle(windowTitle());
    box.setText(QFileDialog::tr("%1 already exists.\nDo you want to replace it?")
                    .arg(QFile::decodeName(path.sliced(path.lastIndexOf('/') + 1))));
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

} // namespace torvane
