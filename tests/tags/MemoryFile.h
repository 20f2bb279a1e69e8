// SPDX-License-Identifier: MIT
// A file without a name, for what code under test prints.
#pragma once

#include <QByteArray>
#include <sys/mman.h>
#include <unistd.h>

namespace torvane {

class MemoryFile {
public:
    MemoryFile() : m_descriptor(memfd_create("printed", 0)) {}
    ~MemoryFile() { close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    int descriptor() const { return m_descriptor; }
    QByteArray content() const {
        QByteArray bytes(lseek(m_descriptor, 0, SEEK_END), '\0');
        bytes.resize(pread(m_descriptor, bytes.data(), static_cast<size_t>(bytes.size()), 0));
        return bytes;
    }

private:
    int m_descriptor;
};

} // namespace torvane
