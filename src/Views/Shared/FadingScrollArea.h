#pragma once

#include <QScrollArea>

namespace tolvar {

/// A page that scrolls up and down without showing a scroll bar. What goes beyond an edge fades
/// into the panel there; a control that the keyboard comes to is brought clear of that.
class FadingScrollArea final : public QScrollArea {
    Q_OBJECT

public:
    /// The area owns the page.
    explicit FadingScrollArea(QWidget* page, QWidget* parent = nullptr);

    /// Scrolls as little as brings a control on the page wholly into view, and out of the fades.
    void reveal(const QWidget& control);

protected:
    bool focusNextPrevChild(bool next) override;
};

} // namespace tolvar
