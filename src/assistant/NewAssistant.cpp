// SPDX-License-Identifier: MIT
// The pages of the assistant and the ways between them.
#include "NewAssistant.h"
#include "core/CompactWindow.h"
#include "core/GameShelf.h"
#include "platform/base/File.h"
#include "toolkit/InputWords.h"

namespace torvane {

namespace {
// Pixels. In every language the two answers of a question are its fourth and fifth line. Only with this
// distance do they lie on their hot areas, whatever the line height of the substitute font.
constexpr int linePitch = 22;
} // namespace

NewAssistant::NewAssistant(const Services& services) : NewAssistantDesign(services.runtime), m(services) {
    wireControls();
    Label2.setTwin(Label1);
    Label1.setLinePitch(linePitch);
    takeDrops();
    const QCursor hand =
        InputWords::handCursor(InputWords::handIcon(InputWords::Hand::overLink, devicePixelRatioF()));
    for (Label* area : {&AddFile, &AddDir, &ChameleonButton5, &ChameleonButton6}) {
        area->setCursor(hand);
        area->setVisible(false);
    }
    // Label2 holds the text, Label1 shows it.
    Label2.setVisible(false);
    FilePath.setVisible(false);
    Browse.setVisible(false);
}

void NewAssistant::wireControls() {
    wire(ChameleonButton2, &chameleonButton::Click, &NewAssistant::ChameleonButton2_Click);
    wire(chameleonButton1, &chameleonButton::Click, &NewAssistant::chameleonButton1_Click, Failure::reported);
    wire(chameleonButton3, &chameleonButton::Click, &NewAssistant::chameleonButton3_Click);
    wire(Browse, &chameleonButton::Click, &NewAssistant::Browse_Click);
    wire(File1, &FileList::Click, &NewAssistant::File1_Click);
    wire(AddFile, &Label::Click, &NewAssistant::AddFile_Click);
    wire(AddDir, &Label::Click, &NewAssistant::AddDir_Click, Failure::reported);
    // If an original can't be deleted the question stays open and can be answered the other way.
    wire(ChameleonButton5, &Label::Click, &NewAssistant::ChameleonButton5_Click, Failure::reported);
    wire(ChameleonButton6, &Label::Click, &NewAssistant::ChameleonButton6_Click);
    wire(Timer1, &Timer::Tick, &NewAssistant::Timer1_Tick);
    wire(
        *this, &Form::pathDropped, [this](const QString& path) { take({path}); }, Failure::reported);
}

QString NewAssistant::pageText(const char* first, const char* second, const char* third) const {
    return text(first) + QStringLiteral("\r\n\r\n  ") + text(second) + QStringLiteral("\r\n  ") + text(third);
}

void NewAssistant::Load() {
    ShowDialog(text("f1"));
    Page = 1;
    chameleonButton1.setCaption(text("next"));
    chameleonButton3.setCaption(text("first"));
    Browse.setCaption(text("browse"));
    ChameleonButton2.setCaption(text("exit"));
    chameleonButton4.setCaption(m.globals.TitlePrefix);
}

void NewAssistant::onUnload() {
    Timer1.setEnabled(false);
    m.shelf.refresh();
    m.compact.refresh();
}

void NewAssistant::chameleonButton1_Click() {
    if (m_copying.isOn()) return;
    switch (Page) {
    case 1: showChoice(); break;
    case 2: FromFolder == 1 ? showQuestion("f5b") : addFile(); break;
    default: Unload(); break;
    }
}

void NewAssistant::showChoice() {
    ShowDialog(pageText("f2", "f3", "f4"));
    Page = 2;
    chameleonButton1.setEnabled(false);
    AddFile.setVisible(true);
    AddDir.setVisible(true);
    setPicture(Two.deferred());
    FilePath.setVisible(false);
    Browse.setVisible(false);
}

void NewAssistant::showQuestion(const char* firstKey) {
    FilePath.setVisible(false);
    Browse.setVisible(false);
    AddFile.setVisible(false);
    AddDir.setVisible(false);
    setPicture(Three.deferred());
    ShowDialog(pageText(firstKey, "f6", "f7"));
    chameleonButton3.setEnabled(false);
    chameleonButton1.setEnabled(false);
    ChameleonButton5.setVisible(true);
    ChameleonButton6.setVisible(true);
}

void NewAssistant::showFailure() {
    setPicture(Four.deferred());
    ShowDialog(text("f8"));
}

void NewAssistant::finishPages() {
    chameleonButton1.setCaption(text("finish"));
    chameleonButton1.setEnabled(true);
    chameleonButton3.setEnabled(true);
    ChameleonButton5.setVisible(false);
    ChameleonButton6.setVisible(false);
    Page = 3;
}

void NewAssistant::chameleonButton3_Click() {
    if (m_copying.isOn()) return;
    Page = 1;
    chameleonButton1_Click();
    chameleonButton1.setEnabled(false);
    chameleonButton1.setCaption(text("next"));
}

// While games are being copied the window disappears at once, and unloads after the current file. A drop that
// waits for the answer to a question comes first.
void NewAssistant::ChameleonButton2_Click() {
    const bool isAsking = !ChameleonButton5.isHidden();
    if (!m_copying.isOn() && isAsking && !m_waiting.isEmpty()) return takeWaiting();
    m_copying.askToClose();
    if (m_copying.isOn()) {
        Hide();
    } else {
        Unload();
    }
}

void NewAssistant::take(const QStringList& paths) {
    if (isUnloaded()) return;
    const bool areOthersWaiting = !m_waiting.isEmpty();
    m_waiting += paths;
    if (!areOthersWaiting) takeWaiting();
}

// Takes the next drop. A window that was about to close stays open for it.
void NewAssistant::takeWaiting() {
    if (m_waiting.isEmpty() || m_copying.isOn() || isUnloaded()) return;
    m_copying.stayOpen();
    takePath(m_waiting.takeFirst());
}

void NewAssistant::takePath(const QString& path) {
    if (!ChameleonButton5.isHidden()) {
        ShowDialog(text("f11"));
        finishPages();
    }
    chameleonButton3_Click();
    if (File::isFolder(path)) {
        addFolder(path);
    } else {
        AddFile_Click();
        choose(path);
    }
}

} // namespace torvane
