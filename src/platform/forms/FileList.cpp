// SPDX-License-Identifier: MIT
// File lists over folder tables.
#include "FileList.h"
#include "../base/NativeText.h"
#include "../base/Paths.h"
#include "../base/RuntimeFailure.h"

#include <QPainter>
#include <algorithm>

namespace torvane {

namespace {
class NameRows : public RowSource {
public:
    explicit NameRows(std::shared_ptr<const FolderNames> names) : m_names(std::move(names)) {}
    int count() const override { return m_names->count(); }
    QString text(int row) const override { return m_names->name(row); }
    int icon(int) const override { return 0; }

private:
    std::shared_ptr<const FolderNames> m_names;
};
} // namespace

FileList::FileList(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : RowList(parent, name, rect, Fonts::of(look.font).pixelSize() + 4), m_look(look) {
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

void FileList::Refresh() {
    m_names.reset();
    m_index = -1;
    m_topRow = 0;
    m_rowsShown = false;
    update();
}

std::shared_ptr<const FolderNames> FileList::names() const {
    if (!m_names) m_names = FolderNames::read(m_path, Pattern());
    return m_names;
}

void FileList::readWith(FileList& other) {
    Refresh();
    other.Refresh();
    if (m_path != other.m_path) return;
    const auto tables = FolderNames::read(m_path, {Pattern(), other.Pattern()});
    m_names = tables.front();
    other.m_names = tables.back();
}

QString FileList::List(int index) const {
    if (index < 0 || index >= ListCount()) throw RuntimeFailure(RuntimeFailure::invalidProperty);
    return table().name(index);
}

void FileList::selectQuietly(int index) {
    if (index < -1 || index >= ListCount()) throw RuntimeFailure(RuntimeFailure::invalidProperty);
    m_index = index;
    if (m_rowsShown) setCurrentRow(index);
}

void FileList::setListIndex(int index) {
    selectQuietly(index);
    if (index >= 0) emit Click();
}

QString FileList::FileName() const { return m_index < 0 ? QString() : table().name(m_index); }

// Only a list that somebody looks at needs rows; the hidden ones are mere stores.
void FileList::showRows() {
    if (m_rowsShown) return;
    setRows(std::make_shared<NameRows>(names()));
    m_rowsShown = true;
    setCurrentRow(m_index);
}

void FileList::paintEvent(QPaintEvent* event) {
    showRows();
    RowList::paintEvent(event);
}

void FileList::keyPressEvent(QKeyEvent* event) {
    showRows();
    RowList::keyPressEvent(event);
}

void FileList::mousePressEvent(QMouseEvent* event) {
    showRows();
    RowList::mousePressEvent(event);
}

QRect FileList::rowRect(int row) const { return {0, (row - m_topRow) * rowHeight(), width(), rowHeight()}; }

void FileList::paintRow(QPainter& painter, int row, const QRect& place) {
    const bool isCurrent = row == currentRow();
    if (isCurrent) painter.fillRect(place, Colours::toQColor(Colours::system(13)));
    painter.setPen(Colours::toQColor(isCurrent ? Colours::system(14) : m_look.fore));
    painter.drawText(place.adjusted(2, 0, -2, 0), Qt::AlignVCenter | Qt::TextSingleLine, rows()->text(row));
}

void FileList::ensureVisible(int row) {
    if (row < m_topRow) scrollRows(row - m_topRow);
    if (row >= m_topRow + rowsPerPage()) scrollRows(row - m_topRow - rowsPerPage() + 1);
}

void FileList::scrollRows(int rows) {
    m_topRow = std::clamp(m_topRow + rows, 0, std::max(0, rowCount() - rowsPerPage()));
    update();
}

int FileList::rowsPerPage() const { return std::max(1, height() / rowHeight()); }

} // namespace torvane
