// SPDX-License-Identifier: MIT
// Files that another program keeps others from opening, as batches of this one do: who comes waits for a
// while.
#include "platform/base/EndChanges.h"
#include "platform/base/File.h"
#include "platform/base/Lease.h"
#include "support/FileFixture.h"
#include "support/OtherProgram.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <future>
#include <thread>

using namespace torvane;
using namespace std::chrono_literals;
using SafeFile::Change;

namespace {
const QByteArray content = "content";
const QByteArrayList deeds{"read", "copied", "appended to", "replaced", "changed at its end"};
} // namespace

class HeldFileTest : public FileFixture {
    Q_OBJECT

    std::unique_ptr<OtherProgram> holder(const char* name) const {
        return std::make_unique<OtherProgram>([path = folder->native(name)] {
            static const Handle held(open(path.constData(), O_RDWR));
            if (!holdUpOthers(held)) _exit(1);
        });
    }
    // One of the deeds, to a.gb.
    void work(const QByteArray& deed) const {
        if (deed == "read" && File::contentOf(at("a.gb")) != content) qFatal("it has other bytes");
        if (deed == "copied") SafeFile::copy(at("a.gb"), at("b.gb"));
        if (deed == "appended to") SafeFile::append(at("a.gb"), [](qint64) { return QByteArray("+"); });
        if (deed == "replaced") Change(at("a.gb")).commit({content});
        if (deed == "changed at its end") Change(at("a.gb"), Change::Part::end).commitEnd(0, {content});
    }
    std::optional<RuntimeFailure> failureAt(const QByteArray& deed) const {
        try {
            work(deed);
        } catch (const RuntimeFailure& failure) {
            return failure;
        }
        return std::nullopt;
    }

private slots:
    void init() {
        renewFolder();
        write("a.gb", content);
    }

    void a_file_that_is_held_for_a_moment_is_waited_for_data() {
        QTest::addColumn<QByteArray>("deed");
        for (const QByteArray& deed : deeds) QTest::newRow(deed.constData()) << deed;
    }
    void a_file_that_is_held_for_a_moment_is_waited_for() {
        QFETCH(QByteArray, deed);
        const auto other = holder("a.gb");
        QElapsedTimer clock;
        clock.start();
        std::thread release([&] {
            std::this_thread::sleep_for(200ms);
            other->letGo();
        });
        const auto failure = failureOf([&] { work(deed); });
        release.join();
        QCOMPARE(failure, std::optional<int>());
        QVERIFY(clock.elapsed() >= 200);
        QCOMPARE(other->end(), 0);
    }
    void a_file_that_stays_held_is_in_use() {
        const auto other = holder("a.gb");
        QElapsedTimer clock;
        clock.start();
        std::vector<std::future<std::optional<RuntimeFailure>>> failures;
        for (const QByteArray& deed : deeds) {
            failures.push_back(std::async(std::launch::async, [this, deed] { return failureAt(deed); }));
        }
        for (auto& failure : failures) {
            const auto found = failure.get();
            QVERIFY(found.has_value());
            QCOMPARE(found->number(), RuntimeFailure::permissionDenied);
            QCOMPARE(found->reason(), RuntimeFailure::Reason::inUse);
        }
        QVERIFY(clock.elapsed() >= usualPatience.count());
        QCOMPARE(other->end(), 0);
        QCOMPARE(read("a.gb"), content);
    }
    void a_second_run_of_the_program_changes_a_file_after_the_first_data() {
        QTest::addColumn<bool>("isReader"); // someone reads it, so it is replaced instead
        QTest::newRow("in place") << false;
        QTest::newRow("replaced") << true;
    }
    void a_second_run_of_the_program_changes_a_file_after_the_first() {
        QFETCH(bool, isReader);
        const Handle reader(isReader ? open(folder->native("a.gb").constData(), O_RDONLY) : -1);
        const auto append = [&](const QByteArray& end) {
            const Change change(at("a.gb"), Change::Part::end);
            std::this_thread::sleep_for(20ms);
            change.commitEnd(change.length(), {end});
        };
        OtherProgram other([&] {
            std::thread([&] { append("first"); }).detach();
            std::this_thread::sleep_for(5ms);
        });
        append("second");
        QTRY_VERIFY(read("a.gb").size() == 18);
        QCOMPARE(other.end(), 0);
        QVERIFY(read("a.gb") == "contentfirstsecond" || read("a.gb") == "contentsecondfirst");
    }
    // Each of two batches may hold what the other one needs.
    void a_batch_does_its_other_files_before_it_waits() {
        write("b.gb", content);
        const auto other = holder("a.gb");
        QByteArray otherAtTheTime;
        std::thread release([&] {
            while (otherAtTheTime != "content+") {
                std::this_thread::sleep_for(5ms);
                QFile file(at("b.gb"));
                if (file.open(QIODevice::ReadOnly)) otherAtTheTime = file.readAll();
            }
            other->letGo();
        });
        EndChanges changes;
        const EndChanges::Decide decide = [](const Handle& file) {
            return std::optional(EndChanges::End{torvane::infoOf(file).st_size, "+"});
        };
        for (const char* name : {"a.gb", "b.gb"}) changes.add(at(name), decide);
        const auto results = changes.finish();
        release.join();
        QVERIFY(results[0].isDone && !results[0].failure);
        QVERIFY(results[1].isDone && !results[1].failure);
        QCOMPARE(read("a.gb"), QByteArray("content+"));
    }
};

TORVANE_APPLESS_TEST(HeldFileTest)
#include "HeldFileTest.moc"
