// SPDX-License-Identifier: MIT
// Failures in words: what a user is shown when an action on a file fails and the program goes on.
#pragma once

#include "Texts.h"
#include "platform/base/RuntimeFailure.h"

namespace torvane {

class FailureTexts {
public:
    explicit FailureTexts(const LanguageTables& language) : m_texts(language, "Failures") {}

    /// The bare name of the file, folder or printer, the reason in the current language, and the number:
    /// "game.gb: the disk is full (61)". A language file without the reason gives the English one. A failure
    /// that is about no file has the runtime's own text (see RuntimeFailure::boxText).
    QString of(const RuntimeFailure& failure) const;
    /// The reason alone, in the current language or else in English.
    QString reason(const RuntimeFailure& failure) const;

private:
    Texts m_texts;
};

} // namespace torvane
