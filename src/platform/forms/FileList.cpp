// SPDX-License-Identifier: MIT
// File lists over folder tables.
#include "FileList.h"
#include "../base/NativeText.h"
#include "../base/Paths.h"
#include "../base/RuntimeFailure.h"

namespace torvane {

namespace {
// The names that the list has at the moment, so that a list out of sight need not read its folder for them.
class ListedNames : public RowSource {
public:
    explicit ListedNames(const FileList& list) : m_list(list) {}
    int count() const override { return m_list.ListCount(); }
    QString text(int row, int) const override { return m_list.names()->name(row); }
    int icon(int) const override { return 0; }

private:
    const FileList& m_list;
};

RowLook rowLookOf(const FileList::Look& look) {
    return {.height = Fonts::of(look.font).pixelSize() + 4,
            .fore = look.fore,
            .back = look.back,
            .line = look.back};
}
} // namespace

FileList::FileList(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : RowList(parent, name, rect, rowLookOf(look), nullptr), m_look(look),
      m_rows(std::make_shared<ListedNames>(*this)) {
    setFontSpec(look.font);
    setVisible(look.visible);
    connect(this, &RowList::rowClicked, this, [this](int row) { setListIndex(row); });
    connect(this, &RowList::rowDoubleClicked, this, &FileList::DblClick);
}

void FileList::setPath(const QString& path) {
    m_path = path;
    while (m_path.endsWith(QLatin1Char('\\')) || (m_path.size() > 1 && m_path.endsWith(QLatin1Char('/')))) {
        m_path.chop(1);
    }
    if (m_path.isEmpty() && !path.isEmpty()) m_path = QStringLiteral("/");
    // A folder that bears the name in other letters ("ROMs") is taken as the disk spells it: other
    // programs, which get paths from here, do look at case.
    const QByteArray real = Paths::real(m_path);
    if (real != NativeText::toNative(QString(m_path).replace(QLatin1Char('\\'), QLatin1Char('/')))) {
        m_path = Paths::spelled(real);
    }
    Refresh();
}

void FileList::openPath(const QString& path) {
    FolderNames::requireReadable(path);
    setPath(path);
}

void FileList::Refresh() { take(nullptr); }

void FileList::take(std::shared_ptr<const FolderNames> names) {
    m_names = std::move(names);
    setItems(m_rows);
}

std::shared_ptr<const FolderNames> FileList::names() const {
    if (!m_names) m_names = FolderNames::read(m_path, Pattern());
    return m_names;
}

void FileList::readWith(FileList& other) {
    if (m_path != other.m_path) {
        Refresh();
        other.Refresh();
        return;
    }
    const auto tables = FolderNames::read(m_path, {Pattern(), other.Pattern()});
    take(tables.front());
    other.take(tables.back());
}

QString FileList::List(int index) const {
    if (index < 0 || index >= ListCount()) throw RuntimeFailure(RuntimeFailure::invalidProperty);
    return table().name(index);
}

void FileList::selectQuietly(int index) {
    if (index < -1 || index >= ListCount()) throw RuntimeFailure(RuntimeFailure::invalidProperty);
    setCurrentRow(index);
}

void FileList::setListIndex(int index) {
    selectQuietly(index);
    if (index >= 0) emit Click();
}

QString FileList::FileName() const { return ListIndex() < 0 ? QString() : table().name(ListIndex()); }

} // namespace torvane
