// SPDX-License-Identifier: MIT
// Reading a game for its row.
#include "GameRow.h"
#include "catalogue/GameRows.h"
#include "catalogue/TagWindow.h"
#include "platform/base/File.h"

namespace torvane::GameRow {

namespace {
Field consoleField(const QByteArray& console) {
    return console.isEmpty() ? Field() : Field{Field::Kind::text, console};
}
} // namespace

Columns columns() {
    return {{"file"}, {"console"},     {"tagged"},     {"title"}, {"company"},
            {"date"}, {"image", true}, {"size", true}, {"info"}};
}

Row of(const GameFile& game, const NameCut& cut) {
    const File file = File::ofReal(game.path);
    const qint64 length = file.length();
    const auto tag = TagWindow::tag(file.handle(), length);
    const auto text = [&](const QByteArray TagLine::Fields::*field) {
        return tag ? Field::ofTagText(tag->fields.*field) : Field();
    };
    return {Field::ofName(game.name),
            consoleField(consoleOf(game.name, length, cut)),
            Field::ofTruth(tag.has_value()),
            text(&TagLine::Fields::title),
            text(&TagLine::Fields::company),
            text(&TagLine::Fields::date),
            Field::ofNumber(tag ? tag->imageSize : length),
            Field::ofNumber(length),
            text(&TagLine::Fields::info)};
}

QByteArray consoleOf(const QByteArray& name, qint64 size, const NameCut& cut) {
    const QByteArrayView bareName = QByteArrayView(name).sliced(name.lastIndexOf('/') + 1);
    const std::string_view piece = cut.secondPieceOf(bareName);
    const QByteArray kind = QByteArray(piece.data(), static_cast<qsizetype>(piece.size())).toLower();
    const GameIcon icon = kind == "bin"
                              ? GameRows::iconOfSize(size)
                              : GameRows::iconOfKind({kind.constData(), static_cast<size_t>(kind.size())});
    switch (icon) {
    case GameIcon::classic: return "GB";
    case GameIcon::colour: return "GBC";
    case GameIcon::advance: return "GBA";
    case GameIcon::archive: return "ZIP";
    case GameIcon::none: break;
    }
    return {};
}

} // namespace torvane::GameRow
