// SPDX-License-Identifier: MIT
// Message boxes, file dialogs and the opener of addresses, on Qt's own.
#include "DesktopDialogs.h"
#include "../base/Paths.h"
#include "FileNameDialog.h"
#include "Form.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QMessageBox>
#include <QPointer>
#include <QTextBoundaryFinder>
#include <QUrl>

namespace torvane {

namespace {
constexpr int iconMask = 0x70;
constexpr int longestWord = 40;
constexpr QChar invisibleBlank(0x200B);
constexpr qsizetype longestText = 1500; // characters: of more, a screen may not show the button below

QMessageBox::Icon iconOf(int flags) {
    switch (flags & iconMask) {
    case MsgBoxFlags::critical: return QMessageBox::Critical;
    case MsgBoxFlags::question: return QMessageBox::Question;
    case MsgBoxFlags::exclamation: return QMessageBox::Warning;
    case MsgBoxFlags::information: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

// A box wraps its lines at blanks alone, and would be as wide as the longest word in it. The name of a file
// may be wider than the screen: it gets places to wrap that nobody sees.
QString wrappable(const QString& text) {
    QString wrapped;
    int wordLength = 0;
    qsizetype from = 0;
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype to = letters.toNextBoundary(); to > from; to = letters.toNextBoundary()) {
        wordLength = text[from].isSpace() ? 0 : wordLength + 1;
        if (wordLength > longestWord) {
            wrapped += invisibleBlank;
            wordLength = 1;
        }
        wrapped += QStringView(text).sliced(from, to - from);
        from = to;
    }
    return wrapped;
}

// Texts come out of files, too: Qt would lay out a million characters, and the button would be out of reach.
QString cutToScreen(const QString& text) {
    return text.size() <= longestText ? text : text.first(longestText) + QChar(0x2026);
}

void follow(DesktopLanguage* language) {
    if (language != nullptr) language->follow();
}

// The window that a dialog belongs to, which has the focus again when the dialog is gone.
class Asker {
public:
    Asker() : m_window(QApplication::activeWindow()) {}
    ~Asker() {
        if (auto* form = qobject_cast<Form*>(m_window.data())) form->takeFocusOfClosed();
    }
    Asker(const Asker&) = delete;
    Asker& operator=(const Asker&) = delete;

    QWidget* window() const { return m_window; }

private:
    QPointer<QWidget> m_window;
};
} // namespace

int DesktopMessageBoxes::MsgBox(const QString& text, int flags, const QString& title) {
    follow(m_language);
    const Asker asker;
    QMessageBox box(asker.window());
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(title.isEmpty() ? QApplication::applicationDisplayName() : title);
    box.setText(wrappable(cutToScreen(text)));
    box.setIcon(iconOf(flags));
    const bool asks = (flags & 0xF) == MsgBoxFlags::yesNo;
    box.setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    // Closing a question without an answer must not be taken for a yes.
    if (asks) box.setEscapeButton(QMessageBox::No);
    const int answer = box.exec();
    if (!asks) return MsgBoxFlags::answerOk;
    return answer == QMessageBox::Yes ? MsgBoxFlags::answerYes : MsgBoxFlags::answerNo;
}

QStringList DesktopFileDialogs::nameFilters(const QString& filter) {
    QStringList filters;
    const QStringList parts = filter.split(QLatin1Char('|'));
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        if (patterns.isEmpty()) continue;
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        filters.append(parts[i] + QStringLiteral(" (") + patterns + QLatin1Char(')'));
    }
    return filters;
}

QString DesktopFileDialogs::showOpen(const FileQuestion& question) {
    follow(m_language);
    const Asker asker;
    return FileNameDialog(asker.window(), question, QFileDialog::AcceptOpen).ask();
}

QString DesktopFileDialogs::showSave(const FileQuestion& question) {
    follow(m_language);
    const Asker asker;
    return FileNameDialog(asker.window(), question, QFileDialog::AcceptSave).ask();
}

QString DesktopFileDialogs::showFolder(const FileQuestion& question) {
    follow(m_language);
    const Asker asker;
    QFileDialog dialog(asker.window(), question.title);
    dialog.setOption(QFileDialog::DontUseNativeDialog); // see FileNameDialog
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return Paths::spelled(QFile::encodeName(dialog.selectedFiles().first()));
}

// Other schemes may start any program of the desktop.
bool DesktopBrowser::open(const QString& url) {
    const QUrl address = QUrl::fromUserInput(url);
    const QString scheme = address.scheme();
    const bool isPage = scheme == QStringLiteral("http") || scheme == QStringLiteral("https");
    return (isPage || address.isLocalFile()) && QDesktopServices::openUrl(address);
}

} // namespace torvane
