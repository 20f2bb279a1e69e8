// SPDX-License-Identifier: MIT
// In every state of every window, each thing that can be pressed is clicked in one program and pressed in
// another one that is just the same. What has become of the two afterwards is the same, too.
#include "support/AccessibleTree.h"
#include "support/Archive.h"
#include "support/OpenedAssistant.h"
#include "support/PictureBytes.h"

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
using Opened = OpenedAssistant;
using Scene = void (*)(Opened&);

// Time does not count: what is being typed is typed to its end, and a hint goes.
void letTimePass() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        for (Timer* hint : window->findChildren<Timer*>(u"displayer"_s)) emit hint->Tick();
        for (Timer* timer : window->findChildren<Timer*>(u"Timer1"_s)) {
            for (int tick = 0; timer->Enabled() && tick < 1000 && window->isVisible(); ++tick)
                emit timer->Tick();
        }
    }
}

void describe(QAccessibleInterface& part, const QString& indent, QStringList& story) {
    const QAccessible::State state = part.state();
    story += u"%1%2 %3 \"%4\"%5%6%7%8"_s.arg(
        indent, part.object()->objectName(), QVariant::fromValue(part.role()).toString(),
        part.text(QAccessible::Name), state.disabled ? u" disabled"_s : u""_s,
        state.invisible ? u" invisible"_s : u""_s, state.pressed ? u" pressed"_s : u""_s,
        state.offscreen ? u" offscreen"_s : u""_s);
    for (int i = 0; i < part.childCount(); ++i) {
        if (part.child(i)->object() != nullptr) describe(*part.child(i), indent + u' ', story);
    }
}

// All that a press changes: on the screen, on the disk and outside of the program.
QString storyOf(Opened& opened) {
    QStringList story;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* form = qobject_cast<Form*>(window);
        if (form == nullptr || !form->isVisible()) continue;
        story += u"window %1 state %2"_s.arg(form->objectName()).arg(form->windowStateWord());
        describe(accessible(*form), u" "_s, story);
    }
    if (const MainFrm* main = opened.program->loaded<MainFrm>()) {
        story += u"row %1 at %2"_s.arg(main->ListView1.currentRow()).arg(main->ListView1.Top());
    }
    for (const FakeMessages::Box& box : opened.world.messages.boxes) story += u"box "_s + box.text;
    for (const FileQuestion& question : opened.world.dialogs.questions) story += u"asks "_s + question.title;
    for (const FakeProcesses::Start& start : opened.world.processes.starts) {
        story += u"starts "_s + QString::fromLatin1(start.arguments.join(' '));
    }
    story += opened.world.browser.urls;
    story += u"pages %1, screenshots %2"_s.arg(opened.world.printer.pages.size())
                 .arg(opened.world.folder.entries(u"roms/data/screenshots"_s).join(u' '));
    story += opened.world.folder.entries(u"data/lang"_s);
    story += u"ends %1, language %2"_s.arg(opened.world.ends).arg(opened.world.setting("Language"));
    story += opened.library();
    story.sort();
    return story.join(u'\n').replace(opened.world.appPath(), u"HERE"_s);
}

std::unique_ptr<Opened> arrange(Scene scene) {
    auto opened = std::make_unique<Opened>();
    scene(*opened);
    letTimePass();
    return opened;
}

QList<Control*> pressablesOf(const Form& window) {
    QList<Control*> found;
    for (Control* control : window.findChildren<Control*>()) {
        const bool isSeen = control->isExposed() && !accessible(*control).state().invisible;
        if (isSeen && control->isPressable() && control->isEnabled()) found.append(control);
    }
    return found;
}

Control& controlOf(const QString& window, const QString& name) {
    for (QWidget* form : QApplication::topLevelWidgets()) {
        if (form->objectName() != window) continue;
        if (auto* control = form->findChild<Control*>(name)) return *control;
    }
    qFatal("no control %s", qPrintable(name));
}

// A real click comes with the pointer above the control: so does the press here, for what that changes.
void pointAt(const Control& control) {
    if (control.liesInContainer()) hover(control);
    QCoreApplication::processEvents();
}

