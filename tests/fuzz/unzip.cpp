// SPDX-License-Identifier: MIT
// Archives from strangers: the name of an entry is sanitized or rejected, and whatever bytes are opened as an
// archive, only files with sanitized names appear in the folder, and nothing around it changes.
// Input: which of the two, and the name or the archive.
#include "platform/base/UnZip.h"
#include "Fuzz.h"
#include "platform/base/EntryName.h"
#include "platform/base/NativeText.h"

using namespace torvane;
using namespace torvane::fuzz;

namespace {
constexpr UnZip::Limits limits{
    .bytesPerEntry = 1 << 16, .bytesInAll = 1 << 17, .entries = 100, .bytesLeftFree = 0};

bool isControl(char c) { return static_cast<uchar>(c) < 0x20 || c == 0x7F; }

void checkHarmless(const QByteArray& name) {
    require(name.size() <= 255, "a name fits into a folder");
    require(!name.contains('/') && !name.contains('\\'), "a name has no folders");
    require(name.front() != '.', "a name is in every list");
    require(name.back() != '.' && name.back() != ' ', "a name ends with what every system keeps");
    require(std::none_of(name.begin(), name.end(), isControl), "a name has no control characters");
    require(EntryName::sanitized(name) == name, "a harmless name stays");
    require(NativeText::toNative(NativeText::fromNative(name)) == name, "a name goes through text and back");
}

void checkName(const QByteArray& entry) {
    const QByteArray name = EntryName::sanitized(entry);
    if (name.isEmpty()) return;
    checkHarmless(name);
    require(entry.contains(name), "nothing is made up");
    require(EntryName::sanitized("./" + entry + " .") == name, "what says nothing changes nothing");
    for (const char* front : {"../", "/", "a/", "..\\", "C:"}) {
        require(EntryName::sanitized(front + name).isEmpty(), "no other folder is reached");
    }
}

class UnpackedFolder {
public:
    UnpackedFolder() {
        std::filesystem::create_directory(path());
        m_unzip.setFolder(QString::fromStdString(path()) + QLatin1Char('\\'));
        m_unzip.setArchive(QString::fromStdString(m_around.path() + "/archive"));
        m_unzip.goesOn = [] { return true; };
        m_unzip.isWanted = [](QByteArrayView name) { return name.contains(".gb"); };
    }

    void check(const QByteArray& archive) {
        m_around.write("archive", archive.toStdString());
        const UnZip::Reason reason = m_unzip.extract(QStringLiteral("*.*"));
        bool hasWanted = false;
        qint64 all = 0;
        for (const auto& entry : std::filesystem::directory_iterator(path())) {
            require(entry.symlink_status().type() == std::filesystem::file_type::regular, "files come out");
            const QByteArray name = QByteArray::fromStdString(entry.path().filename().string());
            checkHarmless(name);
            hasWanted = hasWanted || name.contains(".gb");
            require(entry.file_size() <= static_cast<size_t>(limits.bytesPerEntry), "no file is too large");
            all += static_cast<qint64>(entry.file_size());
            std::filesystem::remove(entry.path());
        }
        require(hasWanted == (reason == UnZip::Reason::none),
                "there is a reason if nothing wanted comes out");
        require(all <= limits.bytesInAll, "all files together are not too large");
        const std::filesystem::directory_iterator around(m_around.path());
        require(std::distance(begin(around), end(around)) == 2, "nothing is made around the folder");
    }

private:
    std::string path() const { return m_around.path() + "/target"; }

    Scratch m_around;
    UnZip m_unzip{limits};
};
} // namespace

FUZZ_TARGET(unzip) {
    static UnpackedFolder target;
    Input input(data, size);
    const bool isArchive = input.byte() % 2 == 1;
    isArchive ? target.check(input.rest()) : checkName(input.rest());
    return 0;
}
