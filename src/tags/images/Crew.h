// SPDX-License-Identifier: MIT
// Tasks on all processors, whose results are taken in the order of the tasks, on one thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace torvane {

class Crew {
public:
    class Task {
    public:
        virtual ~Task() = default;
        /// The work, on another thread. Must not fail.
        virtual void work() = 0;
        /// Takes the result, on the thread of the crew's owner.
        virtual void end() = 0;
    };

    /// `isOver` is asked on the owner's thread; once it is true, tasks that have not begun are dropped.
    explicit Crew(std::function<bool()> isOver, int threads = processors());
    /// Drops what has not begun, and waits for what has.
    ~Crew();
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    /// Adds a task; waits for the first ones if there are many. Tasks that are done end here.
    void add(std::unique_ptr<Task> task);
    /// Ends all tasks.
    void finish();

    /// On how many processors this process may run.
    static int processors();

private:
    struct Place {
        std::unique_ptr<Task> task;
        bool isDone = false;
    };
    void help();
    void endFirst();
    void drop();

    std::function<bool()> m_isOver;
    size_t m_most; // tasks that wait, work or are done but not ended
    std::mutex m_mutex;
    std::condition_variable m_hasWork;
    std::condition_variable m_isFirstDone;
    std::deque<std::unique_ptr<Place>> m_places; // in the order of the tasks
    size_t m_begun = 0;                          // how many of these have
    bool m_isClosing = false;
    std::vector<std::thread> m_threads;
};

} // namespace torvane
