// SPDX-License-Identifier: MIT
// Putting ends together.
#include "TagEnds.h"
#include "TagInFile.h"

namespace torvane::TagEnds {

EndChanges::End withTag(const Handle& file, TagLine::Fields fields) {
    for (QByteArray* field : {&fields.company, &fields.title, &fields.info}) {
        if (field->isEmpty()) *field = " ";
    }
    const auto image = TagInFile::keptLength(file);
    const qint64 kept = image ? *image : infoOf(file).st_size;
    const QByteArray between = image ? TagLine::lineEnd : QByteArray();
    fields.size = QByteArray::number(kept + between.size());
    return {kept, between + TagLine::build(fields)};
}

std::optional<EndChanges::End> withoutTag(const Handle& file) {
    const auto image = TagInFile::keptLength(file);
    return image ? std::optional(EndChanges::End{*image, TagLine::lineEnd}) : std::nullopt;
}

void remember(const Handle& file, const TailChange& change) {
    const qsizetype marker = TagLine::markerIn(change.after);
    if (marker >= 0) TagInFile::rememberMarker(file, change.start + marker);
}

} // namespace torvane::TagEnds
