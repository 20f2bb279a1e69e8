// SPDX-License-Identifier: MIT
// Blocks, lengths and permissions of a file that was not synced.
#include "FileVariants.h"

#include <algorithm>
#include <random>
#include <set>

namespace torvane::faults {

namespace {
constexpr qsizetype block = 512;
constexpr qsizetype fewBlocks = 6;  // 64 combinations
constexpr qsizetype fewLengths = 6; // all of them
constexpr int sampledCombinations = 48;

// The index of the state that each block is from.
using Mix = std::vector<size_t>;

class Variants {
public:
    explicit Variants(const Disk::File& file) : m_file(file), m_last(file.size() - 1) {
        for (const FileState& state : file) m_longest = std::max(m_longest, state.bytes.size());
        m_blocks = (m_longest + block - 1) / block;
        for (qsizetype i = 0; i < m_blocks; ++i) {
            if (isChanged(i)) m_changed.push_back(i);
        }
    }

    std::vector<FileState> all() {
        const std::vector<Mix> mixes =
            static_cast<qsizetype>(m_changed.size()) <= fewBlocks && m_last == 1 ? everyMix() : someMixes();
        for (const Mix& mix : mixes) {
            const QByteArray bytes = blended(mix);
            for (const qsizetype length : lengths()) add(bytes.first(length));
        }
        return m_all;
    }

private:
    bool isChanged(qsizetype index) const {
        const QByteArray first = blockOf(m_file.front(), index);
        return std::any_of(m_file.begin(), m_file.end(),
                           [&](const FileState& state) { return blockOf(state, index) != first; });
    }
    QByteArray blockOf(const FileState& state, qsizetype index) const {
        const QByteArray piece = state.bytes.mid(index * block, block);
        return piece + QByteArray(block - piece.size(), '\0');
    }
    QByteArray blended(const Mix& mix) const {
        QByteArray bytes;
        for (qsizetype i = 0; i < m_blocks; ++i) bytes += blockOf(m_file[mix[static_cast<size_t>(i)]], i);
        return bytes;
    }
    Mix whole(size_t state) const { return Mix(static_cast<size_t>(m_blocks), state); }

    std::vector<Mix> everyMix() const {
        std::vector<Mix> mixes;
        for (size_t bits = 0; bits < size_t{1} << m_changed.size(); ++bits) {
            Mix mix = whole(0);
            for (size_t i = 0; i < m_changed.size(); ++i)
                mix[static_cast<size_t>(m_changed[i])] = bits >> i & 1;
            mixes.push_back(mix);
        }
        return mixes;
    }
    std::vector<Mix> someMixes() {
        std::vector<Mix> mixes;
        for (size_t state = 0; state <= m_last; ++state) mixes.push_back(whole(state));
        for (qsizetype cut = 1; cut < m_blocks; ++cut) {
            Mix front = whole(0);
            std::fill_n(front.begin(), cut, m_last);
            mixes.push_back(front);
            Mix back = whole(m_last);
            std::fill_n(back.begin(), cut, size_t{0});
            mixes.push_back(back);
        }
        for (int i = 0; i < sampledCombinations; ++i) {
            Mix mix = whole(0);
            for (size_t& state : mix) state = m_random() % (m_last + 1);
            mixes.push_back(mix);
        }
        return mixes;
    }

    // The old lengths, the new one, and those in between at which a block ends.
    std::vector<qsizetype> lengths() {
        std::set<qsizetype> ends;
        for (const FileState& state : m_file) ends.insert(state.bytes.size());
        std::vector<qsizetype> between;
        for (qsizetype end = (*ends.begin() / block + 1) * block; end < m_longest; end += block)
            between.push_back(end);
        if (static_cast<qsizetype>(between.size()) > fewLengths) {
            std::shuffle(between.begin(), between.end(), m_random);
            between.resize(2);
        }
        ends.insert(between.begin(), between.end());
        return {ends.begin(), ends.end()};
    }

    void add(const QByteArray& bytes) {
        std::vector<Rights> rights;
        for (const FileState& state : m_file) {
            const bool isKnown = std::find(rights.begin(), rights.end(), state.rights) != rights.end();
            if (isKnown) continue;
            rights.push_back(state.rights);
            m_all.push_back({bytes, state.rights});
        }
    }

    const Disk::File& m_file;
    size_t m_last;
    qsizetype m_longest = 0;
    qsizetype m_blocks = 0;
    std::vector<qsizetype> m_changed;
    std::mt19937 m_random{23};
    std::vector<FileState> m_all;
};
} // namespace

std::vector<FileState> variantsOf(const Disk::File& file) {
    return file.size() == 1 ? file : Variants(file).all();
}

} // namespace torvane::faults