// Hot areas may lie beside the window, where no hand reaches them: they get the events of a click directly.
void clickOn(Control& control) {
    control.liesInContainer() ? click(control) : QTest::mouseClick(&control, Qt::LeftButton);
    for (int round = 0; round < 3; ++round) QCoreApplication::processEvents();
}

// The scenes: the states of the windows in which there are other things to press.
void library(Opened& opened) {
    opened.games(30);
    opened.open();
}
void editing(Opened& opened) {
    library(opened);
    click(opened.main().Edit_Menu);
    opened.main().EditID3Title.setText(u"Title"_s);
    opened.main().EditID3Company.setText(u"Company"_s);
    opened.main().EditID3Info.setText(u"Info"_s);
    opened.world.messages.answer = MsgBoxFlags::answerYes;
}
void archive(Opened& opened) {
    writeArchive(opened.world.folder.path(u"roms/game.zip"_s), {{u"game.gba"_s, "rom"}});
    opened.world.messages.answer = MsgBoxFlags::answerYes;
    opened.open();
}
void archiveWindow(Opened& opened) {
    archive(opened);
    click(opened.main().Zipper);
}
void question(Opened& opened) {
    library(opened);
    click(opened.main().chameleonButton1);
}
void compact(Opened& opened) {
    library(opened);
    opened.chooseRow(1);
    click(opened.main().ChameleonButton12);
    if (!QTest::qWaitForWindowExposed(opened.program->loaded<Torvette>())) qFatal("no compact window");
}
void compactOpen(Opened& opened) {
    compact(opened);
    click(opened.program->loaded<Torvette>()->ChameleonButton4);
}
void compactPinned(Opened& opened) {
    compactOpen(opened);
    click(opened.program->loaded<Torvette>()->ChameleonButton9);
}
void listSearch(Opened& opened) {
    library(opened);
    click(opened.main().Searcher);
    opened.program->loaded<AdvSearch>()->CRYTextBox1.setText(u"g020"_s);
}
void webSearch(Opened& opened) {
    library(opened);
    click(opened.main().chameleonButton6);
    opened.program->loaded<SearchROM>()->CRYTextBox1.setText(u"words"_s);
}
void controlPanel(Opened& opened) {
    opened.world.folder.write(u"data/site/tv_version.txt"_s, "[Torvane]\r\nLastVersion=2.0\r\n");
    library(opened);
    opened.world.messages.answer = MsgBoxFlags::answerYes;
    click(opened.main().chameleonButton8);
}
void generalOptions(Opened& opened) {
    controlPanel(opened);
    opened.dialogs().answer = opened.from() + u"/Este Directorio"_s;
    click(opened.program->loaded<ConfigNew>()->chameleonButton3);
}
void languages(Opened& opened) {
    library(opened);
    opened.world.messages.answer = MsgBoxFlags::answerYes;
    opened.dialogs().answer = opened.world.folder.write(u"outside/own.tvl"_s, "[FileInfo]\r\n");
    opened.program->desk.go(Window::ConfigNew, Window::SelLang);
    const FileList& list = opened.program->loaded<SelLang>()->File1;
    click(list, list.rowRect(0).center());
}
void about(Opened& opened) {
    library(opened);
    click(opened.main().chameleonButton5);
}
void firstStart(Opened& opened) {
    opened.world.setSetting("Language", QString());
    opened.start();
    if (!QTest::qWaitForWindowExposed(opened.program->loaded<SelLangStartUp>())) qFatal("no window");
}
void languageChosen(Opened& opened) {
    firstStart(opened);
    letTimePass();
    click(opened.program->loaded<SelLangStartUp>()->Label6);
}
void welcome(Opened& opened) { opened.openAssistant(); }
void choice(Opened& opened) {
    opened.openAssistant();
    opened.goToChoice();
    opened.dialogs().answer = opened.from();
    opened.original(u"new.gb"_s);
}
void file(Opened& opened) {
    opened.openAssistant();
    opened.goToFile();
    opened.dialogs().answer = opened.original(u"new.gb"_s);
}
void gallery(Opened& opened) {
    for (const char* name : {"a.bmp", "b.gif", "c.png"}) {
        opened.world.folder.write(u"roms/data/screenshots/"_s + QLatin1String(name),
                                  QLatin1String(name) == u"a.bmp"_s ? bmpBytes() : gifBytes());
    }
    library(opened);
    opened.world.messages.answer = MsgBoxFlags::answerYes;
    click(opened.main().chameleonButton4);
}
void enlarged(Opened& opened) {
    gallery(opened);
    click(opened.program->loaded<Compartir>()->ChameleonButton8);
}
void originals(Opened& opened) {
    opened.openAssistant();
    opened.copyFile(opened.original(u"new.gb"_s));
}
} // namespace

