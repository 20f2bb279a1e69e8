// SPDX-License-Identifier: MIT
// What the filter controls of the database window hold. The defaults let every entry of the three consoles
// pass.
#pragma once

#include <QString>

namespace torvane {

struct OnlineDbFilter {
    /// The origin that is wanted. `system` and `user` want exactly these words.
    enum class Kind { system, user, all };

    bool GB_CL = true; ///< entries whose system is "byn"
    bool GB_CO = true; ///< "color"
    bool GB_AD = true; ///< "advance"
    Kind kind = Kind::all;
    /// The texts of the boxes File_Author, File_Game, File_Date and File_Company. An empty one filters
    /// nothing. Author, game and company are whole fields, without regard to case. The date is an age in
    /// days.
    QString author, game, date, company;
};

} // namespace torvane
