// SPDX-License-Identifier: MIT
// Messages and the progress bar.
#include "Reports.h"
#include "core/FailureTexts.h"
#include "platform/base/NativeText.h"
#include "platform/base/Printable.h"
#include "platform/base/SystemCalls.h"

#include <algorithm>

namespace torvane {

namespace {
constexpr std::chrono::milliseconds patience(500);
constexpr std::chrono::milliseconds betweenLooks(100);
constexpr int barWidth = 40; // in cells
constexpr int hundred = 100;

QByteArray inEnglish(const RuntimeFailure& failure) {
    // Of the files that commands read, only the one of the last run has a form that can be wrong.
    const bool isPlain = failure.reason() == RuntimeFailure::Reason::none;
    if (isPlain && failure.number() == RuntimeFailure::typeMismatch) return "it is damaged";
    const Globals noLanguage;
    const LanguageTables tables(noLanguage);
    return FailureTexts(tables).reason(failure).toUtf8();
}
} // namespace

// A message that can't be written has nobody who would read about that.
void Reports::print(const QByteArray& text) const {
    QByteArrayView rest = text;
    while (!rest.isEmpty()) {
        const ssize_t written =
            uninterrupted([&] { return write(m_descriptor, rest.data(), static_cast<size_t>(rest.size())); });
        if (written < 0) return;
        rest = rest.sliced(written);
    }
}

void Reports::remark(const QByteArray& text) {
    clearBar();
    print("torvane-tags: " + text + '\n');
}

void Reports::refusal(const QByteArray& reason) {
    m_hasFaults = true;
    remark(reason);
}

void Reports::fault(const QByteArray& name, const QByteArray& reason) {
    refusal(printable(name) + ": " + reason);
}

void Reports::fault(const QByteArray& name, const RuntimeFailure& failure) {
    fault(name, inEnglish(failure));
}

void Reports::fault(const QByteArray& name, const QString& path, const RuntimeFailure& failure) {
    const bool isOther = !failure.file().isEmpty() && failure.file() != path;
    fault(isOther ? name + ": " + NativeText::toNative(failure.file()) : name, failure);
}

void Reports::begin(int total) {
    m_total = total;
    m_done = 0;
    m_mayShow = total > 0 && isatty(m_descriptor) == 1;
    m_nextLook = Clock::now() + patience;
}

void Reports::step() {
    m_done = std::min(m_done + 1, m_total);
    if (!m_mayShow || Clock::now() < m_nextLook) return;
    m_nextLook = Clock::now() + betweenLooks;
    showBar();
}

void Reports::end() {
    clearBar();
    m_mayShow = false;
}

void Reports::showBar() {
    const int filled = static_cast<int>(qint64{barWidth} * m_done / m_total);
    const int percent = static_cast<int>(qint64{hundred} * m_done / m_total);
    m_hasBar = true;
    print("\r[" + QByteArray(filled, '#') + QByteArray(barWidth - filled, '.') + "] " +
          QByteArray::number(percent).rightJustified(3) + " %");
}

void Reports::clearBar() {
    if (m_hasBar) print("\r\x1B[K");
    m_hasBar = false;
}

} // namespace torvane
