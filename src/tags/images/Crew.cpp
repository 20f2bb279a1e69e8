// SPDX-License-Identifier: MIT
// Threads that take one task after the other.
#include "Crew.h"

#include <algorithm>
#include <sched.h>

namespace torvane {

namespace {
// A large game holds up the ends of those after it, but not their work.
constexpr size_t tasksPerThread = 16;
} // namespace

int Crew::processors() {
    cpu_set_t set;
    return sched_getaffinity(0, sizeof set, &set) == 0 ? std::max(CPU_COUNT(&set), 1) : 1;
}

Crew::Crew(std::function<bool()> isOver, int threads)
    : m_isOver(std::move(isOver)), m_most(tasksPerThread * static_cast<size_t>(threads)) {
    for (int i = 0; i < threads; ++i) m_threads.emplace_back([this] { help(); });
}

Crew::~Crew() {
    {
        const std::lock_guard lock(m_mutex);
        drop();
        m_isClosing = true;
    }
    m_hasWork.notify_all();
    for (std::thread& thread : m_threads) thread.join();
}

void Crew::help() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_hasWork.wait(lock, [this] { return m_isClosing || m_begun < m_places.size(); });
        if (m_begun >= m_places.size()) return;
        Place& place = *m_places[m_begun++];
        lock.unlock();
        place.task->work();
        lock.lock();
        place.isDone = true;
        if (&place == m_places.front().get()) m_isFirstDone.notify_one();
    }
}

void Crew::add(std::unique_ptr<Task> task) {
    bool isFull = false;
    {
        const std::lock_guard lock(m_mutex);
        m_places.push_back(std::make_unique<Place>(Place{std::move(task)}));
        isFull = m_places.size() >= m_most;
    }
    m_hasWork.notify_one();
    if (isFull) endFirst();
}

void Crew::finish() {
    while (!m_places.empty()) endFirst();
}

// Ends the first task, once it is done, and those after it that are done by then.
void Crew::endFirst() {
    std::unique_lock lock(m_mutex);
    if (m_isOver()) drop();
    while (!m_places.empty()) {
        m_isFirstDone.wait(lock, [this] { return m_places.front()->isDone; });
        const std::unique_ptr<Place> place = std::move(m_places.front());
        m_places.pop_front();
        --m_begun;
        const bool isNextDone = !m_places.empty() && m_places.front()->isDone;
        lock.unlock();
        place->task->end();
        if (!isNextDone) return;
        lock.lock();
    }
}

void Crew::drop() { m_places.resize(std::min(m_places.size(), m_begun)); }

} // namespace torvane
