// SPDX-License-Identifier: MIT
// Looking at the entries of an archive.
#include "ArchiveCheck.h"
#include "catalogue/ZipMembers.h"
#include "platform/base/ArchiveTop.h"
#include "platform/base/NativeText.h"
#include "platform/base/Paths.h"

#include <memory>

namespace torvane::ArchiveCheck {

namespace {
class Members {
public:
    Members(const Archive& archive, const NameCut& cut, Pulse& pulse)
        : m_archive(archive), m_cut(cut), m_pulse(pulse) {}

    Findings check() {
        for (qint64 index = 0; index < m_archive.count() && m_pulse.shouldContinue(); ++index) {
            const QByteArray name = m_archive.name(index);
            if (m_archive.kind(index) != Archive::Kind::folder && m_isWanted(bareName(name))) {
                checkGame(index, name);
            }
        }
        if (m_games == 0) add("no game in the archive", {});
        return std::move(m_findings);
    }

private:
    static QByteArrayView bareName(const QByteArray& name) {
        return QByteArrayView(name).sliced(name.lastIndexOf('/') + 1);
    }
    void add(const char* what, const QByteArray& member) {
        m_findings.push_back({what, member.isEmpty() ? Field() : Field::ofName(member), {}, {}});
    }
    void checkGame(qint64 index, const QByteArray& name) {
        ++m_games;
        const QByteArray file = m_top.fileName(name);
        if (file.isEmpty() || m_archive.kind(index) != Archive::Kind::file)
            return add("member that is not unpacked", name);
        if (m_archive.isEncrypted(index)) return add("member with a password", name);
        if (!m_archive.isMethodKnown(index)) return add("member of an unknown packing", name);
        const QString folded = NativeText::folded(NativeText::fromNative(file));
        if (m_names.contains(folded)) return add("two members of a name", name);
        m_names.insert(folded);
    }

    const Archive& m_archive;
    const NameCut& m_cut;
    Pulse& m_pulse;
    const ArchiveTop::Wanted m_isWanted = [this](QByteArrayView name) { return isPlayable(name, m_cut); };
    ArchiveTop m_top{m_archive, m_isWanted, m_pulse};
    Findings m_findings;
    QSet<QString> m_names;
    qint64 m_games = 0;
};

std::unique_ptr<const Archive> opened(const QByteArray& path, Pulse& pulse) {
    std::unique_ptr<const Archive> archive;
    ignoring([&] {
        archive = std::make_unique<const Archive>(Paths::spelled(path), UnZip::Limits().entries, pulse);
    });
    return archive;
}
} // namespace

Findings check(const QByteArray& path, const NameCut& cut, const std::function<bool()>& goesOn) {
    Pulse pulse(goesOn);
    const auto archive = opened(path, pulse);
    if (archive) return Members(*archive, cut, pulse).check();
    if (!pulse.shouldContinue()) return {};
    return {{"archive that can't be opened", {}, {}, {}}};
}

} // namespace torvane::ArchiveCheck
