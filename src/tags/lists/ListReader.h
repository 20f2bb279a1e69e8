// SPDX-License-Identifier: MIT
// Reads a list of known games as its bytes come. There are two forms: XML, and blocks in brackets.
#pragma once

#include "ListEntry.h"

#include <memory>

namespace torvane {

class ListReader {
public:
    struct Takers {
        ListGame::Take entry;
        /// An entry that is of no use and left out: the number of its line, and why.
        std::function<void(qint64 line, const QByteArray& reason)> flaw;
    };

    explicit ListReader(Takers takers) : m_game(std::move(takers.entry)), m_flaw(std::move(takers.flaw)) {}
    virtual ~ListReader() = default;
    ListReader(const ListReader&) = delete;
    ListReader& operator=(const ListReader&) = delete;

    /// Takes more bytes. Nothing is done once there is a fault.
    virtual void add(const QByteArray& bytes) = 0;
    /// To be called after the last bytes.
    virtual void finish() = 0;
    /// Why the list can't be read any further, with the number of the line, without a line end; empty as long
    /// as all is well.
    const QByteArray& fault() const { return m_fault; }

    /// The reader for a list that begins like this; some bytes of it must be given, if it has any.
    static std::unique_ptr<ListReader> of(const QByteArray& beginning, Takers takers);

protected:
    /// The number of the current line, counted from 1.
    virtual qint64 line() const = 0;
    void fail(const QByteArray& reason) { m_fault = "line " + QByteArray::number(line()) + ": " + reason; }
    bool hasFailed() const { return !m_fault.isEmpty(); }
    ListGame& game() { return m_game; }

    /// A file of the game begins, gets its values, and ends.
    void beginRom() { m_rom = {}, m_romFault.clear(), m_isUnknown = false; }
    void setRom(const QByteArray& name, const QByteArray& value);
    void endRom();

private:
    ListGame m_game;
    std::function<void(qint64, const QByteArray&)> m_flaw;
    QByteArray m_fault;
    ListEntry m_rom;
    QByteArray m_romFault;
    bool m_isUnknown = false; // nobody has this file
};

} // namespace torvane
