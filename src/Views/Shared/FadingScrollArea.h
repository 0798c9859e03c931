#pragma once

#include <QScrollArea>

namespace tolvar {

/// A page that scrolls up and down without showing a scroll bar. What goes below the lower edge
/// fades into the panel.
class FadingScrollArea final : public QScrollArea {
    Q_OBJECT

public:
    /// The area owns the page.
    explicit FadingScrollArea(QWidget* page, QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* m_fade;
};

} // namespace tolvar
