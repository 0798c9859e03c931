#pragma once

#include "Models/BlockCategory.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Lamp.h"

namespace tolvar {

/// A key for one length of the session, held down while that is the chosen one.
class DurationButton final : public KeyButton {
    Q_OBJECT

public:
    DurationButton(const ControlContext& context, const QString& title, QWidget* parent = nullptr);
};

/// A key for one category, held down, with its lamp lit, while the category is chosen.
class CategoryButton final : public KeyButton {
    Q_OBJECT

public:
    CategoryButton(const ControlContext& context, const BlockCategory& category,
                   QWidget* parent = nullptr);

    const QString& categoryId() const { return m_categoryId; }
    /// What is on the key: the category's name, or a stand-in for an empty one.
    void setCategoryName(const QString& name);
    void setSelected(bool selected);

    /// However long the name is: it is cut where the key ends.
    QSize minimumSizeHint() const override;

protected:
    void paintLabel(QPainter& painter, const QRectF& label, const QColor& ink) override;
    QSizeF labelSize() const override;
    void hideEvent(QHideEvent* event) override;

private:
    const QString m_categoryId;
    LampLight m_lamp;
};

} // namespace tolvar
