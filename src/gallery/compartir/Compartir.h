// SPDX-License-Identifier: MIT
// The gallery: lists the pictures of one folder, shows and describes the selected one, and deletes, prints or
// enlarges it. The hidden file list is its model, and the list that the user sees mirrors it.
#pragma once

#include "Compartir.design.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"
#include "gallery/PictureKind.h"

#include <QShortcut>

namespace torvane {

class Compartir : public CompartirDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::Compartir;

    explicit Compartir(const Services& services);

    /// Lists the folder of the setting and shows its first picture. Runs once after construction, and again
    /// when a picture has been deleted. A folder that can't be read is reported.
    void Load();
    /// Describes the selected file in the three labels, with the measure of the picture that is shown. The
    /// picture of a PNG is the stock picture. Fails if the file can't be opened.
    void GetIMGData();

private:
    void wireControls();
    void setCaptions();
    void listPictures();
    PictureKind currentKind() const;
    void Snap_Click();
    void showCurrent();
    void loadCurrent();
    void loadStockPicture();
    void showStockPicture();
    void step(int by);
    void setNotice(bool isUnreadable);
    void ChameleonButton8_Click();
    void ChameleonButton9_Click();
    void ChameleonButton10_Click();
    QString headingOf(const QString& fileName) const;
    void deleteCurrent();

    const Services& m;
    const Texts text{m.language, "Gallery"};
    QShortcut m_left{Qt::Key_Left, this};
    QShortcut m_right{Qt::Key_Right, this};
};

} // namespace torvane
