// SPDX-License-Identifier: MIT
// Numbered pictures.
#include "ImageList.h"
#include "Form.h"

namespace torvane {

ImageList::ImageList(Form& form, const char* name, std::initializer_list<const char*> pictures)
    : Component(form, name), m_window(form), m_pictures(pictures.begin(), pictures.end()) {}

const QPixmap& ImageList::picture(int number) {
    const auto at = static_cast<size_t>(number - 1);
    if (number < 1 || at >= m_pictures.size()) return m_none;
    return m_pictures[at].picture(m_window.devicePixelRatioF());
}

} // namespace torvane
