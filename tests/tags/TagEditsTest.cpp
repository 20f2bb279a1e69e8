// SPDX-License-Identifier: MIT
// Several programs at work on the same games: no change of one is overwritten by another that has not seen
// it.
#include "tags/edits/TagEdits.h"
#include "TagsProgram.h"
#include "support/Failing.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"
#include "tags/edits/GivenTag.h"
#include "tags/session/Interruption.h"
#include "tags/session/Session.h"

using namespace torvane;

class TagEditsTest : public QObject {
    Q_OBJECT

    // One command at work.
    class Work {
    public:
        explicit Work(const TagsProgram& program)
            : m_output(-1), m_reports(m_errors.descriptor()),
              m_session(program.folder.native("home"), m_output, m_reports, m_interruption),
              m_edits(TagEdits::Mode::forReal, m_session) {}

        TagEdits::State look(const GameFile& game) { return m_edits.stateOf(game); }
        void title(const GameFile& game, const TagEdits::State& seen, const QByteArray& title) {
            GivenTag tag;
            tag.title = title;
            tag.company = tag.info = QByteArray("x");
            m_edits.add({game, tag.over(seen.tag, seen.length, "1/2/03").fields}, seen);
        }
        void clear(const GameFile& game, const TagEdits::State& seen) {
            m_edits.add({game, std::nullopt}, seen);
        }
        QByteArray end() {
            m_edits.finish();
            return m_errors.content();
        }

    private:
        MemoryFile m_errors;
        Output m_output;
        Reports m_reports;
        Interruption m_interruption;
        Session m_session;
        TagEdits m_edits;
    };

    std::unique_ptr<TagsProgram> program;

