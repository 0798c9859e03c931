#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>

class QPainter;

namespace tolvar {

class ApplicationIcons;

/// Fills `box` with an application's icon, or with a neutral drawing where it has none: on whole
/// device pixels, taken from the icon at the size that the device has.
void paintAppIcon(QPainter& painter, const QRectF& box, const QIcon& icon);

/// One application's icon, by name. It is looked up when it is first painted.
class AppIconView final : public QWidget {
    Q_OBJECT

public:
    /// `icons` outlives the view; `size` is a side in points.
    AppIconView(ApplicationIcons& icons, const QString& appName, double size,
                QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ApplicationIcons& m_icons;
    const QString m_appName;
    const double m_size;
};

} // namespace tolvar
