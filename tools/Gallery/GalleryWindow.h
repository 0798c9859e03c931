#pragma once

#include "Gallery/Gallery.h"

#include <QWidget>

class QStackedWidget;

namespace tolvar::gallery {

/// The gallery to touch: a key for each page, and switches for slow and for reduced motion.
class GalleryWindow final : public QWidget {
    Q_OBJECT

public:
    explicit GalleryWindow(Studio& studio);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeHeader(QStackedWidget& sheets);

    Studio& m_studio;
};

} // namespace tolvar::gallery
