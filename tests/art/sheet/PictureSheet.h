// SPDX-License-Identifier: MIT
// The window of the picture sheet: every small picture of the program as it is used, at its true size, and
// the backgrounds whose parts change. Buttons, lists and signs are the program's own, and their rows come
// from its designs.
#pragma once

#include "StillButton.h"
#include "mainwindow/MainFrm.design.h"
#include "toolkit/torvmsg/TorvMsg.design.h"

#include <memory>
#include <vector>

namespace torvane {

class PictureSheet : public Form {
public:
    explicit PictureSheet(Runtime& runtime);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Caption {
        QRect place;
        QString text;
    };
    struct Picture {
        QPoint place;
        QPixmap pixmap;
    };

    void addButtons();
    void addButtonRow(const chameleonButton& original, QPoint place, int step);
    void addLists();
    void addImages();
    void addTraySigns();
    void addWindowIcons();
    void addCursors();
    void addSmallConsoles();
    void addBackgrounds();
    void caption(QRect place, const QString& text) { m_captions.push_back({place, text}); }

    MainFrmDesign m_main;
    TorvMsgDesign m_message;
    ImageList m_listIcons{*this,
                          "ImageList1",
                          {"console-advance-32.png", "console-gameboy-32.png", "console-color-32.png",
                           "console-archive-32.png", "console-unknown-32.png"}};
    std::vector<std::unique_ptr<QWidget>> m_controls;
    std::vector<Caption> m_captions;
    std::vector<std::pair<QRect, QColor>> m_grounds;
    std::vector<Picture> m_pictures;
};

} // namespace torvane
