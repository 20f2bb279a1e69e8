// SPDX-License-Identifier: MIT
// Picture files: any bytes are none, or a picture of a size that can be decoded, whatever follows it.
// Input: the bytes of a file.
#include "Fuzz.h"
#include "platform/base/PictureFile.h"
#include "platform/base/RuntimeFailure.h"

using namespace torvane;
using namespace torvane::fuzz;

namespace {
constexpr int signature = 10; // bytes, see PictureShape::mayBe

bool isLoaded(const QByteArray& bytes) {
    return ignoring([&] {
        const PictureFile picture(bytes);
        require(picture.size() == PictureShape::of(bytes).size, "a picture has the size of its shape");
    });
}
} // namespace

FUZZ_TARGET(picture) {
    const QByteArray bytes = Input(data, size).rest();
    const PictureShape shape = PictureShape::of(bytes);
    require(isLoaded(bytes) == shape.isPicture(), "what has a shape can be loaded");
    if (!shape.isPicture()) return 0;
    require(PictureShape::mayBe(bytes.first(std::min<qsizetype>(signature, bytes.size()))),
            "a picture is known by its beginning");
    require(!shape.size.isEmpty(), "a picture has pixels");
    require(qint64{shape.size.width()} * shape.size.height() <= PictureShape::mostPixels,
            "a picture can be decoded");
    require(PictureShape::of(bytes + "\xFF\xC0 and more") == shape, "what follows does not count");
    return 0;
}
