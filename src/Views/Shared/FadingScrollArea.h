#pragma once

#include <QScrollArea>

namespace tolvar {

/// A page that scrolls up and down without showing a scroll bar. What goes beyond an edge fades
/// into the panel there.
class FadingScrollArea final : public QScrollArea {
    Q_OBJECT

public:
    /// The area owns the page.
    explicit FadingScrollArea(QWidget* page, QWidget* parent = nullptr);
};

} // namespace tolvar
