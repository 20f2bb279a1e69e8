// SPDX-License-Identifier: MIT
// Numbered pictures.
#include "ImageList.h"
#include "Form.h"
#include "Pictures.h"

namespace torvane {

ImageList::ImageList(Form& form, const char* name, std::initializer_list<const char*> pictures)
    : Component(form, name), m_pictures(pictures.size()), m_ratio(form.devicePixelRatioF()) {
    for (const char* picture : pictures) m_names.push_back(QString::fromLatin1(picture));
}

const QPixmap& ImageList::picture(int number) {
    const auto at = static_cast<size_t>(number - 1);
    if (number < 1 || at >= m_names.size()) return m_none;
    if (m_pictures[at].isNull()) m_pictures[at] = Pictures::load(m_names[at], m_ratio);
    return m_pictures[at];
}

} // namespace torvane
