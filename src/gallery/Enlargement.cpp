// SPDX-License-Identifier: MIT
// Fitting, doubling, halving and centring.
#include "Enlargement.h"
#include "PictureTexts.h"

#include <algorithm>

namespace torvane {

namespace {
// What of the window stays free of the picture, in twips.
constexpr float freeWidth = 300;
constexpr float freeHeight = 500;
constexpr float freeWhenEnlarged = 200;
} // namespace

void Enlargement::show(float width, float height) {
    resize(std::min(width, m_room.width - freeWidth), std::min(height, m_room.height - freeHeight));
    m_minHeight = m_place.height / 2;
    m_minWidth = PictureTexts::single(m_place.width / 2);
}

void Enlargement::zoomIn() {
    const float width = 2 * m_place.width;
    const float height = 2 * m_place.height;
    if (m_room.height - freeWhenEnlarged < height || m_room.width - freeWhenEnlarged < width) return;
    resize(width, height);
}

void Enlargement::zoomOut() {
    const float width = m_place.width / 2;
    const float height = m_place.height / 2;
    if (height < m_minHeight || width < PictureTexts::number(m_minWidth)) return;
    resize(width, height);
}

void Enlargement::resize(float width, float height) {
    m_place.width = width;
    m_place.height = height;
    m_place.left = m_room.width / 2 - width / 2;
    m_place.top = m_room.titleHeight / 2 + (m_room.height / 2 - height / 2);
}

} // namespace torvane
