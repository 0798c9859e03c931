#pragma once

#include "Views/Theme/Symbol.h"

#include <QLabel>
#include <QWidget>

namespace tolvar {

/// The engraved line above a group of controls.
class SectionLabel final : public QLabel {
    Q_OBJECT

public:
    explicit SectionLabel(const QString& text, QWidget* parent = nullptr);
};

/// The thin dark line between two parts of the panel.
class PanelRule final : public QWidget {
    Q_OBJECT

public:
    explicit PanelRule(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// What a list shows that has nothing in it: a symbol in a well, a title, and what to do about it.
class EmptyState final : public QWidget {
    Q_OBJECT

public:
    EmptyState(Symbol symbol, const QString& title, const QString& message,
               QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    /// 0 to 1.
    void setOpacity(double opacity);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int messageHeight(int width) const;

    const Symbol m_symbol;
    const QString m_title;
    const QString m_message;
    double m_opacity = 1;
};

} // namespace tolvar
