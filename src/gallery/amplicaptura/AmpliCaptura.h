// SPDX-License-Identifier: MIT
// The enlarged view of one picture of the gallery: fits it into the window, doubles and halves it, prints it.
#pragma once

#include "AmpliCaptura.design.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"
#include "gallery/Enlargement.h"

#include <QShortcut>

namespace torvane {

class AmpliCaptura : public AmpliCapturaDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::AmpliCaptura;

    explicit AmpliCaptura(const Services& services);

    /// Runs once after construction.
    void Load();
    /// Shows the picture that the gallery has put into ShownPicture. The one text is the name of its file.
    void take(const QStringList& fileName);
    /// Shows a picture in the window, which the desk has shown: in its own size, or as large as the window
    /// allows. A second one in the open window begins anew.
    void ShowImage(const PictureFile& picture);

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    void ChameleonButton2_Click();
    void ChameleonButton3_Click();
    void ChameleonButton4_Click();
    void place();

    const Services& m;
    const Texts text{m.language, "Gallery"};
    Enlargement m_enlargement;
    QString m_fileName;
    int m_wheelRest = 0; // eighths of a degree
    QShortcut m_escape{Qt::Key_Escape, this};
    QShortcut m_plus{Qt::Key_Plus, this};
    QShortcut m_minus{Qt::Key_Minus, this};
};

} // namespace torvane