    void write(const char* name, const QByteArray& bytes) const { program->folder.writeNative(name, bytes); }
    QByteArray read(const char* name) const {
        return bytesOfFile(program->folder.native(name).toStdString());
    }
    // Whether it is the image and the tag of one of the commands. Each tag that was replaced leaves a line
    // end.
    static bool isOneOf(int commands, const QByteArray& content) {
        QByteArray image(4096, 'r');
        for (int replaced = 0; replaced <= commands; ++replaced, image += "\r\n") {
            for (int command = 0; command < commands; ++command) {
                const TagLine::Fields fields{"Acme", "Title" + QByteArray::number(command), "1/2/03", "Info",
                                             QByteArray::number(image.size())};
                if (content == image + TagLine::build(fields)) return true;
            }
        }
        return false;
    }
    GameFile game(const char* name) const { return {name, program->folder.native(name)}; }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        write("a.gb", taggedGame("Old"));
        write("b.gb", taggedGame("Other"));
    }

    void a_tag_that_another_program_has_changed_meanwhile_stays_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("keepsTime");
        for (const bool keepsTime : {false, true}) {
            const char* time = keepsTime ? "same time" : "new time";
            QTest::addRow("another title, %s", time) << taggedGame("New") << keepsTime;
            QTest::addRow("longer, %s", time) << taggedGame("Longer") << keepsTime;
            QTest::addRow("only the date, %s", time)
                << taggedGame("Old", "Acme", "Info", "1/2/04") << keepsTime;
            QTest::addRow("no tag, %s", time) << QByteArray(4096, 'r') << keepsTime;
            QTest::addRow("the last byte, %s", time) << taggedGame("Old").chopped(1) + '\r' << keepsTime;
        }
    }
    void a_tag_that_another_program_has_changed_meanwhile_stays() {
        QFETCH(QByteArray, content);
        QFETCH(bool, keepsTime);
        for (const bool isSet : {true, false}) {
            write("a.gb", taggedGame("Old"));
            struct stat before {};
            QCOMPARE(stat(game("a.gb").path.constData(), &before), 0);
            Work work(*program);
            const auto seen = work.look(game("a.gb"));
            const auto other = work.look(game("b.gb"));
            write("a.gb", content);
            const timespec times[2] = {{0, UTIME_OMIT}, before.st_mtim};
            if (keepsTime) QCOMPARE(utimensat(AT_FDCWD, game("a.gb").path.constData(), times, 0), 0);
            isSet ? work.title(game("a.gb"), seen, "Mine") : work.clear(game("a.gb"), seen);
            work.title(game("b.gb"), other, "Mine");
            const QByteArray errors = work.end();
            QVERIFY(errors.startsWith("torvane-tags: a.gb: ") && errors.count('\n') == 1);
            QCOMPARE(read("a.gb"), content);
            QVERIFY(read("b.gb").contains("\xA7Mine\xA7"));
        }
    }
    void a_first_tag_does_not_replace_the_first_tag_of_another_program() {
        write("a.gb", QByteArray(4096, 'r'));
        Work one(*program);
        Work two(*program);
        const auto seenByOne = one.look(game("a.gb"));
        const auto seenByTwo = two.look(game("a.gb"));
        two.title(game("a.gb"), seenByTwo, "Two");
        QCOMPARE(two.end(), QByteArray());
        const QByteArray tagged = read("a.gb");
        one.title(game("a.gb"), seenByOne, "One");
        QVERIFY(one.end().contains("a.gb: "));
        QCOMPARE(read("a.gb"), tagged);
    }
    void a_run_without_changes_that_ends_late_leaves_the_undo_of_another_one() {
        std::optional<Work> failing(std::in_place, *program);
        const auto seen = failing->look(game("a.gb"));
        {
            const FullDisk full(4096);
            failing->title(game("a.gb"), seen, "Mine");
            QVERIFY(failing->end().contains("a.gb: "));
        }
        const QByteArray before = read("b.gb");
        QCOMPARE(program->runHere({"set", "b.gb", "--title", "New"}).status, 0);
        failing.reset();
        QCOMPARE(program->runHere({"undo"}).status, 0);
        QCOMPARE(read("b.gb"), before);
    }
    // Where there are no locks, another run may begin a log although this one is at work.
    void a_run_without_changes_leaves_a_log_that_has_replaced_its_own() {
        std::optional<Work> failing(std::in_place, *program);
        const auto seen = failing->look(game("a.gb"));
        {
            const FullDisk full(4096);
            failing->title(game("a.gb"), seen, "Mine");
            QVERIFY(failing->end().contains("a.gb: "));
        }
        write("other", "another log");
        QCOMPARE(rename(program->folder.native("other").constData(),
                        program->folder.native("home/roms/data/backup/last-run.undo").constData()),
                 0);
        failing.reset();
        QCOMPARE(read("home/roms/data/backup/last-run.undo"), QByteArray("another log"));
    }
    void runs_that_overlap_are_undone_together() {
        const QByteArray oldA = read("a.gb");
        const QByteArray oldB = read("b.gb");
        write("c.gb", taggedGame("C"));
        std::optional<Work> one(std::in_place, *program);
        std::optional<Work> two(std::in_place, *program);
        const auto set = [this](std::optional<Work>& work, const char* name, const QByteArray& title) {
            work->title(game(name), work->look(game(name)), title);
            QCOMPARE(work->end(), QByteArray());
        };
        set(one, "a.gb", "One");
        set(two, "a.gb", "LongerTwo");
        set(two, "b.gb", "Two");
        one.reset();
        set(two, "c.gb", "Two"); // the log still belongs to a run at work
        std::optional<Work> three(std::in_place, *program);
        set(three, "a.gb", "3");
        two.reset();
        three.reset();
        const std::array<QByteArray, 3> after{read("a.gb"), read("b.gb"), read("c.gb")};
        for (int i = 0; i < 3; ++i) {
            const ProgramRun run = program->runHere({"undo"});
            QCOMPARE(run.errors, QByteArray());
            QCOMPARE(run.status, 0);
            QCOMPARE(read("a.gb"), i == 1 ? after[0] : oldA);
            QCOMPARE(read("b.gb"), i == 1 ? after[1] : oldB);
            QCOMPARE(read("c.gb"), i == 1 ? after[2] : taggedGame("C"));
        }
    }
    void a_run_that_begins_after_the_end_of_another_one_is_undone_alone() {
        {
            Work one(*program);
            one.title(game("a.gb"), one.look(game("a.gb")), "One");
            QCOMPARE(one.end(), QByteArray());
        }
        const QByteArray between = read("a.gb");
        QCOMPARE(program->runHere({"set", "b.gb", "--title", "Two"}).status, 0);
        QCOMPARE(program->runHere({"undo"}).status, 0);
        QCOMPARE(read("a.gb"), between);
        QCOMPARE(read("b.gb"), taggedGame("Other"));
    }
    void a_short_game_is_compared_whole() {
        write("a.gb", "short");
        Work work(*program);
        const auto seen = work.look(game("a.gb"));
        write("a.gb", "Short");
        work.title(game("a.gb"), seen, "Mine");
        QVERIFY(work.end().contains("a.gb: "));
        QCOMPARE(read("a.gb"), QByteArray("Short"));
    }
    void the_first_byte_that_a_selection_sees_is_compared() {
        const qsizetype others = taggedGame("Old", "Acme", "").size() - 4096;
        QByteArray content = taggedGame("Old", "Acme", QByteArray(1025 - others, 'i'));
        write("a.gb", content);
        Work work(*program);
        const auto seen = work.look(game("a.gb"));
        QVERIFY(seen.tag.has_value());
        content[4096] = 'X'; // of the marker
        write("a.gb", content);
        work.title(game("a.gb"), seen, "Mine");
        QVERIFY(work.end().contains("a.gb: "));
        QCOMPARE(read("a.gb"), content);
    }
    void a_later_failure_has_the_name_of_its_game() {
        Work work(*program);
        work.title(game("a.gb"), work.look(game("a.gb")), "Mine");
        QCOMPARE(work.end(), QByteArray());
        const auto seen = work.look(game("b.gb"));
        write("b.gb", taggedGame("New"));
        work.title(game("b.gb"), seen, "Mine");
        QVERIFY(work.end().startsWith("torvane-tags: b.gb: "));
    }
    void a_game_may_be_named_twice_data() {
        QTest::addColumn<bool>("isHard");
        QTest::newRow("symbolic link") << false;
        QTest::newRow("hard link") << true;
    }
    // Each of them sees what the one before it has made.
    void a_game_may_be_named_twice() {
        QFETCH(bool, isHard);
        const QByteArray path = program->folder.native("a.gb");
        const QByteArray other = program->folder.native("link.gb");
        QCOMPARE(isHard ? link(path.constData(), other.constData())
                        : symlink(path.constData(), other.constData()),
                 0);
        const ProgramRun run = program->runHere({"set", "a.gb", "link.gb", "a.gb", "--title", "New"});
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 0);
        QVERIFY(read("a.gb").contains("\xA7New\xA7"));
        QVERIFY(read("link.gb").contains("\xA7New\xA7"));
    }
    void many_commands_at_once_leave_each_game_one_whole_tag() {
        constexpr int games = 20;
        constexpr int commands = 12;
        for (int i = 0; i < games; ++i) {
            const QByteArray name = "home/roms/" + QByteArray::number(i) + ".gb";
            write(name.constData(), i % 2 == 0 ? QByteArray(4096, 'r') : taggedGame("Old"));
        }
        std::vector<pid_t> children;
        const MemoryFile errors;
        for (int i = 0; i < commands; ++i) {
            const QByteArray title = "Title" + QByteArray::number(i);
            children.push_back(program->start({"--folder", "home", "set", "home/roms", "--title", title,
                                               "--company", "Acme", "--info", "Info", "--date", "1/2/03"},
                                              errors.descriptor(), errors.descriptor()));
        }
        for (const pid_t child : children) {
            const int status = TagsProgram::endOf(child);
            QVERIFY2(status == 0 || status == 1, QByteArray::number(status).constData());
        }
        for (const QByteArray& line : errors.content().split('\n'))
            QVERIFY2(line.isEmpty() || line.contains(".gb: "), line.constData());
        for (int i = 0; i < games; ++i) {
            const QByteArray name = "/" + QByteArray::number(i) + ".gb";
            const QByteArray content = read(("home/roms" + name).constData());
            // If each of them has found another one at work on it, all have reported it.
            const bool isRefused = errors.content().count(name + ": ") == commands;
            const QByteArray old = i % 2 == 0 ? QByteArray(4096, 'r') : taggedGame("Old");
            QVERIFY2(isRefused ? content == old : isOneOf(commands, content),
                     content.sliced(4096).constData());
        }
        const QStringList names = program->folder.entries(QStringLiteral("home/roms"));
        QVERIFY(std::none_of(names.begin(), names.end(),
                             [](const QString& name) { return name.startsWith(QLatin1Char('.')); }));
    }
};

TORVANE_APPLESS_TEST(TagEditsTest)
#include "TagEditsTest.moc"
