#pragma once

#include "Views/Shared/KeyButton.h"

#include <set>

namespace tolvar {

/// The key that leads to the choice of single applications. It shows the icons of those chosen, the
/// first few of them, or what it is for while there are none.
class CustomAppsRow final : public KeyButton {
    Q_OBJECT

public:
    /// Icons shown at most.
    static constexpr std::size_t maxAppIcons = 6;

    CustomAppsRow(const ControlContext& context, QWidget* parent = nullptr);

    /// Display names.
    void setApps(const std::set<QString>& apps);

protected:
    void paintLabel(QPainter& painter, const QRectF& label, const QColor& ink) override;
    QSizeF labelSize() const override;

private:
    QRectF mirrored(const QRectF& rect, const QRectF& within) const;

    std::set<QString> m_apps;
};

} // namespace tolvar
