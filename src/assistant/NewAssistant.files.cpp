// SPDX-License-Identifier: MIT
// What the assistant does to files: copies one or those of a folder, deletes the originals.
#include "NewAssistant.h"
#include "core/FailureTexts.h"
#include "platform/base/Paths.h"

#include <algorithm>

namespace torvane {

namespace {
const QString filter =
    QStringLiteral("Juegos de GameBoy|*.gba;*.gbc;*.gb;*.agb;*.cgb;*.zip;*.bin|Todos los Archivos|*.*");
} // namespace

// A single file

// The area is disabled for good: after going back it stays dead until the window is opened again.
void NewAssistant::AddFile_Click() {
    if (m_copying.isOn()) return;
    ShowDialog(text("f12"));
    AddFile.setEnabled(false);
    AddDir.setVisible(false);
    setPicture(Two.deferred());
    FilePath.setVisible(true);
    Browse.setVisible(true);
    FromFolder = 0;
    chameleonButton1.setEnabled(true);
}

void NewAssistant::Browse_Click() {
    if (m_copying.isOn()) return;
    const QString path = Dlg.ShowOpen({text("f14"), filter, 1, {}});
    if (!isUnloaded()) choose(path);
}

void NewAssistant::choose(const QString& path) {
    m_chosen = path;
    if (path.isEmpty() || path == QStringLiteral(" ")) {
        showFailure();
    } else {
        FilePath.setText(path);
    }
}

void NewAssistant::addFile() {
    SetFileAttributes(m_chosen);
    bool isCopied = false;
    const auto copy = [&] {
        m_copying.run([this] { copyFile(); });
        isCopied = true;
    };
    // If another file waits, it replaces the page that would show the failure.
    m_waiting.isEmpty() ? static_cast<void>(ignoring(copy)) : m.runtime.reporting(copy);
    workEnded([&] {
        if (isCopied) return showQuestion("f5");
        showFailure();
        takeWaiting();
    });
}

// Runs when copying has ended. If the user has closed the window meanwhile it unloads, unless something was
// dropped since.
void NewAssistant::workEnded(const std::function<void()>& goOn) {
    if (m_copying.isAskedToClose()) {
        m_waiting.isEmpty() ? Unload() : takeWaiting();
    } else {
        goOn();
    }
}

void NewAssistant::copyFile() {
    m_adding.begin(pumpEvents);
    const bool isOther = m_adding.AddRomToLibrary(m_chosen, Paths::bareName(m_chosen));
    m_adding.finish();
    pumpEvents();
    if (!isOther) throw RuntimeFailure(RuntimeFailure::permissionDenied);
}

// The games of a folder

void NewAssistant::AddDir_Click() {
    if (m_copying.isOn()) return;
    const QString folder = Dlg.ShowFolder({text("f12"), QStringLiteral("Todos los archivos|*.*"), 1, {}});
    if (!folder.isEmpty() && !isUnloaded()) addFolder(folder);
}

void NewAssistant::addFolder(const QString& folder) {
    try {
        m_copying.run([&] { copyFolder(folder); });
    } catch (const RuntimeFailure& failure) {
        runtime().reporting([&] { throw failure; });
        workEnded([this] { takeWaiting(); });
        return;
    }
    workEnded([this] {
        Page = 2;
        FromFolder = 1;
        chameleonButton1_Click();
    });
}

// The folder is the part of the path before the first occurrence of this text, as if a file dialog had been
// given it as a file name.
void NewAssistant::copyFolder(const QString& folder) {
    File1.setPath(folderInFront(folder + QLatin1Char('\\') + text("f13"), text("f13")));
    pumpEvents();
    m_adding.begin(pumpEvents);
    for (int i = 0; i < File1.ListCount() && !m_copying.isAskedToClose(); ++i) {
        File1.setListIndex(i);
        m_adding.AddRomToLibrary(File1.filePath(), File1.FileName());
    }
    m_adding.finish();
    pumpEvents();
}

void NewAssistant::File1_Click() {
    Pista.setScaleWidth(File1.ListCount());
    barra.setWidth(Pista.pixels(File1.ListIndex()));
}

// The originals, and the end

void NewAssistant::ChameleonButton5_Click() {
    if (m_copying.isOn()) return;
    const char* said = "f9";
    if (FromFolder == 1) {
        const Deletion deletion = m_adding.deleteSources();
        File1.Refresh();
        pumpEvents();
        if (!isUnloaded() && !deletion.kept.empty()) showKept(deletion.kept);
        said = deletion.kept.empty() ? "f10" : deletion.gone > 0 ? "f15" : "f11";
    } else if (!m_adding.deleteSource(FilePath.Text())) {
        showKept({m_adding.kept(FilePath.Text())});
        said = "f11";
    }
    if (isUnloaded()) return;
    ShowDialog(text(said, text("f11")));
    finishPages();
    takeWaiting();
}

// Names the originals that are still there: the user may believe them gone.
void NewAssistant::showKept(const std::vector<KeptSource>& kept) {
    constexpr size_t mostLines = 15;
    QStringList lines{text("kept", QStringLiteral("These originals are still there:"))};
    for (size_t i = 0; i < std::min(kept.size(), mostLines); ++i) {
        lines.append(lineOf(kept[i]));
    }
    if (kept.size() > mostLines) lines.append(QStringLiteral("... +%1").arg(kept.size() - mostLines));
    m.runtime.messages.MsgBox(lines.join(QStringLiteral("\r\n")), MsgBoxFlags::exclamation);
}

QString NewAssistant::lineOf(const KeptSource& kept) const {
    if (kept.failure) return FailureTexts(m.language).of(*kept.failure);
    const QString reason = kept.reason == KeptSource::isInLibrary
                               ? text("keptsame", QStringLiteral("it is the library's own file"))
                               : text("keptchanged", QStringLiteral("it has changed since the copy"));
    return Paths::bareName(kept.path) + QStringLiteral(": ") + reason;
}

void NewAssistant::ChameleonButton6_Click() {
    if (m_copying.isOn()) return;
    ShowDialog(text("f11"));
    finishPages();
    takeWaiting();
}

} // namespace torvane
