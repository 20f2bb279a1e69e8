// SPDX-License-Identifier: MIT
// Tasks on several threads.
#include "tags/images/Crew.h"
#include "support/TestMain.h"

#include <atomic>
#include <semaphore>

using namespace torvane;

namespace {
class CallingTask : public Crew::Task {
public:
    CallingTask(std::function<void()> work, std::function<void()> end)
        : m_work(std::move(work)), m_end(std::move(end)) {}
    void work() override { m_work(); }
    void end() override { m_end(); }

private:
    std::function<void()> m_work;
    std::function<void()> m_end;
};

std::unique_ptr<CallingTask> task(std::function<void()> work, std::function<void()> end) {
    return std::make_unique<CallingTask>(std::move(work), std::move(end));
}
bool never() { return false; }
} // namespace

class CrewTest : public QObject {
    Q_OBJECT

private slots:
    void results_come_in_the_order_of_the_tasks_on_one_thread() {
        for (const int threads : {1, 2, 7}) {
            std::vector<int> ended;
            std::atomic<int> worked = 0;
            const auto own = std::this_thread::get_id();
            bool isOwn = true;
            Crew crew(never, threads);
            for (int i = 0; i < 1000; ++i) {
                crew.add(task([&worked, i] { worked += i % 3 == 0 ? 1 : 1; },
                              [&, i] {
                                  isOwn = isOwn && std::this_thread::get_id() == own;
                                  ended.push_back(i);
                              }));
            }
            crew.finish();
            QCOMPARE(worked, 1000);
            QCOMPARE(ended.size(), size_t{1000});
            QVERIFY(std::is_sorted(ended.begin(), ended.end()));
            QVERIFY(isOwn);
        }
    }
    void tasks_work_at_the_same_time() {
        std::binary_semaphore one{0};
        std::binary_semaphore other{0};
        Crew crew(never, 2);
        // Each waits for the other one.
        crew.add(task([&] { one.release(), other.acquire(); }, [] {}));
        crew.add(task([&] { other.release(), one.acquire(); }, [] {}));
        crew.finish();
    }
    void there_is_a_limit_to_tasks_that_wait() {
        int ended = 0;
        int most = 0;
        Crew crew(never, 1);
        for (int i = 1; i <= 500; ++i) {
            crew.add(task([] {}, [&] { ++ended; }));
            most = std::max(most, i - ended);
        }
        QVERIFY(most <= 16);
        crew.finish();
        QCOMPARE(ended, 500);
    }
    void what_has_not_begun_is_dropped_once_it_is_over() {
        std::counting_semaphore<100> mayGo{0};
        std::binary_semaphore hasBegun{0};
        std::atomic<int> worked = 0;
        int ended = 0;
        bool isOver = false;
        std::counting_semaphore<100> isAsked{0};
        const auto whetherItIs = [&] {
            if (isOver) isAsked.release();
            return isOver;
        };
        Crew crew(whetherItIs, 1);
        for (int i = 0; i < 10; ++i) {
            crew.add(task(
                [&] {
                    hasBegun.release();
                    mayGo.acquire();
                    ++worked;
                },
                [&] { ++ended; }));
        }
        hasBegun.acquire();
        isOver = true;
        // The task at work goes on when the others have been dropped, or else after a while.
        std::thread later([&] {
            (void)isAsked.try_acquire_for(std::chrono::seconds(5));
            mayGo.release(100 - 1);
        });
        crew.finish();
        later.join();
        QCOMPARE(worked, 1);
        QCOMPARE(ended, 1);
    }
    void a_crew_may_be_given_up() {
        std::atomic<int> worked = 0;
        int ended = 0;
        {
            Crew crew(never, 2);
            for (int i = 0; i < 10; ++i) crew.add(task([&] { ++worked; }, [&] { ++ended; }));
        }
        QVERIFY(worked <= 10);
        QCOMPARE(ended, 0);
    }
    void there_is_at_least_one_processor() { QVERIFY(Crew::processors() >= 1); }
};

TORVANE_APPLESS_TEST(CrewTest)
#include "CrewTest.moc"
