#pragma once

#include "Views/Shared/KeyButton.h"

#include <QStringList>

#include <set>

namespace tolvar {

class ApplicationIcons;

/// The key that leads to the choice of single applications. It shows the icons of those chosen, the
/// first few of them, or what it is for while there are none.
class CustomAppsRow final : public KeyButton {
    Q_OBJECT

public:
    /// Icons shown at most.
    static constexpr std::size_t maxAppIcons = 6;

    /// `icons` outlives the row.
    CustomAppsRow(const ControlContext& context, ApplicationIcons& icons,
                  QWidget* parent = nullptr);

    /// Display names.
    void setApps(const std::set<QString>& apps);

protected:
    bool event(QEvent* event) override;
    void paintLabel(QPainter& painter, const QRectF& label, const QColor& ink) override;
    QSizeF labelSize() const override;

private:
    void paintPurpose(QPainter& painter, const QRectF& line, const QColor& ink) const;
    void paintChoice(QPainter& painter, const QRectF& line) const;
    QPointF iconsOrigin(const QRectF& line) const;
    /// The application whose icon is at the point; empty beside the icons.
    QString appAt(const QPointF& point) const;
    bool isMirrored() const { return layoutDirection() == Qt::RightToLeft; }

    ApplicationIcons& m_icons;
    std::size_t m_count = 0;
    /// Those whose icons are shown.
    QStringList m_shown;
};

} // namespace tolvar
