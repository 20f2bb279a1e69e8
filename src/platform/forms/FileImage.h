// SPDX-License-Identifier: MIT
// An image whose picture comes out of a file. It is decoded when it is seen, in no more pixels than are
// shown, and measured without that.
#pragma once

#include "../base/PictureFile.h"
#include "Image.h"

namespace torvane {

class FileImage : public Image {
    Q_OBJECT

public:
    enum Sizing {
        natural,  ///< a picture gives the control its own size
        stretched ///< the control keeps its size
    };
    FileImage(QWidget& parent, const char* name, const DesignRect& rect, Sizing sizing);

    Sizing sizing() const { return m_sizing; }
    void setSizing(Sizing sizing) { m_sizing = sizing; }
    /// The picture; a null one at first.
    const PictureFile& source() const { return m_source; }
    /// Another picture. A stretched one in sight of its window is decoded at once: fails with invalidPicture
    /// if that can't be done, and everything stays as it was.
    void setSource(const PictureFile& picture);

    /// Words over the picture, such as why there is no other one; empty for none.
    void setNotice(const QString& words);
    const QString& notice() const { return m_notice; }
    QString accessibleText() const override { return m_notice; }
    bool isExposed() const override { return !m_notice.isEmpty() && Control::isExposed(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize deviceSize() const;
    QPixmap pixelsOf(const PictureFile& picture) const;
    void paintPicture(QPainter& painter);
    void paintNotice(QPainter& painter) const;

    Sizing m_sizing;
    PictureFile m_source;
    QPixmap m_pixels;  // null if there are none yet
    QSize m_pixelsFor; // the size in device pixels for which they were made
    QString m_notice;
};

} // namespace torvane
