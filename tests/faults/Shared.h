// SPDX-License-Identifier: MIT
// Memory that a process shares with its children.
#pragma once

#include <new>
#include <stdexcept>
#include <sys/mman.h>

namespace torvane::faults {

template <typename Value>
class Shared {
public:
    Shared() {
        void* memory =
            mmap(nullptr, sizeof(Value), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) throw std::runtime_error("no shared memory");
        m_value = new (memory) Value;
    }
    ~Shared() { munmap(m_value, sizeof(Value)); }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;

    Value& operator*() const { return *m_value; }
    Value* operator->() const { return m_value; }

private:
    Value* m_value;
};

} // namespace torvane::faults
