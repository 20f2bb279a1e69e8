// SPDX-License-Identifier: MIT
// The general options: where each is stored, which values its control can take, and what counts when the
// store has none of these. The window of the general options shows and changes them; others read them.
#pragma once

#include "platform/base/Settings.h"

#include <array>

namespace torvane {

/// One option: a whole number from 0 to `most`.
struct GeneralOption {
    const char* key;
    int absent; ///< if nothing is stored, or a value that the control can't take
    int most;
    bool isFlag = false; ///< "True" and "False", in any case, are stored values, too
};

class GeneralOptions {
public:
    static constexpr GeneralOption tray{"Tray", 1, 1, true}; ///< the icon in the tray is shown
    static constexpr GeneralOption colour{"Icon", 0, 6};     ///< the number of its picture
    static constexpr GeneralOption corner{"Mini", 1, 1};   ///< of the compact window: 0 top left, 1 top right
    static constexpr GeneralOption onTop{"OnTop", 0, 1};   ///< the compact window stays on top
    static constexpr GeneralOption intro{"Intro", 1, 1};   ///< the start shows the intro
    static constexpr GeneralOption compact{"Start", 0, 1}; ///< the start opens the compact window
    static constexpr GeneralOption archives{"zip", 0, 1};  ///< a double click opens an archive in a window
    static constexpr std::array all{tray, colour, corner, onTop, intro, compact, archives};

    /// The store must outlive this object.
    explicit GeneralOptions(Settings& settings) : m_settings(settings) {}

    /// The stored value, or the default. Never fails.
    int value(const GeneralOption& option) const;
    /// Stores a value at once; fails if it can't be kept.
    void set(const GeneralOption& option, int value) const;
    /// Stores the present values of all options, in one write, or in none if they are stored in this form
    /// already. Fails if the store can't be read or written: then it is as it was.
    void storeAll() const;

    /// The value that a stored text gives.
    static int valueOf(const GeneralOption& option, const QString& stored);

private:
    Settings& m_settings;
};

} // namespace torvane