class AccessiblePressTest : public QObject {
    Q_OBJECT

    QStringList compared; // once is enough for what stays the same from scene to scene

private slots:
    void a_press_does_what_a_click_does_data() {
        QTest::addColumn<Scene>("scene");
        QTest::addColumn<QString>("window");
        QTest::addColumn<int>("leastCount");
        QTest::newRow("library") << Scene(library) << u"MainFrm"_s << 9;
        QTest::newRow("editing") << Scene(editing) << u"MainFrm"_s << 12;
        QTest::newRow("archive") << Scene(archive) << u"MainFrm"_s << 9;
        QTest::newRow("archive window") << Scene(archiveWindow) << u"ZIP_Viewer"_s << 2;
        QTest::newRow("question") << Scene(question) << u"TorvMsg"_s << 2;
        QTest::newRow("compact") << Scene(compact) << u"Torvette"_s << 5;
        QTest::newRow("compact, folded out") << Scene(compactOpen) << u"Torvette"_s << 6;
        QTest::newRow("compact, pinned") << Scene(compactPinned) << u"Torvette"_s << 6;
        QTest::newRow("search in the list") << Scene(listSearch) << u"AdvSearch"_s << 2;
        QTest::newRow("search in the web") << Scene(webSearch) << u"SearchROM"_s << 2;
        QTest::newRow("control panel") << Scene(controlPanel) << u"ConfigNew"_s << 4;
        QTest::newRow("general options") << Scene(generalOptions) << u"ConfGen"_s << 4;
        QTest::newRow("languages") << Scene(languages) << u"SelLang"_s << 5;
        QTest::newRow("about") << Scene(about) << u"Aboutfrm"_s << 2;
        QTest::newRow("first start") << Scene(firstStart) << u"SelLangStartUp"_s << 3;
        QTest::newRow("language chosen") << Scene(languageChosen) << u"SelLangStartUp"_s << 3;
        QTest::newRow("welcome") << Scene(welcome) << u"NewAssistant"_s << 3;
        QTest::newRow("choice") << Scene(choice) << u"NewAssistant"_s << 4;
        QTest::newRow("file") << Scene(file) << u"NewAssistant"_s << 4;
        QTest::newRow("gallery") << Scene(gallery) << u"Compartir"_s << 7;
        QTest::newRow("enlarged") << Scene(enlarged) << u"AmpliCaptura"_s << 4;
        QTest::newRow("originals") << Scene(originals) << u"NewAssistant"_s << 3;
    }
    void a_press_does_what_a_click_does() {
        QFETCH(Scene, scene);
        QFETCH(QString, window);
        QFETCH(int, leastCount);
        QStringList names;
        {
            const auto opened = arrange(scene);
            for (QWidget* form : QApplication::topLevelWidgets()) {
                if (form->objectName() != window) continue;
                for (Control* control : pressablesOf(*static_cast<Form*>(form)))
                    names += control->objectName();
            }
        }
        QVERIFY2(names.size() >= leastCount, qPrintable(names.join(u' ')));
        for (const QString& name : names) {
            if (compared.contains(window + name)) continue;
            compared += window + name;
            QString clicked;
            {
                const auto opened = arrange(scene);
                pointAt(controlOf(window, name));
                clickOn(controlOf(window, name));
                letTimePass();
                clicked = storyOf(*opened);
            }
            const auto opened = arrange(scene);
            pointAt(controlOf(window, name));
            QVERIFY2(press(controlOf(window, name)), qPrintable(name));
            letTimePass();
            const QString pressed = storyOf(*opened);
            if (pressed == clicked) continue;
            QFAIL(qPrintable(u"%1:\n--- clicked\n%2\n--- pressed\n%3"_s.arg(name, clicked, pressed)));
        }
    }
};

TORVANE_TEST(AccessiblePressTest)
#include "AccessiblePressTest.moc"
